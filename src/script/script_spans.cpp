#include "script/script_spans.h"

#include <algorithm>

#include "base/failure.h"
#include "base/numbers.h"
#include "script/keywords.h"

namespace rulemesh {

namespace {

bool IsDumpInForce(TextView word)
{
    try {
        return IsNumeric(word) && ToInt16(word) < DumpNumberLimit;
    } catch (const Failure&) {
        return false; // past 16 bits
    }
}

// Appends keyword and word of each statement in force.
template <typename InForce>
void AppendStatements(std::vector<ScriptSpan>& spans, TextView StrScript, TextView StrKeyword, ScriptSpan::Kind kind,
                      InForce inForce)
{
    TextView Rest = StrScript;
    for (std::size_t position = FindKeyword(Rest, StrKeyword); position != 0;
         position = FindKeyword(Rest, StrKeyword)) {
        const bool outOfForce = (kind == ScriptSpan::Kind::Dump && IsInComment(Rest, position)) ||
                                !StandsAlone(Rest, position, StrKeyword.size());
        const std::size_t keyword = StrScript.size() - Rest.size() + position - 1;
        Rest.remove_prefix(position - 1 + StrKeyword.size());
        if (outOfForce)
            continue;
        const std::size_t start = std::min(Rest.find_first_not_of(u"\n\r\t "), Rest.size());
        const TextView word = Rest.substr(start, Rest.find_first_of(u"\n\r\t ", start) - start);
        if (word.size() > WordLimit || !inForce(word))
            continue;
        spans.push_back({keyword, StrKeyword.size(), kind});
        spans.push_back({StrScript.size() - Rest.size() + start, word.size(), kind});
    }
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
    std::vector<ScriptSpan> statements;
    if (scanned.Migrate && StrScript.size() <= PreconditionLimit)
        AppendStatements(statements, StrScript, MigrateKeyword, ScriptSpan::Kind::Migrate, IsTableCode);
    if (scanned.Dump)
        AppendStatements(statements, StrScript, DumpKeyword, ScriptSpan::Kind::Dump, IsDumpInForce);
    std::stable_sort(statements.begin(), statements.end(), ComesFirst);

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
