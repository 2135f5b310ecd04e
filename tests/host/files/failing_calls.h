#pragma once

#include <cerrno>
#include <functional>
#include <string>

#include "files/file_calls.h"

namespace rulemesh {

/// The system's calls, of which some fail as a test says.
class FailingCalls : public FileCalls {
public:
    enum class Call { Open, Write, ChangeOwner, ChangeMode, Truncate, Sync, Close, Rename };

    /// From the call of that kind numbered `first` on, `times` calls fail with the error.
    FailingCalls(Call call, int error, int first = 1, int times = 1000)
        : call_(call), error_(error), first_(first), last_(first + times - 1)
    {
    }

    /// A short write before a write fails.
    std::size_t Room = 0;

    [[nodiscard]] bool HasFailed() const noexcept { return failed_; }

    int Open(const char* path, int flags, mode_t mode) override
    {
        return Fails(Call::Open) ? -1 : FileCalls::Open(path, flags, mode);
    }
    ssize_t Write(int file, const char* bytes, size_t count) override
    {
        if (call_ == Call::Write && Room > 0) {
            const std::size_t part = std::min(Room, count);
            Room -= part;
            return FileCalls::Write(file, bytes, part);
        }
        return Fails(Call::Write) ? -1 : FileCalls::Write(file, bytes, count);
    }
    int ChangeOwner(int file, uid_t owner, gid_t group) override
    {
        return Fails(Call::ChangeOwner) ? -1 : FileCalls::ChangeOwner(file, owner, group);
    }
    int ChangeMode(int file, mode_t mode) override
    {
        return Fails(Call::ChangeMode) ? -1 : FileCalls::ChangeMode(file, mode);
    }
    int Truncate(int file, off_t length) override
    {
        return Fails(Call::Truncate) ? -1 : FileCalls::Truncate(file, length);
    }
    int Sync(int file) override { return Fails(Call::Sync) ? -1 : FileCalls::Sync(file); }
    int Close(int file) override
    {
        const int done = FileCalls::Close(file); // closed in any case, as the system does
        return Fails(Call::Close) ? -1 : done;
    }
    int Rename(const char* from, const char* to) override
    {
        return Fails(Call::Rename) ? -1 : FileCalls::Rename(from, to);
    }

private:
    bool Fails(Call call)
    {
        if (call != call_)
            return false;
        ++count_;
        if (count_ < first_ || count_ > last_)
            return false;
        failed_ = true;
        errno = error_;
        return true;
    }

    Call call_;
    int error_;
    int first_;
    int last_;
    int count_ = 0;
    bool failed_ = false;
};

} // namespace rulemesh
