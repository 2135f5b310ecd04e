#pragma once

#include <string>
#include <string_view>

#include "files/file_calls.h"

namespace rulemesh {

/// Replaces a file as one act: either all of the new text stands there or all of the old one, whenever the program or
/// the machine goes down. The text is written beside the file, brought to the disk and renamed. Owner, group, mode and
/// access list stay, and a link stays a link to the file that is replaced.
///
/// A file of several names, one whose owner could not be kept, and one in a folder that can't be written is written in
/// place, after a whole copy of the old text is safe beside it (or, where that folder can't be written, in the user's
/// own data). When that fails the old text is put back.
///
/// What killed writers left beside the file is swept. Raises FileError when the text is not on the disk; the old one
/// stands there then. A file that is read-only for the user is refused.
void WriteFileAtOnce(const std::string& path, std::string_view bytes, FileCalls& calls = SystemCalls());

/// Removes what killed writers left beside a file.
void SweepLeftovers(const std::string& path);

/// The path of the whole text that stood in a file before its last writer was killed while it wrote in place; "" when
/// there is none, or when it stands in the file still.
[[nodiscard]] std::string CopyOfCutShortSave(const std::string& path);

} // namespace rulemesh
