#pragma once

#include <string>

namespace rulemesh {

/// The text of a file in samples/. A file that can't be read is a failure of the test.
[[nodiscard]] std::string Sample(const std::string& name);

} // namespace rulemesh
