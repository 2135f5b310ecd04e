#include "script/script_spans.h"

#include <algorithm>

#include "script/keywords.h"

namespace rulemesh {

namespace {

// Keyword and word of each statement in force.
std::vector<ScriptSpan> StatementSpans(TextView StrScript, ScannedFor scanned)
{
    std::vector<ScriptSpan> spans;
    StatementCursor statements(StrScript, scanned);
    while (const std::optional<Statement> statement = statements.Next()) {
        if (!statement->IsInForce())
            continue;
        const bool isMigrate = statement->What == Statement::Kind::Migrate;
        const ScriptSpan::Kind kind = isMigrate ? ScriptSpan::Kind::Migrate : ScriptSpan::Kind::Dump;
        spans.push_back({statement->Position, (isMigrate ? MigrateKeyword : DumpKeyword).size(), kind});
        spans.push_back(
            {static_cast<std::size_t>(statement->Word.data() - StrScript.data()), statement->Word.size(), kind});
    }
    return spans;
}

// Appends the parts of a comment that the statements, which are in order, leave free.
void AppendComment(std::vector<ScriptSpan>& spans, std::size_t from, std::size_t to,
                   const std::vector<ScriptSpan>& statements)
{
    auto statement = std::partition_point(statements.begin(), statements.end(),
                                          [&](const ScriptSpan& span) { return span.Position + span.Length <= from; });
    for (; statement != statements.end() && statement->Position < to; ++statement) {
        if (statement->Position > from)
            spans.push_back({from, statement->Position - from, ScriptSpan::Kind::Comment});
        from = statement->Position + statement->Length;
    }
    if (from < to)
        spans.push_back({from, to - from, ScriptSpan::Kind::Comment});
}

bool ComesFirst(const ScriptSpan& a, const ScriptSpan& b) noexcept { return a.Position < b.Position; }

} // namespace

std::vector<ScriptSpan> ScriptSpans(TextView StrScript, ScannedFor scanned)
{
    scanned.Migrate = scanned.Migrate && StrScript.size() <= PreconditionLimit;
    const std::vector<ScriptSpan> statements = StatementSpans(StrScript, scanned);
    std::vector<ScriptSpan> spans;
    for (std::size_t bar = StrScript.find(u'|'); bar != TextView::npos; bar = StrScript.find(u'|', bar)) {
        const std::size_t lineEnd = std::min(StrScript.find(u'\n', bar), StrScript.size());
        AppendComment(spans, bar, lineEnd, statements);
        bar = lineEnd;
    }
    spans.insert(spans.end(), statements.begin(), statements.end());
    std::stable_sort(spans.begin(), spans.end(), ComesFirst);
    return spans;
}

} // namespace rulemesh
