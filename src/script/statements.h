#pragma once

#include <cstdint>
#include <optional>

#include "base/text.h"

namespace rulemesh {

/// Which statements a script is read for: migrate statements count in the precondition alone, dump statements in the
/// precondition, the main queries and the functions.
struct ScannedFor {
    bool Migrate = false;
    bool Dump = false;
};

/// What is wrong with a statement, so that it names neither a dump nor a table.
enum class StatementFault : std::uint8_t {
    None,
    NothingBehind,    ///< at most one character stands behind the keyword
    NoWord,           ///< nothing but white characters stands behind it
    WordTooLong,      ///< the word has more than WordLimit characters
    NoNumber,         ///< the word of a dump is no number
    NumberTooGreat,   ///< the number of a dump is greater than LastDumpNumber
    NumberPast16Bits, ///< the number of a dump is outside of -32768..32767
    TableLength,      ///< the word of a migrate is shorter or longer than a table code
    TableForm,        ///< it is as long, and has another form
};

/// A keyword that stands alone in a script, and the word behind it. The view goes into the script that was read.
struct Statement {
    enum class Kind : std::uint8_t { Migrate, Dump };

    std::size_t Position = 0; ///< of the keyword, an offset from 0
    TextView Word;            ///< the table of a migrate, the number of a dump; "" when there is none
    std::int16_t Number = 0;  ///< of a dump without a fault, to the nearest whole number
    Kind What = Kind::Dump;
    StatementFault Fault = StatementFault::None;
    bool IsCommented = false; ///< a bar takes the dump out of force; it never does so with a migrate
    bool StartsText = false;  ///< the script, or the keyword before of the same kind, ends right in front

    /// Whether the statement counts: it names a dump or a table.
    [[nodiscard]] bool IsInForce() const noexcept { return Fault == StatementFault::None && !IsCommented; }

    friend bool operator==(const Statement&, const Statement&) = default;
};

/// Reads the statements of a script from front to back, in one pass for both keywords. A keyword is searched as bare
/// letters, in any case, and then tested for what stands around it; letters that turn out to be part of a longer word
/// are passed over. The tests look back no further than to the last letters of the same keyword: of two dumps behind
/// one bar only the first is commented out. Borrows the script, which must outlive the cursor.
class StatementCursor {
public:
    StatementCursor(TextView StrScript, ScannedFor scanned) noexcept : script_(StrScript), scanned_(scanned) {}

    /// The next statement, nothing behind the last.
    [[nodiscard]] std::optional<Statement> Next();

private:
    [[nodiscard]] std::optional<Statement> StatementAt(std::size_t at, Statement::Kind kind, TextView StrKeyword,
                                                       std::size_t& looksBackTo) const;

    TextView script_;
    ScannedFor scanned_;
    std::size_t position_ = 0;
    std::size_t behindMigrate_ = 0; // behind the last letters of the keyword
    std::size_t behindDump_ = 0;
};

} // namespace rulemesh
