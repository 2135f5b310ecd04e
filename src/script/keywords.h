#pragma once

#include <cstdint>

#include "base/text.h"

namespace rulemesh {

/// The small readers on which the reading of statements stands. Positions are 1-based; a character read past the end of
/// a text is a blank; line feed, carriage return, tab and blank are white.

inline constexpr TextView DumpKeyword = u"dump";
inline constexpr TextView MigrateKeyword = u"migrate";

/// The greatest number that a dump can have.
inline constexpr std::int16_t LastDumpNumber = 999;

/// The longest precondition in which migrate statements are found, in characters.
inline constexpr std::size_t PreconditionLimit = 32767;

/// The longest word of a statement, in characters.
inline constexpr std::size_t WordLimit = 32767;

/// The first word of the text, of any length: it begins behind any white characters, line ends included, and ends at a
/// white character and nowhere else.
[[nodiscard]] TextView NextWord(TextView StrText) noexcept;

/// Whether the word at the position stands alone: a white character, or the start of the text, in front of it, and
/// behind it a white character that is not the last one of the text.
[[nodiscard]] bool IsKeywordAt(TextView StrText, std::size_t LngPosition, std::size_t LngLength) noexcept;

/// Whether a white character, or the start of the text, stands in front of the position.
[[nodiscard]] bool HasWhiteInFront(TextView StrText, std::size_t LngPosition) noexcept;

/// Whether a bar stands in front of the position on the same line. Only a line feed ends a line.
[[nodiscard]] bool IsInComment(TextView StrText, std::size_t LngPosition);

/// The comment of a dump in the text that starts just behind its keyword: the bar and what follows on its line, up to
/// the 249th character, without characters outside 32..126.
[[nodiscard]] Text GetDumpComment(TextView StrText);

/// Whether the text has the form of a table code: five characters that are no digits, then three that are a number.
[[nodiscard]] bool IsTableCode(TextView StrName);

} // namespace rulemesh
