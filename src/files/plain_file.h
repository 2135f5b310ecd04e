#pragma once

#include <cstdint>
#include <string>

#include <sys/types.h>

namespace rulemesh {

/// All bytes of a plain file. Raises FileError for everything else that may stand there (a folder, a pipe, a device
/// ...) before it is opened, so that nothing hangs, and for a file that can't be read or is larger than this machine
/// can work on.
[[nodiscard]] std::string ReadPlainFile(const std::string& path);

/// What stands there, for people: "a folder, not a file".
[[nodiscard]] std::string KindOf(mode_t mode);

/// The largest file that ReadPlainFile reads, in bytes. The designer holds an object several times over, so it is a
/// part of the machine's memory.
[[nodiscard]] std::int64_t LargestFile();

} // namespace rulemesh
