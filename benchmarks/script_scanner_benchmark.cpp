#include <algorithm>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "base/utf8.h"
#include "object/control_state.h"
#include "object/document_access.h"
#include "script/keywords.h"
#include "script/script_scanner.h"
#include "silent_desk.h"

// Scanning scripts for their keywords, which happens to every script at every save. Beside it: the least that a scan
// does, which is finding the keyword's letters and nothing more, and a scanner that cuts a copy of the rest of the
// script behind every hit, as the rules of the scan are told.

namespace rulemesh {
namespace {

// A statement about every 160 characters, over all numbers that a dump may have.
Text Script(std::size_t characters)
{
    std::string script;
    script.reserve(characters + 200);
    for (int number = 0; script.size() < characters; ++number) {
        const std::string dump = std::to_string(number % 999 + 1);
        script += "for each row of ordrs001 joined to custm001\r\n"
                  "        if trim(ordrs001.shipregion) <> \"" +
                  dump +
                  "\" then\r\n"
                  "                dump " +
                  dump + " | orders of region " + dump +
                  "\r\n"
                  "        end\r\n";
    }
    return FromUtf8(script);
}

struct Scanning {
    SilentDesk Desk;
    ControlState State;
    XmlDocument Document;
    MappingObject Object{Document, State};
    DesignerViews Views;
    ScriptScanner Scanner{Object, State, Views, Desk};

    Scanning()
    {
        State.StrTargetTable = u"GENOBJ01";
        benchmark::DoNotOptimize(Document.loadXML(std::string("<GENOBJ01><PREC/></GENOBJ01>")));
    }
};

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    for (const std::int64_t characters : {100'000, 1'000'000})
        benchmark->Arg(characters);
    benchmark->Unit(benchmark::kMillisecond);
}

void CountCharacters(benchmark::State& state, const Text& script)
{
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(script.size()));
}

// The dumps have their elements, as at every scan but the first.
void ScanScript(benchmark::State& state)
{
    const Text script = Script(static_cast<std::size_t>(state.range(0)));
    Scanning scanning;
    std::size_t dumps = 0;
    for ([[maybe_unused]] auto iteration : state) {
        std::vector<std::int16_t> numbers{0};
        std::vector<Text> texts{u""};
        scanning.Scanner.ScanDumpKeywords(script, numbers, texts);
        dumps = numbers.size();
    }
    state.counters["dumps"] = static_cast<double>(dumps);
    CountCharacters(state, script);
}
BENCHMARK(ScanScript)->Apply(Sizes);

// The first scan makes an element for every dump.
void ScanScriptOfNewDumps(benchmark::State& state)
{
    const Text script = Script(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto iteration : state) {
        Scanning scanning;
        std::vector<std::int16_t> numbers{0};
        std::vector<Text> texts{u""};
        scanning.Scanner.ScanDumpKeywords(script, numbers, texts);
        benchmark::DoNotOptimize(numbers.data());
    }
    CountCharacters(state, script);
}
BENCHMARK(ScanScriptOfNewDumps)->Apply(Sizes);

char16_t Lower(char16_t unit) noexcept
{
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
}

constexpr TextView Keyword = u"dump";

std::size_t Find(TextView text, std::size_t from)
{
    const auto same = [](char16_t a, char16_t b) { return Lower(a) == b; };
    const auto hit =
        std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), Keyword.begin(), Keyword.end(), same);
    return hit == text.end() ? TextView::npos : static_cast<std::size_t>(hit - text.begin());
}

void FindTheKeywordOnly(benchmark::State& state)
{
    const Text script = Script(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto iteration : state) {
        std::size_t hits = 0;
        for (std::size_t at = Find(script, 0); at != TextView::npos; at = Find(script, at + Keyword.size()))
            ++hits;
        benchmark::DoNotOptimize(hits);
    }
    CountCharacters(state, script);
}
BENCHMARK(FindTheKeywordOnly)->Apply(Sizes);

void FindTheKeywordInCutCopies(benchmark::State& state)
{
    const Text script = Script(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto iteration : state) {
        Text rest = script;
        std::size_t hits = 0;
        for (std::size_t at = Find(rest, 0); at != TextView::npos; at = Find(rest, 0)) {
            rest = rest.substr(at + Keyword.size());
            ++hits;
        }
        benchmark::DoNotOptimize(hits);
    }
    CountCharacters(state, script);
}
BENCHMARK(FindTheKeywordInCutCopies)->Apply(Sizes);

// The longest precondition that is read at all.
void ParsePrecondition(benchmark::State& state)
{
    Text script;
    for (int table = 0; script.size() < 32'700; ++table)
        script += FromUtf8("migrate srtab" + std::to_string(table % 900 + 100) + " | source table\r\n");
    script.resize(32'767, u' ');
    Scanning scanning;
    for ([[maybe_unused]] auto iteration : state)
        scanning.Scanner.ParseMigrateKeywords(script);
    state.counters["tables"] = static_cast<double>(scanning.State.StrMigrateTables.size());
    CountCharacters(state, script);
}
BENCHMARK(ParsePrecondition)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace rulemesh
