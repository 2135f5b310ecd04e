#include "host/drafts/draft_store.h"

#include <algorithm>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>
#include <QXmlStreamReader>

#include "files/leftovers.h"
#include "host/files/host_error.h"
#include "host/files/safe_file.h"

namespace rulemesh {

namespace {

// A draft is a mapping object behind an instruction that tells where it belongs, so that it can be opened by hand too.
constexpr char Instruction[] = "rulemesh-draft";
constexpr QLatin1String DraftEnding(".draft.xml");
constexpr QLatin1String LockEnding(".lock");

QString Absolute(const QString& file)
{
    if (file.isEmpty())
        return {};
    const QFileInfo info(file);
    const QString real = info.canonicalFilePath(); // one name for a file that links lead to; "" for a missing one
    return real.isEmpty() ? info.absoluteFilePath() : real;
}

QString StemFor(const QString& file)
{
    if (file.isEmpty())
        return QStringLiteral("new");
    const QByteArray hash = QCryptographicHash::hash(Absolute(file).toUtf8(), QCryptographicHash::Sha256).toHex();
    return QString::fromLatin1(hash.first(20));
}

QString LockPathOf(const QString& draft) { return draft.chopped(DraftEnding.size()) + LockEnding; }

// A lock is stale when its program has ended, however old it is.
std::unique_ptr<QLockFile> Locked(const QString& draft)
{
    auto lock = std::make_unique<QLockFile>(LockPathOf(draft));
    lock->setStaleLockTime(0);
    return lock->tryLock(0) ? std::move(lock) : nullptr;
}

QByteArray Attribute(const char* name, const QByteArray& value)
{
    return QByteArray(" ") + name + "=\"" + value.toPercentEncoding() + '"';
}

QByteArray ValueOf(const QByteArray& instruction, const QByteArray& name)
{
    const QByteArray opening = " " + name + "=\"";
    const qsizetype at = instruction.indexOf(opening);
    if (at == -1)
        return {};
    const qsizetype from = at + opening.size();
    return QByteArray::fromPercentEncoding(instruction.sliced(from, instruction.indexOf('"', from) - from));
}

DraftOrigin OriginIn(const QByteArray& instruction)
{
    return {.File = QString::fromUtf8(ValueOf(instruction, "file")),
            .Table = QString::fromUtf8(ValueOf(instruction, "table")),
            .Written = QDateTime::fromString(QString::fromUtf8(ValueOf(instruction, "written")), Qt::ISODateWithMs)};
}

bool IsDraftInstruction(const QByteArray& line) { return line.startsWith(QByteArray("<?") + Instruction + ' '); }

} // namespace

Draft::Draft(QString path, std::unique_ptr<QLockFile> lock) : path_(std::move(path)), lock_(std::move(lock)) {}

Draft::~Draft() = default;

void Draft::Write(const QString& file, const ObjectText& text)
{
    const QByteArray written = QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs).toUtf8();
    const QByteArray instruction = QByteArray("<?") + Instruction + Attribute("file", Absolute(file).toUtf8()) +
                                   Attribute("table", RootName(text.Object).toUtf8()) + Attribute("written", written) +
                                   Attribute("lead", text.Lead) + " ?>\n";
    WriteFileAtOnce(path_, instruction + text.Object);
}

void Draft::Discard()
{
    QFile file(path_);
    if (file.remove() || !file.exists())
        return;
    const QString reason = file.errorString();
    if (!file.resize(0))
        throw HostError(QStringLiteral("The draft %1 is not wanted any more, but it can't be removed: %2. Remove it by "
                                       "hand; until then it will be offered for recovery.")
                            .arg(path_, reason));
}

DraftStore::DraftStore(QString folder) : folder_(std::move(folder)) {}

QString DraftStore::DefaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + QStringLiteral("/drafts");
}

std::unique_ptr<Draft> DraftStore::Begin(const QString& file)
{
    constexpr int Most = 1000; // drafts of one file, each of a program that runs or has crashed
    if (!QDir().mkpath(folder_))
        throw HostError(QStringLiteral("The folder for drafts, %1, can't be made.").arg(folder_));
    QFile::setPermissions(folder_, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    for (int number = 1; number <= Most; ++number) {
        const QString path = QStringLiteral("%1/%2-%3%4").arg(folder_, StemFor(file)).arg(number).arg(DraftEnding);
        std::unique_ptr<QLockFile> lock = Locked(path);
        if (lock && !QFile::exists(path))
            return std::unique_ptr<Draft>(new Draft(path, std::move(lock)));
    }
    throw HostError(QStringLiteral("No draft can be kept in %1: look whether the folder can be written.").arg(folder_));
}

void DraftStore::Sweep() const
{
    SweepFolder(QFile::encodeName(folder_).toStdString(), DraftEnding.data());
    for (const QFileInfo& draft : QDir(folder_).entryInfoList({QStringLiteral("*") + DraftEnding}, QDir::Files)) {
        if (draft.size() == 0 && Locked(draft.filePath())) // discarded, but it could not be removed then
            QFile::remove(draft.filePath());
    }
    // Earlier versions wrote to names of six characters more, and a lock without its draft was left while it was made.
    const QDir folder(folder_);
    const QString unfinished = QStringLiteral("*") + DraftEnding + QStringLiteral(".??????");
    for (const QString& name : folder.entryList({unfinished}, QDir::Files)) {
        if (Locked(folder.filePath(name.chopped(7))))
            QFile::remove(folder.filePath(name));
    }
    for (const QString& name : folder.entryList({QStringLiteral("*") + LockEnding}, QDir::Files)) {
        const QString draft = folder.filePath(name.chopped(LockEnding.size())) + DraftEnding;
        if (!QFile::exists(draft))
            (void)Locked(draft); // takes a stale one away as it goes
    }
}

std::vector<DraftStore::Orphan> DraftStore::Orphans() const
{
    std::vector<Orphan> orphans;
    const QStringList names = QDir(folder_).entryList({QStringLiteral("*") + DraftEnding}, QDir::Files);
    for (const QString& name : names) {
        const QString path = folder_ + u'/' + name;
        QFile file(path);
        if (!Locked(path) || !file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray line = file.readLine();
        if (IsDraftInstruction(line))
            orphans.push_back({path, OriginIn(line)});
    }
    std::stable_sort(orphans.begin(), orphans.end(),
                     [](const Orphan& one, const Orphan& other) { return one.Origin.Written > other.Origin.Written; });
    return orphans;
}

std::vector<DraftStore::Orphan> DraftStore::OrphansOf(const QString& file) const
{
    std::vector<Orphan> orphans = Orphans();
    std::erase_if(orphans, [name = Absolute(file)](const Orphan& orphan) { return orphan.Origin.File != name; });
    return orphans;
}

DraftStore::Recovered DraftStore::TakeOver(const Orphan& orphan) const
{
    std::unique_ptr<QLockFile> lock = Locked(orphan.Path);
    if (!lock || !QFile::exists(orphan.Path))
        return {};
    ObjectText text = ReadObjectFile(orphan.Path);
    const QByteArray instruction = text.Lead;
    text.Lead = ValueOf(instruction, "lead");
    return {std::unique_ptr<Draft>(new Draft(orphan.Path, std::move(lock))), OriginIn(instruction), std::move(text)};
}

} // namespace rulemesh
