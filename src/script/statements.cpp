#include "script/statements.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "object/control_state.h"
#include "script/keywords.h"

namespace rulemesh {

namespace {

// In the lower case of ASCII; no character but a letter becomes one.
constexpr char16_t Lower(char16_t character) noexcept { return static_cast<char16_t>(character | 0x20); }

bool HasLettersAt(TextView StrScript, std::size_t at, TextView StrKeyword) noexcept
{
    if (StrScript.size() - at < StrKeyword.size())
        return false;
    for (std::size_t letter = 1; letter < StrKeyword.size(); ++letter) {
        if (Lower(StrScript[at + letter]) != StrKeyword[letter])
            return false;
    }
    return true;
}

void ReadTable(Statement& migrate)
{
    if (migrate.Word.size() != TableCodeLength)
        migrate.Fault = StatementFault::TableLength;
    else if (!IsTableCode(migrate.Word))
        migrate.Fault = StatementFault::TableForm;
}

void ReadNumber(Statement& dump)
{
    if (!IsNumeric(dump.Word)) {
        dump.Fault = StatementFault::NoNumber;
        return;
    }
    try {
        dump.Number = ToInt16(dump.Word);
        if (dump.Number > LastDumpNumber)
            dump.Fault = StatementFault::NumberTooGreat;
    } catch (const Failure&) {
        dump.Fault = StatementFault::NumberPast16Bits;
    }
}

void ReadWord(Statement& statement, TextView StrBehind)
{
    statement.Word = NextWord(StrBehind);
    if (statement.Word.empty())
        statement.Fault = StatementFault::NoWord;
    else if (statement.Word.size() > WordLimit)
        statement.Fault = StatementFault::WordTooLong;
    else if (statement.What == Statement::Kind::Migrate)
        ReadTable(statement);
    else
        ReadNumber(statement);
}

} // namespace

std::optional<Statement> StatementCursor::Next()
{
    while (position_ < script_.size()) {
        const std::size_t at = position_++;
        const char16_t letter = Lower(script_[at]);
        std::optional<Statement> statement;
        if (letter == DumpKeyword.front() && scanned_.Dump && HasLettersAt(script_, at, DumpKeyword))
            statement = StatementAt(at, Statement::Kind::Dump, DumpKeyword, behindDump_);
        else if (letter == MigrateKeyword.front() && scanned_.Migrate && HasLettersAt(script_, at, MigrateKeyword))
            statement = StatementAt(at, Statement::Kind::Migrate, MigrateKeyword, behindMigrate_);
        if (statement)
            return statement;
    }
    return std::nullopt;
}

std::optional<Statement> StatementCursor::StatementAt(std::size_t at, Statement::Kind kind, TextView StrKeyword,
                                                      std::size_t& looksBackTo) const
{
    const TextView Rest = script_.substr(looksBackTo);
    const std::size_t position = at - looksBackTo + 1;
    const TextView StrBehind = Rest.substr(position - 1 + StrKeyword.size());
    looksBackTo = at + StrKeyword.size();

    const bool isDump = kind == Statement::Kind::Dump;
    Statement statement = {.Position = at, .Word = {}, .What = kind, .StartsText = position == 1};
    statement.IsCommented = isDump && IsInComment(Rest, position);
    if (StrBehind.size() <= 1) {
        // A migrate without anything behind it is one even at the end of a longer word.
        if (isDump && !HasWhiteInFront(Rest, position))
            return std::nullopt;
        statement.Fault = StatementFault::NothingBehind;
        return statement;
    }
    if (!IsKeywordAt(Rest, position, StrKeyword.size()))
        return std::nullopt;
    ReadWord(statement, StrBehind);
    return statement;
}

} // namespace rulemesh
