#include "script/reg_e_replace.h"

#include <gtest/gtest.h>

#include "base/failure_of.h"

namespace rulemesh {
namespace {

struct ReplaceCase {
    TextView Script;
    TextView Expected;
};

// Each replaces the statements of dump 5 by those of dump 7.
void Check(std::initializer_list<ReplaceCase> cases)
{
    for (const auto& [script, expected] : cases)
        EXPECT_EQ(RegE_Replace(script, u" {0,}dump {1,}5\\s", u"dump 7", true), expected)
            << testing::PrintToString(script);
}

TEST(RegE_Replace, ReplacesEveryMatchInCommentsToo)
{
    Check({{u"dump 5\n| dump 5 x dump 5\n", u"dump 7|dump 7xdump 7"}});
}

TEST(RegE_Replace, MatchesLowerCaseAlone) { Check({{u"Dump 5 x", u"Dump 5 x"}, {u"DUMP 5 x", u"DUMP 5 x"}}); }

TEST(RegE_Replace, MatchesBlanksAloneBetweenKeywordAndNumber)
{
    Check({{u"dump\t5 x", u"dump\t5 x"}, {u"dump   5 x", u"dump 7x"}, {u"dump5 x", u"dump5 x"}});
}

TEST(RegE_Replace, TakesTheBlanksInFront)
{
    Check({{u"    dump 5 x", u"dump 7x"}, {u"a   dump 5 x", u"adump 7x"}, {u"\t dump 5 x", u"\tdump 7x"}});
}

TEST(RegE_Replace, TakesTheOneWhiteCharacterBehind)
{
    Check({{u"dump 5\r\nx", u"dump 7\nx"},
           {u"dump 5 | orders", u"dump 7| orders"},
           {u"dump 5\tx", u"dump 7x"},
           {u"dump 5\fx", u"dump 7x"},
           {u"dump 5\vx", u"dump 7x"},
           {u"dump 5  x", u"dump 7 x"}});
}

TEST(RegE_Replace, MatchesNoStatementAtTheVeryEnd)
{
    Check({{u"dump 5", u"dump 5"}, {u"dump 5 dump 5", u"dump 7dump 5"}});
}

TEST(RegE_Replace, MatchesTheWholeNumberAlone)
{
    Check({{u"dump 55 x", u"dump 55 x"}, {u"dump 05 x", u"dump 05 x"}, {u"dump 5| x", u"dump 5| x"}});
}

TEST(RegE_Replace, MatchesTheKeywordInsideALongerWord) { Check({{u"xdump 5 y", u"xdump 7y"}}); }

TEST(RegE_Replace, TakesABlankThatTheMatchBeforeItDidNotTake)
{
    Check({{u"dump 5  dump 5 x", u"dump 7dump 7x"}, {u"dump 5 dump 5 x", u"dump 7dump 7x"}});
}

TEST(RegE_Replace, LooksOnBehindAKeywordThatDoesNotMatch)
{
    Check({{u"dump dump 5 x", u"dumpdump 7x"}, {u"dump  5dump 5 x", u"dump  5dump 7x"}});
}

TEST(RegE_Replace, LeavesATextWithoutAMatch) { Check({{u"", u""}, {u"dump", u"dump"}, {u"dump 6 x", u"dump 6 x"}}); }

TEST(RegE_Replace, WritesANumberBelowZeroWithItsSign)
{
    EXPECT_EQ(RegE_Replace(u"dump -5 x dump 5 y", u" {0,}dump {1,}-5\\s", u"dump 7", true), u"dump 7x dump 5 y");
}

TEST(RegE_Replace, ReplacesTheFirstMatchAloneWhenItIsNotGlobal)
{
    EXPECT_EQ(RegE_Replace(u"dump 5 x dump 5 y", u" {0,}dump {1,}5\\s", u"dump 7", false), u"dump 7x dump 5 y");
    EXPECT_EQ(RegE_Replace(u"aba", u"a", u"", false), u"ba");
    EXPECT_EQ(RegE_Replace(u"aba", u"a", u"", true), u"b");
}

TEST(RegE_Replace, TakesAnyTextForAPattern)
{
    EXPECT_EQ(RegE_Replace(u"one two", u"two", u"2", true), u"one 2");
    EXPECT_EQ(RegE_Replace(u"xaaay", u"a{0,}a", u"-", true), u"x-y");
    EXPECT_EQ(RegE_Replace(u"aab ab b", u"a{0,}c{0,}ab", u"-", true), u"- - b");
    EXPECT_EQ(RegE_Replace(u"a \t b", u"\\s{1,}", u"_", true), u"a_b");
    EXPECT_EQ(RegE_Replace(u"a\u00A0b", u"\\s", u"_", true), u"a\u00A0b");
}

TEST(RegE_Replace, TakesTheReplacementAsItStands) { EXPECT_EQ(RegE_Replace(u"a", u"a", u"$1\\s$&", true), u"$1\\s$&"); }

TEST(RegE_Replace, RefusesAPatternThatItDoesNotKnow)
{
    for (const TextView pattern :
         {u"", u"a{0,}", u"a*", u"[a]", u"a|b", u"\\d", u"a\\", u"a{2,}", u"{0,}a", u"a{0,}{1,}"})
        EXPECT_EQ(FailureOf([&] { static_cast<void>(RegE_Replace(u"a", pattern, u"", true)); }),
                  FailureCode::InvalidProcedureCall)
            << testing::PrintToString(pattern);
}

TEST(RegE_Replace, GoesThroughALongRunOfBlanksOnce)
{
    const Text blanks(3'000'000, u' ');
    EXPECT_EQ(RegE_Replace(blanks + u"x dump" + blanks + u"6 ", u" {0,}dump {1,}5\\s", u"", true),
              blanks + u"x dump" + blanks + u"6 ");
}

} // namespace
} // namespace rulemesh
