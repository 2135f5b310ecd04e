#include "base/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t Nowhere = TextView::npos;

TEST(TrimBlanks, DropsBlanksAtBothEndsAndNothingElse)
{
    struct Case {
        TextView given;
        TextView expected;
    };
    const Case cases[] = {
        {u"", u""},
        {u" ", u""},
        {u"    ", u""},
        {u"orders", u"orders"},
        {u"  orders", u"orders"},
        {u"orders  ", u"orders"},
        {u"  two words ", u"two words"},
        {u"\torders\t", u"\torders\t"},
        {u" \r\n ", u"\r\n"},
        {u"\u00A0x\u00A0", u"\u00A0x\u00A0"},
    };
    for (const auto& [given, expected] : cases)
        EXPECT_EQ(TrimBlanks(given), expected);
}

TEST(Split, CutsAtEverySeparator)
{
    EXPECT_THAT(Split(u"a,bc,d", u','), ElementsAre(u"a", u"bc", u"d"));
    EXPECT_THAT(Split(u"abc", u','), ElementsAre(u"abc"));
}

TEST(Split, KeepsEmptyParts)
{
    EXPECT_THAT(Split(u",a,,b,", u','), ElementsAre(u"", u"a", u"", u"b", u""));
    EXPECT_THAT(Split(u",", u','), ElementsAre(u"", u""));
}

TEST(Split, FindsNoPartInAnEmptyText) { EXPECT_THAT(Split(u"", u','), IsEmpty()); }

TEST(ReplaceAll, ReplacesEveryOccurrenceFromTheFront)
{
    struct Case {
        TextView text;
        TextView find;
        TextView replacement;
        TextView expected;
    };
    const Case cases[] = {
        {u"", u"a", u"b", u""},
        {u"banana", u"a", u"o", u"bonono"},
        {u"banana", u"ana", u"x", u"bxna"},
        {u"aaaa", u"aa", u"a", u"aa"},
        {u"a", u"a", u"aa", u"aa"},
        {u"banana", u"a", u"", u"bnn"},
        {u"banana", u"A", u"o", u"banana"},
        {u"a&amp;lt;", u"&amp;", u"&", u"a&lt;"},
        {u"one\ntwo\n", u"\n", LineEnd, u"one\r\ntwo\r\n"},
    };
    for (const auto& [text, find, replacement, expected] : cases)
        EXPECT_EQ(ReplaceAll(text, find, replacement), expected);
}

TEST(ReplaceAllIgnoringCase, FindsLettersOfAsciiInEitherCase)
{
    struct Case {
        TextView text;
        TextView find;
        TextView replacement;
        TextView expected;
    };
    const Case cases[] = {
        {u"Dump dump DUMP dUmP", u"dUMp", u"x", u"x x x x"},
        {u"a&LT;b&lt;c", u"&Lt;", u"<", u"a<b<c"},
        {u"[@", u"{`", u"x", u"[@"},
        {u"\u00C4", u"\u00E4", u"x", u"\u00C4"},
        {u"Keep Other Case", u"other", u"THIS", u"Keep THIS Case"},
    };
    for (const auto& [text, find, replacement, expected] : cases)
        EXPECT_EQ(ReplaceAllIgnoringCase(text, find, replacement), expected);
}

TEST(Without, DropsEveryOccurrenceOfTheCharacter)
{
    EXPECT_EQ(Without(u"a;b;;c;", u';'), u"abc");
    EXPECT_EQ(Without(u"abc", u';'), u"abc");
    EXPECT_EQ(Without(u";;", u';'), u"");
}

TEST(FindIgnoringCase, GivesTheFirstOffsetAtOrBehindTheStart)
{
    struct Case {
        TextView text;
        TextView find;
        std::size_t from;
        std::size_t expected;
    };
    const Case cases[] = {
        {u"migrate MIGRATE", u"Migrate", 0, 0},
        {u"migrate MIGRATE", u"Migrate", 1, 8},
        {u"migrate MIGRATE", u"Migrate", 8, 8},
        {u"migrate MIGRATE", u"Migrate", 9, Nowhere},
        {u"premigrated", u"MIGRATE", 0, 3},
        {u"dum", u"dump", 0, Nowhere},
        {u"dudump", u"DUMP", 0, 2},
        {u"", u"dump", 0, Nowhere},
        {u"dump", u"dump", 4, Nowhere},
        {u"dump", u"dump", 5, Nowhere},
        {u"dump", u"", 4, 4},
        {u"dump", u"", 5, Nowhere},
        {u"\u0130", u"i", 0, Nowhere},
        {u"\u212A", u"k", 0, Nowhere},
    };
    for (const auto& [text, find, from, expected] : cases)
        EXPECT_EQ(FindIgnoringCase(text, find, from), expected);
}

} // namespace
} // namespace rulemesh
