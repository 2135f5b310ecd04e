#include "script/script_scanner.h"

#include <algorithm>
#include <iterator>

#include "base/failure.h"
#include "base/numbers.h"
#include "script/keywords.h"

namespace rulemesh {

void ScriptScanner::ScanDumpKeywords(TextView StrText, std::vector<std::int16_t>& IntNumbers,
                                     std::vector<Text>& StrTexts)
{
    StatementCursor statements(StrText, {.Dump = true});
    while (const std::optional<Statement> dump = statements.Next()) {
        if (dump->IsInForce())
            RegisterDump(dump->Number, IntNumbers, GetDumpComment(StrText.substr(dump->Position + DumpKeyword.size())),
                         StrTexts);
        else if (!dump->IsCommented)
            Complain(*dump);
    }
}

// A word that is no number and a number that is too great are passed over in silence.
void ScriptScanner::Complain(const Statement& dump)
{
    if (dump.Fault == StatementFault::NothingBehind)
        platform_.ShowMessage({.Text = u"Dump Keyword Must be Followed by a Dump Number",
                               .Icon = dump.StartsText ? MessageIcon::Critical : MessageIcon::Notice});
    else if (dump.Fault == StatementFault::NumberPast16Bits)
        Telling([] { return u"The number of a dump statement"; }, [&] { return ToInt16(dump.Word); });
    else if (dump.Fault == StatementFault::WordTooLong)
        object_.Read().RecordError(static_cast<int>(FailureCode::Overflow),
                                   u"The word that begins with \"" + Text(dump.Word.substr(0, 20)) +
                                       u"\" is longer than 32767 characters",
                                   2002, u"Error Getting the NextWord");
}

bool ScriptScanner::RegisterDump(std::int16_t IntDump, std::vector<std::int16_t>& IntNumbers, const Text& StrText,
                                 std::vector<Text>& StrTexts)
{
    const auto known = std::find(IntNumbers.begin(), IntNumbers.end(), IntDump);
    if (known != IntNumbers.end()) {
        StrTexts[static_cast<std::size_t>(std::distance(IntNumbers.begin(), known))] = StrText;
        return false;
    }
    if (IsEmptyList(IntNumbers)) {
        IntNumbers.front() = IntDump;
        StrTexts.front() = StrText;
    } else {
        IntNumbers.push_back(IntDump);
        StrTexts.resize(IntNumbers.size()); // texts of an earlier scan may stand behind the list's end until now
        StrTexts.back() = StrText;
    }
    object_.EnsureDump(IntDump, StrText);
    return true;
}

bool ScriptScanner::ParseMigrateKeywords(TextView StrText)
{
    if (StrText.empty())
        return false;
    try {
        state_.StrMigrateTables = {u""};
        ReadMigrateTables(StrText);
        FillMigrateList();
        return true;
    } catch (const Failure& failure) {
        object_.Read().RecordError(failure.Number(), failure.Description(), 2002, u"Error Parsing the Migrate Keyword");
        return false;
    }
}

// Unlike a dump, a migrate keyword counts behind a bar too.
void ScriptScanner::ReadMigrateTables(TextView StrText)
{
    if (StrText.size() > PreconditionLimit)
        throw Failure(FailureCode::Overflow, u"The precondition has " +
                                                 PlainNumber(static_cast<std::int64_t>(StrText.size())) +
                                                 u" characters; its statements are found in up to 32767");
    StatementCursor statements(StrText, {.Migrate = true});
    while (const std::optional<Statement> migrate = statements.Next())
        AddMigrateTable(*migrate);
}

void ScriptScanner::AddMigrateTable(const Statement& migrate)
{
    switch (migrate.Fault) {
    case StatementFault::None:
        if (IsInStringList(state_.StrMigrateTables, migrate.Word))
            return;
        if (IsEmptyList(state_.StrMigrateTables))
            state_.StrMigrateTables.front() = migrate.Word;
        else
            state_.StrMigrateTables.emplace_back(migrate.Word);
        return;
    case StatementFault::NothingBehind:
        platform_.ShowMessage(
            {.Text = u"Migrate Keyword Has to be followed by a TableName", .Icon = MessageIcon::Critical});
        return;
    case StatementFault::TableLength:
        return RefuseTable(u"Table Name not Valid");
    case StatementFault::TableForm:
        return RefuseTable(u"Invalid table name '" + Text(migrate.Word) + u"'");
    default:
        return; // white characters alone
    }
}

void ScriptScanner::RefuseTable(const Text& StrText)
{
    platform_.ShowMessage({.Text = StrText, .Icon = MessageIcon::Critical});
    views_.txtPreCondition.SetFocus();
}

void ScriptScanner::FillMigrateList()
{
    views_.lstMigrateSource.Clear();
    if (IsEmptyList(state_.StrMigrateTables))
        return;
    int row = 1;
    for (const Text& StrTable : state_.StrMigrateTables) {
        views_.lstMigrateSource.Insert(row++, {u"migrate " + StrTable});
        views_.lstMigrateSource.Insert(row++, {u""});
    }
}

bool IsEmptyList(const std::vector<std::int16_t>& IntNumbers) noexcept
{
    return IntNumbers.size() == 1 && IntNumbers.front() == 0;
}

bool IsEmptyList(const std::vector<Text>& StrTexts) noexcept
{
    return StrTexts.size() == 1 && StrTexts.front().empty();
}

bool IsInStringList(const std::vector<Text>& StrTexts, TextView StrValue) noexcept
{
    return std::find(StrTexts.begin(), StrTexts.end(), StrValue) != StrTexts.end();
}

bool IsInDumpList(const std::vector<std::int16_t>& IntNumbers, std::int16_t IntDump) noexcept
{
    return std::find(IntNumbers.begin(), IntNumbers.end(), IntDump) != IntNumbers.end();
}

} // namespace rulemesh
