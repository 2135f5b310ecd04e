#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace rulemesh {

/// Text of the designer: UTF-16, where one code unit is one character.
using Text = std::u16string;
using TextView = std::u16string_view;

/// The line end of messages and text boxes: carriage return and line feed.
inline constexpr TextView LineEnd = u"\r\n";

/// The text without the blanks at both ends. Tabs and line ends stay.
[[nodiscard]] TextView TrimBlanks(TextView text) noexcept;

/// The parts between the separators, empty ones included; an empty text has no parts.
[[nodiscard]] std::vector<Text> Split(TextView text, char16_t separator);

/// Every occurrence of `find` replaced, from front to back. `find` must not be empty.
[[nodiscard]] Text ReplaceAll(TextView text, TextView find, TextView replacement);

/// As ReplaceAll, with the letters A to Z found in either case.
[[nodiscard]] Text ReplaceAllIgnoringCase(TextView text, TextView find, TextView replacement);

/// Every occurrence of the character dropped.
[[nodiscard]] Text Without(TextView text, char16_t character);

/// First offset at or behind `from` where `find` stands, the letters A to Z in either case; npos when nowhere.
[[nodiscard]] std::size_t FindIgnoringCase(TextView text, TextView find, std::size_t from = 0) noexcept;

} // namespace rulemesh
