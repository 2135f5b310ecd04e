#pragma once

#include <string>
#include <vector>

namespace rulemesh {

/// The text of a file in samples/. A file that can't be read is a failure of the test.
[[nodiscard]] std::string Sample(const std::string& name);

/// The names of all mapping objects in samples/.
[[nodiscard]] std::vector<std::string> SampleNames();

} // namespace rulemesh
