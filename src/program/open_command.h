#pragma once

#include <string>

namespace rulemesh {

/// `rulemesh open`: the application on a file, or on nothing when no name is given. Returns the exit status. `program`
/// is the name by which this program was called.
int RunOpen(char* program, const std::string& file);

} // namespace rulemesh
