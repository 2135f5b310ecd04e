#include "files/file_calls.h"

#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace rulemesh {

int FileCalls::Open(const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); }

ssize_t FileCalls::Write(int file, const char* bytes, size_t count) { return ::write(file, bytes, count); }

int FileCalls::ChangeOwner(int file, uid_t owner, gid_t group) { return ::fchown(file, owner, group); }

int FileCalls::ChangeMode(int file, mode_t mode) { return ::fchmod(file, mode); }

int FileCalls::Truncate(int file, off_t length) { return ::ftruncate(file, length); }

int FileCalls::Sync(int file) { return ::fsync(file); }

int FileCalls::Close(int file) { return ::close(file); }

int FileCalls::Rename(const char* from, const char* to) { return std::rename(from, to); }

FileCalls& SystemCalls()
{
    static FileCalls calls;
    return calls;
}

} // namespace rulemesh
