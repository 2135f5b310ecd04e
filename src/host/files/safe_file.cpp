#include "host/files/safe_file.h"

#include <cerrno>
#include <memory>
#include <optional>
#include <system_error>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <fcntl.h>
#include <unistd.h>

#include "host/files/host_error.h"
#include "host/files/leftovers.h"
#include "host/files/output_file.h"
#include "host/files/plain_file.h"

namespace rulemesh {

namespace {

constexpr mode_t OwnerAlone = 0600;
constexpr mode_t AsTheUserLikes = 0666; // less what the user's mask takes away

QString ReasonOf(const std::system_error& error) { return QString::fromStdString(error.code().message()); }

bool IsForbidden(const std::system_error& error)
{
    const int number = error.code().value();
    return number == EACCES || number == EPERM || number == EROFS || number == EBUSY;
}

// The file that links lead to, also where it is still to be made.
QByteArray FollowLinks(const QString& path)
{
    constexpr int Most = 40;
    QFileInfo file(path);
    for (int link = 0; link < Most && file.isSymLink(); ++link)
        file.setFile(file.symLinkTarget());
    return QFile::encodeName(file.absoluteFilePath());
}

// Nothing for a file that is still to be made.
std::optional<struct stat> StatusOf(const QByteArray& path)
{
    struct stat status = {};
    if (::lstat(path.constData(), &status) == 0)
        return status;
    if (errno != ENOENT)
        throw std::system_error(errno, std::generic_category());
    return std::nullopt;
}

void CheckWritable(const QByteArray& path, const struct stat& status)
{
    const QString shown = QFile::decodeName(path);
    if (!S_ISREG(status.st_mode))
        throw HostError(QStringLiteral("%1 is %2.").arg(shown, KindOf(status.st_mode)));
    if (::faccessat(AT_FDCWD, path.constData(), W_OK, AT_EACCESS) != 0)
        throw HostError(QStringLiteral("%1 is read-only (%2). Allow writing to it, or save under another name.")
                            .arg(shown, ReasonOf(std::system_error(errno, std::generic_category()))));
}

// A text on its way to its place. It goes again unless it arrives there.
class NewText {
public:
    NewText(FileCalls& calls, const QByteArray& file, mode_t mode) : calls_(calls)
    {
        constexpr int Most = 100;
        for (int number = 1; output_ == nullptr; ++number) {
            path_ = PathBeside(file, Beside::NewText, number);
            try {
                output_ = std::make_unique<OutputFile>(calls, path_, O_WRONLY | O_CREAT | O_EXCL, mode);
            } catch (const std::system_error& error) {
                if (error.code().value() != EEXIST || number == Most)
                    throw;
            }
        }
    }
    NewText(const NewText&) = delete;
    NewText& operator=(const NewText&) = delete;
    ~NewText()
    {
        output_.reset();
        if (!path_.isEmpty())
            ::unlink(path_.constData());
    }

    [[nodiscard]] OutputFile& Output() noexcept { return *output_; }

    void Arrive(const QByteArray& place)
    {
        output_->Sync();
        output_->Close();
        if (calls_.Rename(path_.constData(), place.constData()) != 0)
            throw std::system_error(errno, std::generic_category());
        path_.clear();
    }

private:
    FileCalls& calls_;
    QByteArray path_;
    std::unique_ptr<OutputFile> output_;
};

// False where the old file can't be replaced by another one that looks the same.
bool Replace(FileCalls& calls, const QByteArray& file, const std::optional<struct stat>& old, const QByteArray& bytes)
{
    try {
        NewText text(calls, file, old ? OwnerAlone : AsTheUserLikes);
        if (old && !text.Output().TakeAttributesOf(file, *old))
            return false;
        text.Output().Write(bytes);
        text.Arrive(file);
        return true;
    } catch (const std::system_error& error) {
        if (!old || !IsForbidden(error))
            throw;
        return false;
    }
}

QByteArray CopyOldText(FileCalls& calls, const QByteArray& file, const QByteArray& text)
{
    NewText copy(calls, file, OwnerAlone);
    copy.Output().Write(text);
    QByteArray place;
    for (int number = 1; place.isEmpty() || StatusOf(place); ++number)
        place = PathBeside(file, Beside::OldText, number);
    copy.Arrive(place);
    SyncFolder(calls, FolderOf(file));
    return place;
}

// Where the copy of a file stands whose own folder can't be written.
QByteArray InUsersData(const QByteArray& file)
{
    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + QStringLiteral("/copies");
    const QByteArray hash = QCryptographicHash::hash(file, QCryptographicHash::Sha256).toHex();
    return QFile::encodeName(folder) + '/' + hash.first(20) + '-' + NameOf(file);
}

QByteArray KeepOldText(FileCalls& calls, const QByteArray& file, const QByteArray& text)
{
    try {
        return CopyOldText(calls, file, text);
    } catch (const std::system_error& error) {
        if (!IsForbidden(error))
            throw;
    }
    const QByteArray elsewhere = InUsersData(file);
    QDir().mkpath(QFile::decodeName(FolderOf(elsewhere)));
    return CopyOldText(calls, elsewhere, text);
}

void Overwrite(FileCalls& calls, const QByteArray& file, const QByteArray& bytes)
{
    OutputFile output(calls, file, O_WRONLY, 0);
    output.Write(bytes);
    output.Truncate(bytes.size());
    output.Sync();
    output.Close();
}

void WriteInPlace(FileCalls& calls, const QByteArray& file, const QByteArray& bytes)
{
    const QByteArray old = ReadPlainFile(QFile::decodeName(file));
    const QByteArray copy = KeepOldText(calls, file, old);
    try {
        Overwrite(calls, file, bytes);
    } catch (const std::system_error& error) {
        try {
            Overwrite(calls, file, old);
        } catch (const std::system_error&) {
            throw HostError(QStringLiteral("%1 can't be written: %2. What stood there can't be put back either. It "
                                           "stands whole in %3.")
                                .arg(QFile::decodeName(file), ReasonOf(error), QFile::decodeName(copy)));
        }
        ::unlink(copy.constData());
        throw;
    }
    ::unlink(copy.constData());
}

QByteArrayList OldTextsOf(const QByteArray& file)
{
    return LeftBeside(file, Beside::OldText) + LeftBeside(InUsersData(file), Beside::OldText);
}

} // namespace

void WriteFileAtOnce(const QString& path, const QByteArray& bytes, FileCalls& calls)
{
    const QByteArray file = FollowLinks(path);
    std::optional<struct stat> old;
    try {
        old = StatusOf(file);
        if (old)
            CheckWritable(file, *old);
        SweepBeside(file);
        const bool hasOneName = !old || old->st_nlink == 1;
        if (!hasOneName || !Replace(calls, file, old, bytes))
            WriteInPlace(calls, file, bytes);
    } catch (const std::system_error& error) {
        throw HostError(QStringLiteral("%1 can't be written: %2. %3")
                            .arg(path, ReasonOf(error),
                                 old ? QStringLiteral("What stood there still stands.")
                                     : QStringLiteral("Nothing stands there now.")));
    }
    try {
        SyncFolder(calls, FolderOf(file));
    } catch (const std::system_error& error) {
        throw HostError(
            QStringLiteral("%1 was written, but the system can't tell that it is safe on the disk: %2. Save "
                           "it again, or in another folder.")
                .arg(path, ReasonOf(error)));
    }
    for (const QByteArray& copy : OldTextsOf(file))
        ::unlink(copy.constData()); // the file is whole again
}

void SweepLeftovers(const QString& path) { SweepBeside(FollowLinks(path)); }

QString CopyOfCutShortSave(const QString& path)
{
    const QByteArray file = FollowLinks(path);
    for (const QByteArray& copy : OldTextsOf(file)) {
        const QString shown = QFile::decodeName(copy);
        if (ReadPlainFile(shown) != ReadPlainFile(QFile::decodeName(file)))
            return shown;
        ::unlink(copy.constData());
    }
    return {};
}

} // namespace rulemesh
