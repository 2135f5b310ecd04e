#pragma once

#include <string>
#include <string_view>

#include "base/code_page.h"
#include "base/text.h"

namespace rulemesh {

/// The folder of the temporary text files: where they lie, how their texts are stored, and their bytes.
/// A path is the folder followed by a file's name. Write and Read raise a Failure when they can't do their work.
class TextFiles {
public:
    TextFiles() = default;
    TextFiles(const TextFiles&) = delete;
    TextFiles& operator=(const TextFiles&) = delete;
    virtual ~TextFiles() = default;

    /// The folder, with its separator at the end.
    [[nodiscard]] virtual Text Folder() const = 0;

    /// The code page of the texts in the files.
    [[nodiscard]] virtual CodePage Page() const = 0;

    /// Makes the folder if it is missing, then makes the file or replaces all that it held.
    virtual void Write(TextView StrPath, std::string_view bytes) = 0;

    /// Writes the copy file of the mapping object. A host whose objects shall be saved all the same when the copy fails
    /// lets this one raise nothing.
    virtual void WriteCopy(TextView StrPath, std::string_view bytes) { Write(StrPath, bytes); }

    /// All bytes of an existing file. Raises FileNotFound for a missing one.
    [[nodiscard]] virtual std::string Read(TextView StrPath) = 0;
};

} // namespace rulemesh
