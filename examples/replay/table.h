#pragma once

#include <string>
#include <vector>

/// Rows of texts as lines with columns side by side. A text keeps to one line and to a readable width.
[[nodiscard]] std::string AsTable(const std::vector<std::vector<std::string>>& rows, const std::string& indent);

/// The text on one line, cut to so many characters at most.
[[nodiscard]] std::string OnOneLine(const std::string& text, std::size_t longest);
