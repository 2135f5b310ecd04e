#include "script/script_spans.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr ScannedFor Both = {.Migrate = true, .Dump = true};

// The spans as texts, each behind the letter of its kind.
std::vector<Text> Spans(const Text& StrScript, ScannedFor scanned = Both)
{
    std::vector<Text> told;
    for (const ScriptSpan& span : ScriptSpans(StrScript, scanned)) {
        const char16_t kind = span.What == ScriptSpan::Kind::Comment   ? u'C'
                              : span.What == ScriptSpan::Kind::Migrate ? u'M'
                                                                       : u'D';
        told.push_back(kind + StrScript.substr(span.Position, span.Length));
    }
    return told;
}

TEST(ScriptSpans, AreKeywordsWordsAndCommentsInTheirOrder)
{
    EXPECT_THAT(Spans(u"dump 5 migrate abcde123 | sales\nselect Dump\t6\n|| end"),
                ElementsAre(u"Ddump", u"D5", u"Mmigrate", u"Mabcde123", u"C| sales", u"DDump", u"D6", u"C|| end"));
}

TEST(ScriptSpans, HoldOnlyWhatIsScannedFor)
{
    const Text StrScript = u"migrate abcde123 dump 5 | x";
    EXPECT_THAT(Spans(StrScript, {.Migrate = true}), ElementsAre(u"Mmigrate", u"Mabcde123", u"C| x"));
    EXPECT_THAT(Spans(StrScript, {.Dump = true}), ElementsAre(u"Ddump", u"D5", u"C| x"));
    EXPECT_THAT(Spans(StrScript, {}), ElementsAre(u"C| x"));
}

TEST(ScriptSpans, ACommentEndsWithItsLine)
{
    EXPECT_THAT(Spans(u"a | b | c\nd\n|\n| e"), ElementsAre(u"C| b | c", u"C|", u"C| e"));
    EXPECT_THAT(Spans(u"no bar\nno comment"), IsEmpty());
}

TEST(ScriptSpans, AStatementInForceDividesTheCommentThatItStandsIn)
{
    EXPECT_THAT(Spans(u"| a migrate abcde123 b\nc"), ElementsAre(u"C| a ", u"Mmigrate", u"C ", u"Mabcde123", u"C b"));
    EXPECT_THAT(Spans(u"| migrate abcde123"), ElementsAre(u"C| ", u"Mmigrate", u"C ", u"Mabcde123"));
    EXPECT_THAT(Spans(u"| dump 1 dump 2"), ElementsAre(u"C| dump 1 ", u"Ddump", u"C ", u"D2"));
}

TEST(ScriptSpans, AStatementThatABarTakesOutOfForceIsPartOfTheComment)
{
    EXPECT_THAT(Spans(u"dump 1 | dump 2"), ElementsAre(u"Ddump", u"D1", u"C| dump 2"));
}

TEST(ScriptSpans, LeaveOutStatementsThatNameNothing)
{
    EXPECT_THAT(Spans(u"dump 1000 dump 40000 dump x dump 999 migrate wrong dumps 3 dump"),
                ElementsAre(u"Ddump", u"D999"));
}

TEST(ScriptSpans, AWordEndsAtFourCharactersAlone)
{
    for (char16_t character = 1; character < 0xFFFF; ++character) {
        const bool isWhite = character == u'\n' || character == u'\r' || character == u'\t' || character == u' ';
        const std::vector<Text> spans = Spans(Text(u"dump 5") + character + u"b", {.Dump = true});
        ASSERT_EQ(!spans.empty() && spans.front() == u"Ddump", isWhite) << static_cast<int>(character);
    }
}

TEST(ScriptSpans, HoldNoMigrateOfAScriptBeyond32767Characters)
{
    const Text StrStatement = u"migrate abcde123 ";
    const Text StrLongest = StrStatement + Text(32767 - StrStatement.size(), u'x');
    EXPECT_THAT(Spans(StrLongest), ElementsAre(u"Mmigrate", u"Mabcde123"));
    EXPECT_THAT(Spans(StrLongest + u"x"), IsEmpty());
}

TEST(ScriptSpans, HoldNoDumpWhoseWordIsBeyond32767Characters)
{
    const Text StrLongest = Text(32766, u'0') + u"7";
    EXPECT_THAT(Spans(u"dump " + StrLongest), ElementsAre(u"Ddump", u"D" + StrLongest));
    EXPECT_THAT(Spans(u"dump 0" + StrLongest), IsEmpty());
}

} // namespace
} // namespace rulemesh
