#pragma once

#include <cstdint>

#include "base/text.h"
#include "platform/platform.h"

namespace rulemesh {

/// The small readers on which both keyword scanners stand. Positions are 1-based; a character read past the end of a
/// text is a blank; line feed, carriage return, tab and blank are white.

inline constexpr TextView DumpKeyword = u"dump";
inline constexpr TextView MigrateKeyword = u"migrate";

/// Dump numbers are below this one.
inline constexpr std::int16_t DumpNumberLimit = 1000;

/// The longest precondition in which migrate statements are found, in characters.
inline constexpr std::size_t PreconditionLimit = 32767;

/// The longest word that ReadWord reads, in characters.
inline constexpr std::size_t WordLimit = 32767;

/// The first word of the text: it begins behind any white characters, line ends included, and ends at a white
/// character and nowhere else. LngPosition grows by one for each character of the word and each line end or tab in
/// front of it; blanks don't count. Raises Overflow for a word longer than WordLimit.
[[nodiscard]] TextView ReadWord(TextView StrText, std::int32_t& LngPosition);

/// Whether the word at the position stands alone: a white character, or the start of the text, in front of it and a
/// white character behind it. With nothing but at most one character behind it, the message complains.
[[nodiscard]] bool IsKeywordAt(TextView StrText, std::size_t LngPosition, std::size_t LngLength, TextView StrMessage,
                               Platform& platform);

/// The same without a complaint: whether white characters, or the start of the text, stand on both sides of it.
[[nodiscard]] bool StandsAlone(TextView StrText, std::size_t LngPosition, std::size_t LngLength) noexcept;

/// Whether a bar stands in front of the position on the same line. Only a line feed ends a line.
[[nodiscard]] bool IsInComment(TextView StrText, std::size_t LngPosition);

/// The comment of a dump in the text that starts just behind its keyword: the bar and what follows on its line, up to
/// the 249th character, without characters outside 32..126.
[[nodiscard]] Text GetDumpComment(TextView StrText);

/// Whether the text has the form of a table code: five characters that are no digits, then three that are a number.
[[nodiscard]] bool IsTableCode(TextView StrName);

/// First position of the keyword as a bare substring at or behind LngFrom, case ignored; 0 for none.
[[nodiscard]] std::size_t FindKeyword(TextView StrText, TextView StrKeyword);

} // namespace rulemesh
