#include "script/script_spans.h"

#include <random>
#include <set>

#include "base/numbers.h"
#include "base/utf8.h"
#include "support/script_bench.h"

// Random scripts made of fragments: what is coloured as a dump in force is what the scanner registers.

namespace rulemesh {

namespace {

constexpr TextView Fragments[] = {u"dump",     u"Dump ", u" DUMP\t", u"10 ",   u" 20 ",   u"3.5 ", u"-7 ",
                                  u"|",        u"| ",    u"\r\n",    u"\n",    u"\r",     u" ",    u"\t",
                                  u"x",        u"dumps", u"1e2 ",    u"300 ",  u"undump", u"_",    u",",
                                  u" dump 5 ", u"12x",   u"migrate", u" abc ", u"dump 7 "};

class ScriptSpansProperty : public ScriptBench {
protected:
    Text RandomScript()
    {
        Text script;
        const int count = std::uniform_int_distribution(0, 14)(random_);
        for (int fragment = 0; fragment < count; ++fragment)
            script += Fragments[std::uniform_int_distribution<std::size_t>(0, std::size(Fragments) - 1)(random_)];
        return script;
    }

    std::set<std::int16_t> Registered(const Text& script)
    {
        std::vector<std::int16_t> numbers = {0};
        std::vector<Text> texts = {u""};
        scanner_.ScanDumpKeywords(script, numbers, texts);
        return {numbers.begin(), numbers.end()};
    }

    // The numbers behind the coloured keywords; 0 stands in every list that holds nothing.
    static std::set<std::int16_t> Coloured(const Text& script)
    {
        std::set<std::int16_t> numbers = {0};
        for (const ScriptSpan& span : ScriptSpans(script, {.Dump = true})) {
            const Text text = script.substr(span.Position, span.Length);
            if (span.What == ScriptSpan::Kind::Dump && IsNumeric(text))
                numbers.insert(ToInt16(text));
        }
        return numbers;
    }

    std::mt19937 random_{20};
};

} // namespace

TEST_F(ScriptSpansProperty, DumpsInForceAreThoseThatTheScannerRegisters)
{
    for (int round = 0; round < 20000; ++round) {
        const Text script = RandomScript();
        std::set<std::int16_t> registered = Registered(script);
        registered.insert(0);
        ASSERT_EQ(Coloured(script), registered) << ToUtf8(script);
    }
}

TEST_F(ScriptSpansProperty, SpansStandInOrderAndApart)
{
    for (int round = 0; round < 20000; ++round) {
        const Text script = RandomScript();
        std::size_t end = 0;
        for (const ScriptSpan& span : ScriptSpans(script, {.Migrate = true, .Dump = true})) {
            ASSERT_GE(span.Position, end) << ToUtf8(script);
            end = span.Position + span.Length;
            ASSERT_LE(end, script.size()) << ToUtf8(script);
        }
    }
}

} // namespace rulemesh
