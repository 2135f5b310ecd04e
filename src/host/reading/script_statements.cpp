#include "host/reading/script_statements.h"

#include <algorithm>

#include "base/numbers.h"
#include "object/object_copy.h"
#include "script/keywords.h"
#include "script/statements.h"

namespace rulemesh {

namespace {

constexpr TextView White = u" \t\r\n";

// A line end or bar inside of a comment would end it or begin another one.
Text OnOneLine(TextView text)
{
    Text line;
    for (const char16_t c : TrimBlanks(text))
        line += White.find(c) == TextView::npos ? c : u' ';
    return line;
}

Text WithComment(const Text& statement, TextView comment)
{
    const Text line = OnOneLine(comment);
    return line.empty() ? statement : statement + u" | " + line;
}

void AddDump(std::vector<std::int16_t>& numbers, TextView word)
{
    if (!IsNumeric(word))
        return;
    const double number = ToDouble(word);
    if (number > 0 && number <= LastDumpNumber)
        numbers.push_back(ToInt16(word));
}

// Those behind a bar too: a number too many does no harm here.
void AddDumpsOf(std::vector<std::int16_t>& numbers, TextView script)
{
    StatementCursor statements(script, {.Dump = true});
    while (const std::optional<Statement> dump = statements.Next()) {
        if (dump->Fault == StatementFault::None && dump->Number > 0)
            numbers.push_back(dump->Number);
    }
}

} // namespace

Text MigrateStatement(TextView StrTable, TextView StrDescription)
{
    return WithComment(u"migrate " + Text(StrTable), StrDescription);
}

Text DumpStatement(std::int16_t IntDump, TextView StrComment)
{
    return WithComment(u"dump " + PlainNumber(IntDump), StrComment);
}

std::optional<std::int16_t> NextFreeDump(const std::vector<std::int16_t>& IntNumbers)
{
    const std::int16_t greatest =
        IntNumbers.empty() ? std::int16_t{0} : *std::max_element(IntNumbers.begin(), IntNumbers.end());
    if (greatest < LastDumpNumber)
        return ToInt16(std::int64_t{std::max<std::int16_t>(greatest, 0)} + 1);
    for (std::int16_t number = 1; number <= LastDumpNumber; ++number) {
        if (std::find(IntNumbers.begin(), IntNumbers.end(), number) == IntNumbers.end())
            return number;
    }
    return std::nullopt;
}

std::vector<std::int16_t> DumpsNamedBy(const std::string& object, TextView StrScript)
{
    std::vector<std::int16_t> numbers;
    AddDumpsOf(numbers, StrScript);
    const ObjectCopy copy(object);
    if (!copy.IsLoaded())
        return numbers;
    for (const ScriptRecord& script : copy.Read().Scripts())
        AddDumpsOf(numbers, script.Script());
    for (const DumpRecord& dump : copy.Read().Dumps())
        AddDump(numbers, dump.Number());
    return numbers;
}

std::vector<Text> TablesMigratedBy(TextView StrScript)
{
    std::vector<Text> tables;
    StatementCursor statements(StrScript, {.Migrate = true});
    while (const std::optional<Statement> migrate = statements.Next()) {
        if (migrate->IsInForce() && std::find(tables.begin(), tables.end(), migrate->Word) == tables.end())
            tables.emplace_back(migrate->Word);
    }
    return tables;
}

bool MigratesCleanly(TextView StrScript)
{
    StatementCursor statements(StrScript, {.Migrate = true});
    while (const std::optional<Statement> migrate = statements.Next()) {
        if (!migrate->IsInForce() && migrate->Fault != StatementFault::NoWord)
            return false;
    }
    return true;
}

std::vector<PlacedWord> DumpsPast16Bits(TextView StrScript)
{
    std::vector<PlacedWord> found;
    StatementCursor statements(StrScript, {.Dump = true});
    while (const std::optional<Statement> dump = statements.Next()) {
        if (dump->Fault != StatementFault::NumberPast16Bits || dump->IsCommented)
            continue;
        const auto before = StrScript.substr(0, static_cast<std::size_t>(dump->Word.data() - StrScript.data()));
        found.push_back({Text(dump->Word), 1 + static_cast<int>(std::count(before.begin(), before.end(), u'\n'))});
    }
    return found;
}

Insertion InsertLine(TextView StrScript, std::size_t caret, TextView StrStatement)
{
    caret = std::min(caret, StrScript.size());
    const std::size_t lineFeed = caret == 0 ? TextView::npos : StrScript.rfind(u'\n', caret - 1);
    const std::size_t begin = lineFeed == TextView::npos ? 0 : lineFeed + 1;
    const std::size_t end = std::min(StrScript.find(u'\n', begin), StrScript.size());
    const TextView line = StrScript.substr(begin, end - begin);
    const std::size_t text = std::min(line.find_first_not_of(u" \t"), line.size());
    const Text indent(line.substr(0, text));

    // An empty line takes the statement; behind any other one it gets a line of its own. The line behind must be told
    // apart too: a keyword wants white space, and a comment ends with its line.
    Text script(StrScript.substr(0, text == line.size() ? begin : end));
    if (text != line.size())
        script += u'\n';
    script += indent;
    script += StrStatement;
    const std::size_t behind = script.size();
    script += end < StrScript.size() ? Text(StrScript.substr(end)) : Text(u"\n");
    return {std::move(script), behind};
}

} // namespace rulemesh
