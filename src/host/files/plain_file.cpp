#include "host/files/plain_file.h"

#include <cerrno>
#include <cstring>

#include <QFile>
#include <QLocale>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/files/host_error.h"

namespace rulemesh {

namespace {

[[noreturn]] void RefuseBySystem(const QString& path, const QString& what)
{
    throw HostError(QStringLiteral("%1 %2: %3.").arg(path, what, QString::fromLocal8Bit(std::strerror(errno))));
}

void CheckKind(const QString& path, const struct stat& status)
{
    if (!S_ISREG(status.st_mode))
        throw HostError(QStringLiteral("%1 is %2.").arg(path, KindOf(status.st_mode)));
    if (status.st_size > LargestFile())
        throw HostError(
            QStringLiteral("%1 is too large: it has %2, and this machine has memory for objects of up to %3.")
                .arg(path, QLocale().formattedDataSize(status.st_size), QLocale().formattedDataSize(LargestFile())));
}

} // namespace

QString KindOf(mode_t mode)
{
    if (S_ISDIR(mode))
        return QStringLiteral("a folder, not a file");
    if (S_ISFIFO(mode))
        return QStringLiteral("a pipe between programs, not a file");
    if (S_ISSOCK(mode))
        return QStringLiteral("a socket between programs, not a file");
    if (S_ISCHR(mode) || S_ISBLK(mode))
        return QStringLiteral("a device, not a file");
    return S_ISREG(mode) ? QStringLiteral("a file") : QStringLiteral("no file that holds a text");
}

qint64 LargestFile()
{
    constexpr qint64 TimesHeld = 16; // as bytes, texts, document, draft, and room for the work on them
    return qint64{::sysconf(_SC_PHYS_PAGES)} * ::sysconf(_SC_PAGESIZE) / TimesHeld;
}

// Looked at by its name first, as opening some devices does something already, and once more when it is open.
QByteArray ReadPlainFile(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status = {};
    if (::stat(name.constData(), &status) != 0)
        RefuseBySystem(path, QStringLiteral("can't be opened"));
    CheckKind(path, status);
    const int number = ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (number < 0)
        RefuseBySystem(path, QStringLiteral("can't be opened"));
    QFile file;
    if (!file.open(number, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle) || ::fstat(number, &status) != 0)
        RefuseBySystem(path, QStringLiteral("can't be opened"));
    CheckKind(path, status);
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw HostError(QStringLiteral("%1 can't be read: %2.").arg(path, file.errorString()));
    return bytes;
}

} // namespace rulemesh
