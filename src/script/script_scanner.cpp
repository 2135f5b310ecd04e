#include "script/script_scanner.h"

#include <algorithm>
#include <iterator>

#include "base/failure.h"
#include "base/numbers.h"
#include "script/keywords.h"

namespace rulemesh {

// The rest of the script is cut right behind every hit, so the tests of what stands in front of a keyword look back
// no further than to the previous hit: of two dumps behind one bar only the first is commented out.
void ScriptScanner::ScanDumpKeywords(TextView StrText, std::vector<std::int16_t>& IntNumbers,
                                     std::vector<Text>& StrTexts)
{
    TextView Rest = StrText;
    std::size_t position = FindKeyword(Rest, DumpKeyword);
    const auto cutBehindHit = [&] {
        Rest.remove_prefix(position - 1 + DumpKeyword.size());
        position = FindKeyword(Rest, DumpKeyword);
    };
    while (position != 0) {
        if (IsInComment(Rest, position)) {
            cutBehindHit();
            continue;
        }
        const bool Ok = IsKeywordAt(Rest, position, DumpKeyword.size(),
                                    u"Dump Keyword Must be Followed by a Dump Number", platform_);
        if (Rest.size() <= position + DumpKeyword.size())
            return;
        cutBehindHit();
        if (!Ok)
            continue;
        std::int32_t scratch = 0;
        const TextView word = NextWord(Rest, scratch);
        if (!IsNumeric(word))
            continue;
        const std::int16_t IntDump =
            Telling([] { return u"The number of a dump statement"; }, [&] { return ToInt16(word); });
        if (IntDump < DumpNumberLimit)
            RegisterDump(IntDump, IntNumbers, GetDumpComment(Rest), StrTexts);
    }
}

TextView ScriptScanner::NextWord(TextView StrText, std::int32_t& LngPosition)
{
    try {
        return ReadWord(StrText, LngPosition);
    } catch (const Failure& failure) {
        document_.RecordError(failure.Number(), failure.Description(), 2002, u"Error Getting the NextWord");
        return {};
    }
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
    if (!document_.GetDumpNode(IntDump))
        document_.CreateDumpNode(IntDump, StrText);
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
        document_.RecordError(failure.Number(), failure.Description(), 2002, u"Error Parsing the Migrate Keyword");
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
    TextView Rest = StrText;
    for (std::size_t position = FindKeyword(Rest, MigrateKeyword); position != 0;
         position = FindKeyword(Rest, MigrateKeyword)) {
        if (Rest.size() <= position + MigrateKeyword.size()) {
            platform_.ShowMessage(
                {.Text = u"Migrate Keyword Has to be followed by a TableName", .Icon = MessageIcon::Critical});
            return;
        }
        const bool Ok = IsKeywordAt(Rest, position, MigrateKeyword.size(),
                                    u"Migrate Keyword has to followed by a TableName", platform_);
        Rest.remove_prefix(position - 1 + MigrateKeyword.size());
        if (!Ok)
            continue;
        std::int32_t scratch = 0;
        const TextView word = NextWord(TrimBlanks(Rest), scratch);
        if (!word.empty())
            AddMigrateTable(word);
    }
}

bool ScriptScanner::AddMigrateTable(TextView StrName)
{
    if (IsInStringList(state_.StrMigrateTables, StrName))
        return false;
    if (!IsTableCode(StrName)) {
        const bool wrongLength = StrName.size() != TableCodeLength;
        platform_.ShowMessage(
            {.Text = wrongLength ? Text(u"Table Name not Valid") : u"Invalid table name '" + Text(StrName) + u"'",
             .Icon = MessageIcon::Critical});
        views_.txtPreCondition.SetFocus();
        return false;
    }
    if (IsEmptyList(state_.StrMigrateTables))
        state_.StrMigrateTables.front() = StrName;
    else
        state_.StrMigrateTables.emplace_back(StrName);
    return true;
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
