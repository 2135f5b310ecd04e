#include "files/output_file.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace rulemesh {

namespace {

[[noreturn]] void Raise(int error) { throw std::system_error(error, std::generic_category()); }

// Attributes that the system has beyond owner and mode; among them the access list, which counts like the mode.
constexpr char AccessList[] = "system.posix_acl_access";

std::vector<std::string> NamesOfAttributes([[maybe_unused]] const std::string& path)
{
#ifdef __linux__
    const ssize_t size = ::llistxattr(path.c_str(), nullptr, 0);
    if (size <= 0)
        return {};
    std::string list(static_cast<std::size_t>(size), '\0');
    const ssize_t filled = ::llistxattr(path.c_str(), list.data(), list.size());
    list.resize(static_cast<std::size_t>(std::max<ssize_t>(filled, 0)));
    std::vector<std::string> names;
    for (std::size_t at = 0; at < list.size(); at += names.back().size() + 1)
        names.emplace_back(list.c_str() + at);
    return names;
#else
    return {};
#endif
}

bool CopyAttribute([[maybe_unused]] const std::string& path, [[maybe_unused]] const std::string& name,
                   [[maybe_unused]] int file)
{
#ifdef __linux__
    const ssize_t size = ::lgetxattr(path.c_str(), name.c_str(), nullptr, 0);
    if (size < 0)
        return false;
    std::string value(static_cast<std::size_t>(size), '\0');
    const ssize_t filled = ::lgetxattr(path.c_str(), name.c_str(), value.data(), value.size());
    return filled >= 0 && ::fsetxattr(file, name.c_str(), value.data(), static_cast<std::size_t>(filled), 0) == 0;
#else
    return false;
#endif
}

} // namespace

OutputFile::OutputFile(FileCalls& calls, const std::string& path, int flags, mode_t mode)
    : calls_(calls), number_(calls.Open(path.c_str(), flags | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode))
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

void OutputFile::Write(std::string_view bytes)
{
    for (std::size_t at = 0; at < bytes.size();) {
        const ssize_t written = calls_.Write(number_, bytes.data() + at, bytes.size() - at);
        if (written < 0 && errno != EINTR)
            Raise(errno);
        if (written == 0)
            Raise(ENOSPC);
        if (written > 0)
            at += static_cast<std::size_t>(written);
    }
}

bool OutputFile::TakeAttributesOf(const std::string& path, const struct stat& status)
{
    const struct stat own = Status();
    const bool sameOwner = own.st_uid == status.st_uid && own.st_gid == status.st_gid;
    if (!sameOwner && calls_.ChangeOwner(number_, status.st_uid, status.st_gid) != 0) {
        if (errno != EPERM)
            Raise(errno);
        return false;
    }
    for (const std::string& name : NamesOfAttributes(path)) {
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

void OutputFile::Truncate(std::size_t length)
{
    if (calls_.Truncate(number_, static_cast<off_t>(length)) != 0)
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

void SyncFolder(FileCalls& calls, const std::string& folder)
{
    const int number = calls.Open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    if (number < 0)
        return;
    const int error = calls.Sync(number) == 0 ? 0 : errno;
    calls.Close(number);
    if (error != 0 && error != EINVAL && error != ENOTSUP && error != EINTR)
        Raise(error);
}

} // namespace rulemesh
