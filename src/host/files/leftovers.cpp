#include "host/files/leftovers.h"

#include <cerrno>
#include <csignal>

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace rulemesh {

namespace {

constexpr char Infix[] = ".rulemesh-";
constexpr char OldTextEnding[] = ".old";
constexpr qsizetype LongestStem = 200; // of the 255 bytes that a name may have

QByteArray StemOf(const QByteArray& name) { return name.first(std::min(name.size(), LongestStem)) + Infix; }

QByteArray EndingFor(Beside purpose) { return purpose == Beside::OldText ? OldTextEnding : ""; }

// The process in `PROCESS-NUMBER`; 0 for another text.
pid_t WriterIn(const QByteArray& mark)
{
    const QByteArrayList parts = mark.split('-');
    bool isProcess = false;
    bool isNumber = false;
    if (parts.size() != 2)
        return 0;
    const int process = parts[0].toInt(&isProcess);
    (void)parts[1].toInt(&isNumber);
    return isProcess && isNumber && process > 0 ? process : 0;
}

bool Lives(pid_t process) { return process != ::getpid() && (::kill(process, 0) == 0 || errno != ESRCH); }

// A writer on another machine has no process here, but holds its lock here too.
bool IsLocked(const QByteArray& path)
{
    const int file = ::open(path.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool locked = ::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(file);
    return locked;
}

bool IsLeft(const QByteArray& path, const QByteArray& mark)
{
    const pid_t writer = WriterIn(mark);
    return writer != 0 && !Lives(writer) && !IsLocked(path);
}

QByteArrayList NamesIn(const QByteArray& folder)
{
    QByteArrayList names;
    for (const QString& name : QDir(QFile::decodeName(folder)).entryList(QDir::Files | QDir::Hidden))
        names += QFile::encodeName(name);
    return names;
}

} // namespace

QByteArray FolderOf(const QByteArray& path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash == -1 ? QByteArray(".") : path.first(std::max(slash, qsizetype{1}));
}

QByteArray NameOf(const QByteArray& path) { return path.sliced(path.lastIndexOf('/') + 1); }

QByteArray PathBeside(const QByteArray& file, Beside purpose, int number)
{
    return FolderOf(file) + '/' + StemOf(NameOf(file)) + QByteArray::number(static_cast<int>(::getpid())) + '-' +
           QByteArray::number(number) + EndingFor(purpose);
}

QByteArrayList LeftBeside(const QByteArray& file, Beside purpose)
{
    const QByteArray folder = FolderOf(file);
    const QByteArray stem = StemOf(NameOf(file));
    const QByteArray ending = EndingFor(purpose);
    QByteArrayList left;
    for (const QByteArray& name : NamesIn(folder)) {
        if (name.size() <= stem.size() + ending.size() || !name.startsWith(stem) || !name.endsWith(ending))
            continue;
        const QByteArray path = folder + '/' + name;
        if (IsLeft(path, name.sliced(stem.size()).chopped(ending.size())))
            left += path;
    }
    return left;
}

void SweepBeside(const QByteArray& file)
{
    for (const QByteArray& path : LeftBeside(file, Beside::NewText))
        ::unlink(path.constData());
}

void SweepFolder(const QByteArray& folder, const QByteArray& ending)
{
    for (const QByteArray& name : NamesIn(folder)) {
        const qsizetype infix = name.lastIndexOf(Infix);
        if (infix != -1 && name.first(infix).endsWith(ending))
            SweepBeside(folder + '/' + name.first(infix));
    }
}

} // namespace rulemesh
