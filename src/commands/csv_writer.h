#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace rulemesh {

/// One record of a CSV text (RFC 4180) in UTF-8, its line end with it. A cell that a spreadsheet would take for a
/// formula (it begins with `=`, `+`, `-`, `@`, a tab or a carriage return) gets an apostrophe in front, and so does one
/// that begins with an apostrophe.
[[nodiscard]] std::string CsvRecord(const std::vector<std::string>& cells);

/// A cell as it was before CsvRecord put an apostrophe in front of it.
[[nodiscard]] std::string_view WithoutGuard(std::string_view cell) noexcept;

} // namespace rulemesh
