#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/text.h"

namespace rulemesh {

/// The statements that builders put into scripts, in a form in which the designer finds them.

/// `migrate table`, with a description behind a bar when there is one.
[[nodiscard]] Text MigrateStatement(TextView StrTable, TextView StrDescription = {});

/// `dump number`, with a comment behind a bar when there is one.
[[nodiscard]] Text DumpStatement(std::int16_t IntDump, TextView StrComment = {});

/// The number behind the greatest one that the scripts name, else the first free one; from 1 to 999. Nothing when
/// every number is taken.
[[nodiscard]] std::optional<std::int16_t> NextFreeDump(const std::vector<std::int16_t>& IntNumbers);

/// The numbers of the dumps that an object (UTF-8) knows and that its scripts and one more script name.
[[nodiscard]] std::vector<std::int16_t> DumpsNamedBy(const std::string& object, TextView StrScript);

/// The tables that a script migrates, in order of appearance, each once.
[[nodiscard]] std::vector<Text> TablesMigratedBy(TextView StrScript);

/// Whether the designer reads all migrate statements of a script without a complaint.
[[nodiscard]] bool MigratesCleanly(TextView StrScript);

/// A word of a script, and the line in which it stands, from 1.
struct PlacedWord {
    Text Word;
    int Line = 0;

    friend bool operator==(const PlacedWord&, const PlacedWord&) = default;
};

/// The numbers of dumps in force that are past 16 bits, at each of which the designer's reading of a script fails.
[[nodiscard]] std::vector<PlacedWord> DumpsPast16Bits(TextView StrScript);

/// A text with a statement put in at the caret, on a line of its own and indented like the line of the caret. Lines end
/// with a line feed.
struct Insertion {
    Text Script;
    std::size_t Caret = 0; // behind the statement

    friend bool operator==(const Insertion&, const Insertion&) = default;
};
[[nodiscard]] Insertion InsertLine(TextView StrScript, std::size_t caret, TextView StrStatement);

} // namespace rulemesh
