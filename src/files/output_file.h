#pragma once

#include <string>
#include <string_view>

#include <sys/stat.h>

#include "files/file_calls.h"

namespace rulemesh {

/// A file that is being written. Every member raises std::system_error when the system does not do what it says.
class OutputFile {
public:
    /// Opens the file by its path, never through a link. Locked while it is open, where the system can.
    OutputFile(FileCalls& calls, const std::string& path, int flags, mode_t mode);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    [[nodiscard]] struct stat Status() const;

    /// Writes from where the file stands; what an interrupted or short write left over is written next.
    void Write(std::string_view bytes);

    /// Gives the file the owner, group, access list, further attributes and mode of another one. False where the system
    /// forbids it.
    [[nodiscard]] bool TakeAttributesOf(const std::string& path, const struct stat& status);

    /// Ends the file here.
    void Truncate(std::size_t length);

    /// Comes back when all that was written is on the disk.
    void Sync();

    /// Must be called for a file that counts: some systems tell only here that they could not write.
    void Close();

private:
    FileCalls& calls_;
    int number_;
};

/// Brings what was renamed in a folder to the disk. Says nothing of a folder that can't be flushed by its nature: one
/// that can't be read, or whose file system has no such call.
void SyncFolder(FileCalls& calls, const std::string& folder);

} // namespace rulemesh
