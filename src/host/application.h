#pragma once

#include <optional>

#include <QString>

namespace rulemesh {

/// The application, on a file or on nothing, until its window is closed. Returns the exit status. Takes what Qt knows
/// out of the arguments, such as `-platform offscreen`.
int RunApplication(int& argc, char** argv, const std::optional<QString>& file);

} // namespace rulemesh
