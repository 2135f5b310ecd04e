#include "host/files/output_file.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include <QByteArrayList>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace rulemesh {

namespace {

[[noreturn]] void Raise(int error) { throw std::system_error(error, std::generic_category()); }

// Attributes that the system has beyond owner and mode; among them the access list, which counts like the mode.
constexpr char AccessList[] = "system.posix_acl_access";

QByteArrayList NamesOfAttributes(const QByteArray& path)
{
#ifdef __linux__
    const ssize_t size = ::llistxattr(path.constData(), nullptr, 0);
    if (size <= 0)
        return {};
    QByteArray names(size, '\0');
    const ssize_t filled = ::llistxattr(path.constData(), names.data(), static_cast<std::size_t>(names.size()));
    return filled <= 0 ? QByteArrayList() : names.first(filled - 1).split('\0');
#else
    Q_UNUSED(path)
    return {};
#endif
}

bool CopyAttribute(const QByteArray& path, const QByteArray& name, int file)
{
#ifdef __linux__
    const ssize_t size = ::lgetxattr(path.constData(), name.constData(), nullptr, 0);
    if (size < 0)
        return false;
    QByteArray value(size, '\0');
    const ssize_t filled =
        ::lgetxattr(path.constData(), name.constData(), value.data(), static_cast<std::size_t>(value.size()));
    return filled >= 0 &&
           ::fsetxattr(file, name.constData(), value.constData(), static_cast<std::size_t>(filled), 0) == 0;
#else
    Q_UNUSED(path)
    Q_UNUSED(name)
    Q_UNUSED(file)
    return false;
#endif
}

} // namespace

OutputFile::OutputFile(FileCalls& calls, const QByteArray& path, int flags, mode_t mode)
    : calls_(calls), number_(calls.Open(path.constData(), flags | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode))
{
    if (number_ < 0)
        Raise(errno);
    ::flock(number_, LOCK_EX | LOCK_NB); // tells others that its writer lives; a system without locks goes by the name
}

OutputFile::~OutputFile()
{
    if (number_ >= 0)
        calls_.Close(number_);
}

struct stat OutputFile::Status() const
{
    struct stat status = {};
    if (::fstat(number_, &status) != 0)
        Raise(errno);
    return status;
}

void OutputFile::Write(const QByteArray& bytes)
{
    for (qsizetype at = 0; at < bytes.size();) {
        const ssize_t written =
            calls_.Write(number_, bytes.constData() + at, static_cast<std::size_t>(bytes.size() - at));
        if (written < 0 && errno != EINTR)
            Raise(errno);
        if (written == 0)
            Raise(ENOSPC);
        if (written > 0)
            at += written;
    }
}

bool OutputFile::TakeAttributesOf(const QByteArray& path, const struct stat& status)
{
    const struct stat own = Status();
    const bool sameOwner = own.st_uid == status.st_uid && own.st_gid == status.st_gid;
    if (!sameOwner && calls_.ChangeOwner(number_, status.st_uid, status.st_gid) != 0) {
        if (errno != EPERM)
            Raise(errno);
        return false;
    }
    for (const QByteArray& name : NamesOfAttributes(path)) {
        if (!CopyAttribute(path, name, number_) && name == AccessList)
            return false;
    }
    constexpr mode_t Permissions = 07777;
    const bool sameMode = ((Status().st_mode ^ status.st_mode) & Permissions) == 0;
    if (!sameMode && calls_.ChangeMode(number_, status.st_mode & Permissions) != 0) {
        if (errno != EPERM)
            Raise(errno);
        return false;
    }
    return true;
}

void OutputFile::Truncate(qsizetype length)
{
    if (calls_.Truncate(number_, length) != 0)
        Raise(errno);
}

void OutputFile::Sync()
{
    while (calls_.Sync(number_) != 0) {
        if (errno != EINTR)
            Raise(errno);
    }
}

// EINTR leaves the descriptor closed.
void OutputFile::Close()
{
    if (calls_.Close(std::exchange(number_, -1)) != 0 && errno != EINTR)
        Raise(errno);
}

void SyncFolder(FileCalls& calls, const QByteArray& folder)
{
    const int number = calls.Open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    if (number < 0)
        return;
    const int error = calls.Sync(number) == 0 ? 0 : errno;
    calls.Close(number);
    if (error != 0 && error != EINVAL && error != ENOTSUP && error != EINTR)
        Raise(error);
}

} // namespace rulemesh
