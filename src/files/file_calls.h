#pragma once

#include <sys/types.h>

namespace rulemesh {

/// The system's own calls by which a file is written. Each answers as the system does, with errno set. A test derives
/// from it to let a call fail.
class FileCalls {
public:
    FileCalls() = default;
    FileCalls(const FileCalls&) = delete;
    FileCalls& operator=(const FileCalls&) = delete;
    virtual ~FileCalls() = default;

    virtual int Open(const char* path, int flags, mode_t mode);
    virtual ssize_t Write(int file, const char* bytes, size_t count);
    virtual int ChangeOwner(int file, uid_t owner, gid_t group);
    virtual int ChangeMode(int file, mode_t mode);
    virtual int Truncate(int file, off_t length);
    virtual int Sync(int file);
    virtual int Close(int file);
    virtual int Rename(const char* from, const char* to);
};

/// The calls of the system, unchanged.
[[nodiscard]] FileCalls& SystemCalls();

} // namespace rulemesh
