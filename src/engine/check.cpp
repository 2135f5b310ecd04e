#include "engine/check.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "base/case_map.h"
#include "engine/check_run.h"
#include "script/keywords.h"

namespace rulemesh {

namespace {

std::vector<Text> ListedTablesOf(TextView StrSourceTables)
{
    std::vector<Text> tables;
    for (const Text& StrEntry : Split(StrSourceTables, u',')) {
        if (Text StrTable = Without(Without(StrEntry, u'\r'), u'\n'); !StrTable.empty())
            tables.push_back(std::move(StrTable));
    }
    return tables;
}

} // namespace

CheckRun::CheckRun(const ObjectContent& object)
    : Object(object), Sources(object.Sources), Targets(object.Targets),
      ListedTables(ListedTablesOf(object.SourceTables))
{
    for (const Text& StrTable : ListedTables)
        ListedKeys.insert(ToLower(StrTable));
    ReadPrecondition();
    scripts_.push_back({u"", Object.Precondition.Script, {.Migrate = true, .Dump = true}});
    scripts_.push_back({FunctionsTable, Object.Functions, {.Dump = true}});
    AddMainQueries();
    for (const Script& script : scripts_) {
        StatementCursor statements(script.Text, {.Dump = true});
        while (const std::optional<Statement> statement = statements.Next()) {
            if (statement->IsInForce() && statement->Number != 0)
                NamedDumps.insert(statement->Number);
        }
        UseTablesOf(script.Text);
    }
    UseTablesOf(Object.Variables);
}

void CheckRun::ReadPrecondition()
{
    const TextView StrScript = Object.Precondition.Script;
    if (StrScript.size() > PreconditionLimit)
        return; // its migrate statements aren't read
    StatementCursor statements(StrScript, {.Migrate = true});
    while (const std::optional<Statement> statement = statements.Next()) {
        if (statement->IsInForce() &&
            std::find(MigrateTables.begin(), MigrateTables.end(), statement->Word) == MigrateTables.end())
            MigrateTables.emplace_back(statement->Word);
    }
}

// Of two of one table only the first counts, and one that no precondition migrates doesn't.
void CheckRun::AddMainQueries()
{
    for (const Text& StrTable : MigrateTables) {
        const auto query = std::find_if(Object.Queries.begin(), Object.Queries.end(),
                                        [&](const ScriptContent& script) { return script.Table == StrTable; });
        if (query != Object.Queries.end())
            scripts_.push_back({query->Table, query->Script, {.Dump = true}});
    }
}

void CheckRun::UseTablesOf(TextView StrText)
{
    FieldNameCursor names(StrText);
    while (const std::optional<FieldName> name = names.Next())
        UsedTables.insert(ToLower(name->Table));
}

std::vector<Finding> CheckRun::Ordered() &&
{
    std::stable_sort(told_.begin(), told_.end(), [](const Told& a, const Told& b) {
        return std::tie(a.What.Dump, a.What.Line, a.Place, a.What.Kind) <
               std::tie(b.What.Dump, b.What.Line, b.Place, b.What.Kind);
    });
    std::vector<Finding> findings;
    findings.reserve(told_.size());
    for (Told& told : told_)
        findings.push_back(std::move(told.What));
    return findings;
}

TextView SeverityWord(Finding::Severity severity) noexcept
{
    switch (severity) {
    case Finding::Severity::Error:
        return u"error";
    case Finding::Severity::Warning:
        return u"warning";
    case Finding::Severity::Note:
        break;
    }
    return u"note";
}

std::vector<Finding> FindingsOf(const ObjectContent& object)
{
    CheckRun run(object);
    CheckDumps(run); // enters the tables that rules name
    CheckScripts(run);
    CheckTables(run);
    return std::move(run).Ordered();
}

} // namespace rulemesh
