#include "script/keywords.h"

#include <gtest/gtest.h>

namespace rulemesh {
namespace {

struct WordCase {
    TextView Given;
    TextView Expected;
};

TEST(NextWord, IsTheFirstRunOfCharactersThatAreNotWhite)
{
    constexpr WordCase cases[] = {
        {u"", u""},
        {u"   ", u""},
        {u"\r\n\t ", u""},
        {u"abc", u"abc"},
        {u"  abc  ", u"abc"},
        {u"abc def", u"abc"},
        {u"abc\tdef", u"abc"},
        {u"abc\rdef", u"abc"},
        {u"abc\ndef", u"abc"},
        {u"\r\n\r\n \t 12 x", u"12"},
        {u" \n \n \n5", u"5"},
    };
    for (const auto& [given, expected] : cases)
        EXPECT_EQ(NextWord(given), expected) << testing::PrintToString(given);
}

TEST(NextWord, EndsAtNoBarCommaSemicolonOrBracket)
{
    EXPECT_EQ(NextWord(u" 5|sales x"), u"5|sales");
    EXPECT_EQ(NextWord(u"a,b;c(d) e"), u"a,b;c(d)");
}

TEST(NextWord, TakesNoOtherCharacterForWhite) { EXPECT_EQ(NextWord(u"\fa\vb\u00A0c d"), u"\fa\vb\u00A0c"); }

TEST(NextWord, EndsAtFourCharactersAlone)
{
    for (char16_t character = 1; character < 0xFFFF; ++character) {
        const bool isWhite = character == u'\n' || character == u'\r' || character == u'\t' || character == u' ';
        const Text StrText = Text(u"a") + character + u"b";
        ASSERT_EQ(NextWord(StrText), isWhite ? Text(u"a") : StrText) << static_cast<int>(character);
    }
}

TEST(NextWord, HasAnyLength) { EXPECT_EQ(NextWord(Text(40000, u'x') + u" y").size(), 40000U); }

struct KeywordCase {
    TextView Script;
    std::size_t Position;
    bool Expected;
};

TEST(IsKeywordAt, NeedsWhiteBehindAndWhiteOrTheStartInFront)
{
    constexpr KeywordCase cases[] = {
        {u"word 1", 1, true},   {u"word\t1", 1, true},   {u"word\n1", 1, true},  {u"word\r1", 1, true},
        {u"word|1", 1, false},  {u"words 1", 1, false},  {u"a word 1", 3, true}, {u"\tword 1", 2, true},
        {u"\nword 1", 2, true}, {u"\rword 1", 2, true},  {u"aword 1", 2, false}, {u"|word 1", 2, false},
        {u"word", 1, false},    {u"word ", 1, false},    {u"words", 1, false},   {u" word", 2, false},
        {u" word ", 2, false},  {u"\nword\n", 2, false}, {u"aword", 2, false},   {u"aword ", 2, false},
        {u"word  ", 1, true},
    };
    for (const KeywordCase& given : cases)
        EXPECT_EQ(IsKeywordAt(given.Script, given.Position, 4), given.Expected) << testing::PrintToString(given.Script);
}

TEST(IsInComment, FindsABarInFrontOnTheSameLine)
{
    EXPECT_TRUE(IsInComment(u"| x", 3));
    EXPECT_TRUE(IsInComment(u"a|b x", 5));
    EXPECT_TRUE(IsInComment(u"|x", 2));
}

TEST(IsInComment, FindsNoneAtTheStart) { EXPECT_FALSE(IsInComment(u"|x", 1)); }

TEST(IsInComment, FindsNoneBehindThePosition) { EXPECT_FALSE(IsInComment(u"a x |", 3)); }

TEST(IsInComment, LooksBackToALineFeed)
{
    EXPECT_FALSE(IsInComment(u"| a\nx", 5));
    EXPECT_TRUE(IsInComment(u"a\n| x", 5));
}

TEST(IsInComment, LooksBackBeyondAnythingButABarAndALineFeed)
{
    for (char16_t character = 1; character < 0xFFFF; ++character) {
        const Text StrText = Text(u"|") + character + u"x";
        ASSERT_EQ(IsInComment(StrText, 3), character != u'\n') << static_cast<int>(character);
    }
}

TEST(IsInComment, LooksBackBeyondACarriageReturn) { EXPECT_TRUE(IsInComment(u"| a\rx", 5)); }

TEST(GetDumpComment, StartsWithTheBarAndEndsWithTheLine)
{
    constexpr WordCase cases[] = {
        {u" 3 | orders", u"| orders"},
        {u" 3 | orders\nnext", u"| orders"},
        {u" 3 | orders\r\nnext", u"| orders"},
        {u" 3 | orders\rnext", u"| orders"},
        {u" 3 || a | b", u"|| a | b"},
        {u" 3|x", u"|x"},
        {u" 3 |", u"|"},
        {u" 3", u""},
        {u" ", u""},
        {u"", u""},
        {u"|x", u""},
        {u"|x|y", u""},
        {u" 3\n| x", u""},
        {u" 3\r| x", u""},
        {u"\n3 | x", u""},
        {u"\r\n3 | x", u""},
    };
    for (const auto& [given, expected] : cases)
        EXPECT_EQ(GetDumpComment(given), expected) << testing::PrintToString(given);
}

TEST(GetDumpComment, DropsCharactersOutside32To126AndReadsOn)
{
    EXPECT_EQ(GetDumpComment(u" 3 |\ta\tb\u007F~\u00E4\u20ACc"), u"|ab~c");
}

TEST(GetDumpComment, HoldsTheCharactersFrom32To126Alone)
{
    for (char16_t character = 1; character < 0xFFFF; ++character) {
        const bool endsLine = character == u'\n' || character == u'\r';
        const Text StrHeld = character >= 32 && character <= 126 ? Text(1, character) : Text();
        ASSERT_EQ(GetDumpComment(Text(u" 3 |") + character + u"b"), endsLine ? u"|" : u"|" + StrHeld + u"b")
            << static_cast<int>(character);
    }
}

TEST(GetDumpComment, EndsAtThe249thCharacter)
{
    const Text text = u" 3 |" + Text(300, u'x');
    EXPECT_EQ(GetDumpComment(text), u"|" + Text(245, u'x'));
    EXPECT_EQ(GetDumpComment(TextView(text).substr(0, 249)), u"|" + Text(245, u'x'));
    EXPECT_EQ(GetDumpComment(TextView(text).substr(0, 248)), u"|" + Text(244, u'x'));
}

TEST(GetDumpComment, CountsDroppedCharactersToo)
{
    EXPECT_EQ(GetDumpComment(u" 3 |" + Text(200, u'\t') + Text(100, u'x')), u"|" + Text(45, u'x'));
}

TEST(GetDumpComment, HoldsABarAt249AndNoneAt250)
{
    EXPECT_EQ(GetDumpComment(Text(248, u' ') + u"|xy"), u"|");
    EXPECT_EQ(GetDumpComment(Text(249, u' ') + u"|xy"), u"");
    EXPECT_EQ(GetDumpComment(Text(250, u' ') + u"|xy"), u"");
}

TEST(IsTableCode, NeedsEightCharacters)
{
    EXPECT_TRUE(IsTableCode(u"abcde123"));
    EXPECT_FALSE(IsTableCode(u"abcde1234"));
    EXPECT_FALSE(IsTableCode(u"abcd123"));
    EXPECT_FALSE(IsTableCode(u""));
}

TEST(IsTableCode, NeedsFiveCharactersThatAreNoDigits)
{
    EXPECT_FALSE(IsTableCode(u"abcd1234"));
    EXPECT_FALSE(IsTableCode(u"1bcde123"));
    for (std::size_t place = 0; place < 5; ++place) {
        for (const char16_t digit : TextView(u"0123456789")) {
            Text StrName = u"abcde123";
            StrName[place] = digit;
            EXPECT_FALSE(IsTableCode(StrName)) << testing::PrintToString(StrName);
        }
    }
    for (char16_t character = 1; character < 0xFFFF; ++character) {
        const bool isDigit = character >= u'0' && character <= u'9';
        ASSERT_EQ(IsTableCode(Text(u"ab") + character + u"de123"), !isDigit) << static_cast<int>(character);
    }
    EXPECT_TRUE(IsTableCode(u"+-._e123"));
    EXPECT_TRUE(IsTableCode(u"abcd\u0663123"));
}

TEST(IsTableCode, NeedsThreeCharactersThatAreANumber)
{
    EXPECT_FALSE(IsTableCode(u"abcde12x"));
    EXPECT_FALSE(IsTableCode(u"abcde1 2"));
    EXPECT_FALSE(IsTableCode(u"abcde,12"));
    for (const TextView given : {u"abcde1.5", u"abcde+12", u"abcde-12", u"abcde1e2", u"abcde.12", u"abcde12."})
        EXPECT_TRUE(IsTableCode(given)) << testing::PrintToString(given);
}

} // namespace
} // namespace rulemesh
