#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "engine/check.h"

namespace rulemesh {

struct CheckOptions {
    enum class Format { Text, Json, Csv };

    std::vector<std::string> Files;
    Format As = Format::Text;
    Finding::Severity Fails = Finding::Severity::Error; // findings from here on make the status NotDone
};

/// Prints what is wrong with the objects in the files, file by file. A file that can't be read is told on `errors`, a
/// line each, and the others are checked all the same. Answers the exit status of the program: Done, NotDone when there
/// are findings of the severity or above it, CannotOpenFile when a file can't be read or the output not be written.
[[nodiscard]] int RunCheck(const CheckOptions& options, std::ostream& output, std::ostream& errors);

} // namespace rulemesh
