#pragma once

#include <string>

namespace rulemesh {

inline constexpr const char* WideTable = "TGWID001";
inline constexpr int FieldsOfWideTable = 1000;

/// The generated object of medium size with a table of 1,000 fields, which its first two dumps fill.
[[nodiscard]] const std::string& WideObject();

} // namespace rulemesh
