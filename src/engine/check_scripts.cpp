#include <algorithm>
#include <array>
#include <unordered_set>

#include "base/failure.h"
#include "engine/check_run.h"
#include "script/keywords.h"

namespace rulemesh {

namespace {

constexpr TextView DumpAdvice = u"write a number below 1000 behind it";
constexpr TextView MigrateAdvice = u"write a table code behind it, five letters and three digits";

Text WordOf(const Statement& statement)
{
    return statement.What == Statement::Kind::Dump ? Text(DumpKeyword) : Text(MigrateKeyword);
}

Text Fault(const Statement& statement)
{
    switch (statement.Fault) {
    case StatementFault::NumberTooGreat:
    case StatementFault::NumberPast16Bits:
        return u"the number " + Text(statement.Word) + u" is out of range";
    case StatementFault::NoNumber:
        return Quoted(statement.Word) + u" is no number";
    case StatementFault::TableLength:
    case StatementFault::TableForm:
        return Quoted(statement.Word) + u" is no table code";
    case StatementFault::WordTooLong:
        return u"the word behind it is too long";
    case StatementFault::NothingBehind:
    case StatementFault::NoWord:
    case StatementFault::None:
        break;
    }
    return u"nothing stands behind it";
}

void CheckWords(CheckRun& run, const CheckRun::Script& script)
{
    ScannedFor scanned = script.Statements;
    scanned.Migrate = scanned.Migrate && script.Text.size() <= PreconditionLimit;
    StatementCursor statements(script.Text, scanned);
    std::size_t counted = 0;
    int line = 1;
    while (const std::optional<Statement> statement = statements.Next()) {
        if (statement->Fault == StatementFault::None || statement->IsCommented)
            continue;
        const TextView passed = script.Text.substr(counted, statement->Position - counted);
        line += static_cast<int>(std::count(passed.begin(), passed.end(), u'\n'));
        counted = statement->Position;
        const bool isDump = statement->What == Statement::Kind::Dump;
        run.Tell({.Kind = u"script-word",
                  .How = Finding::Severity::Warning,
                  .Table = Text(script.Table),
                  .Line = line,
                  .Sentence = u"The word " + WordOf(*statement) + u" starts no statement: " + Fault(*statement) +
                              u"; " + Text(isDump ? DumpAdvice : MigrateAdvice) + u", or word it otherwise."});
    }
}

} // namespace

void CheckScripts(CheckRun& run)
{
    for (const CheckRun::Script& script : run.Scripts())
        CheckWords(run, script);

    std::unordered_set<TextView> seen;
    std::unordered_set<TextView> told;
    for (const ScriptContent& query : run.Object.Queries) {
        if (!seen.insert(query.Table).second && told.insert(query.Table).second)
            run.Tell({.Kind = u"duplicate",
                      .How = Finding::Severity::Warning,
                      .Table = query.Table,
                      .Sentence = u"The object has more than one main query of the table " + query.Table +
                                  u"; only the first counts. Remove the others from its text."});
    }
}

} // namespace rulemesh
