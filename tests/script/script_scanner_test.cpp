#include "script/script_scanner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "support/script_bench.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr TextView NoNumber = u"Dump Keyword Must be Followed by a Dump Number";

class ScanDumpKeywords : public ScriptBench {
protected:
    std::vector<std::int16_t> NumbersIn(TextView StrScript)
    {
        numbers_ = {0};
        texts_ = {u""};
        scanner_.ScanDumpKeywords(StrScript, numbers_, texts_);
        return numbers_;
    }

    // A script, and the dumps that it names; none of these says anything.
    struct Case {
        TextView Script;
        std::vector<std::int16_t> Numbers;
    };
    void Check(const std::vector<Case>& cases)
    {
        for (const Case& given : cases) {
            EXPECT_EQ(NumbersIn(given.Script), given.Numbers) << testing::PrintToString(given.Script);
            EXPECT_THAT(Boxes(), IsEmpty()) << testing::PrintToString(given.Script);
        }
    }

    std::vector<std::int16_t> numbers_{0};
    std::vector<Text> texts_{u""};
};

TEST_F(ScanDumpKeywords, FindsTheKeywordInAnyMixtureOfCase) { Check({{u"DUMP 7", {7}}, {u"DuMp 7", {7}}}); }

TEST_F(ScanDumpKeywords, TakesAnyRunOfWhiteCharactersBehindTheKeyword)
{
    Check({{u"dump\t7", {7}}, {u"dump \t\r\n  7", {7}}, {u"dump\n\n\n7 x", {7}}});
}

TEST_F(ScanDumpKeywords, RegistersTheNumberAtTheVeryEnd) { Check({{u"dump 7", {7}}, {u"abc\ndump 7", {7}}}); }

TEST_F(ScanDumpKeywords, ComplainsAboutTheKeywordAlone)
{
    EXPECT_THAT(NumbersIn(u"dump"), ElementsAre(0));
    EXPECT_THAT(Boxes(), ElementsAre(u"critical: " + Text(NoNumber)));
}

TEST_F(ScanDumpKeywords, ComplainsWithANoticeBehindAWhiteCharacter)
{
    EXPECT_THAT(NumbersIn(u"x dump"), ElementsAre(0));
    EXPECT_THAT(Boxes(), ElementsAre(u"notice: " + Text(NoNumber)));
}

TEST_F(ScanDumpKeywords, TakesOneLastWhiteCharacterForNothing)
{
    EXPECT_THAT(NumbersIn(u"dump "), ElementsAre(0));
    EXPECT_THAT(NumbersIn(u"dump\n"), ElementsAre(0));
    EXPECT_THAT(Boxes(), ElementsAre(u"critical: " + Text(NoNumber), u"critical: " + Text(NoNumber)));
}

TEST_F(ScanDumpKeywords, SaysNothingAboutTwoLastWhiteCharacters) { Check({{u"dump  ", {0}}}); }

TEST_F(ScanDumpKeywords, SaysNothingAboutTheTailOfALongerWordAtTheEnd) { Check({{u"xdump", {0}}, {u"a xdump ", {0}}}); }

TEST_F(ScanDumpKeywords, ComplainsAboutAKeywordBehindAGoodOne)
{
    EXPECT_THAT(NumbersIn(u"dump 1 dump"), ElementsAre(1));
    EXPECT_THAT(Boxes(), ElementsAre(u"notice: " + Text(NoNumber)));
}

TEST_F(ScanDumpKeywords, TakesAHitRightBehindAnotherForTheStartOfTheText)
{
    EXPECT_THAT(NumbersIn(u"dump 1 dumpdump"), ElementsAre(1));
    EXPECT_THAT(Boxes(), ElementsAre(u"critical: " + Text(NoNumber)));
}

TEST_F(ScanDumpKeywords, RegistersNothingForAWordThatRunsOn) { Check({{u"dump 7|x", {0}}, {u"dump 7,", {0}}}); }

TEST_F(ScanDumpKeywords, KeepsTheCommentWithItsBar)
{
    EXPECT_THAT(NumbersIn(u"dump 7 |x"), ElementsAre(7));
    EXPECT_THAT(texts_, ElementsAre(u"|x"));
}

TEST_F(ScanDumpKeywords, RegistersNumbersBelow1000)
{
    Check({{u"dump 1000", {0}}, {u"dump 999", {999}}, {u"dump 32767", {0}}, {u"dump 999.5", {0}}});
}

TEST_F(ScanDumpKeywords, ConvertsToTheNearestWholeNumberHalvesToTheEvenOne)
{
    Check({{u"dump -2", {-2}},
           {u"dump 2.5", {2}},
           {u"dump 3.5", {4}},
           {u"dump 999.4", {999}},
           {u"dump +7", {7}},
           {u"dump 007", {7}},
           {u"dump 5.", {5}},
           {u"dump 1e2", {100}},
           {u"dump -2.5", {-2}},
           {u"dump -32768", {-32768}}});
}

TEST_F(ScanDumpKeywords, RegistersNothingForAWordThatIsNoNumber)
{
    Check({{u"dump abc", {0}}, {u"dump 1,000", {0}}, {u"dump &H10", {0}}, {u"dump 0x1", {0}}, {u"dump 1e", {0}}});
}

TEST_F(ScanDumpKeywords, RaisesOverflowPastSixteenBits)
{
    for (const TextView script : {u"dump 40000", u"dump 32768", u"dump 32767.5", u"dump -32769", u"dump 1e99"})
        EXPECT_EQ(FailureOf([&] { NumbersIn(script); }), FailureCode::Overflow) << testing::PrintToString(script);
}

TEST_F(ScanDumpKeywords, KeepsWhatItRegisteredInFrontOfAnOverflow)
{
    EXPECT_EQ(FailureOf([&] { NumbersIn(u"dump 1 dump 40000 dump 2"); }), FailureCode::Overflow);
    EXPECT_THAT(numbers_, ElementsAre(1));
    EXPECT_EQ(state_.IntErrorCode, 0);
}

TEST_F(ScanDumpKeywords, AddsNoEntryForAFirstDumpZero)
{
    EXPECT_THAT(NumbersIn(u"dump 0 | none"), ElementsAre(0));
    EXPECT_EQ(Below(), "");
}

TEST_F(ScanDumpKeywords, KeepsTheCommentOfAFirstDumpZero)
{
    NumbersIn(u"dump 0 | none");
    EXPECT_THAT(texts_, ElementsAre(u"| none"));
}

TEST_F(ScanDumpKeywords, PutsTheNextDumpInThePlaceOfAFirstDumpZero)
{
    EXPECT_THAT(NumbersIn(u"dump 0 dump 5"), ElementsAre(5));
}

TEST_F(ScanDumpKeywords, AddsDumpZeroBehindAnother)
{
    EXPECT_THAT(NumbersIn(u"dump 5 dump 0"), ElementsAre(5, 0));
    EXPECT_EQ(Below(), R"(<DUMP No="5" TXT=""/><DUMP No="0" TXT=""/>)");
}

TEST_F(ScanDumpKeywords, ReadsTheNumberOnTheNextLineWithoutAComment)
{
    EXPECT_THAT(NumbersIn(u"dump\r\n12 | orders"), ElementsAre(12));
    EXPECT_THAT(texts_, ElementsAre(u""));
}

TEST_F(ScanDumpKeywords, PassesOverPartsOfLongerWords) { Check({{u"xdump 3", {0}}, {u"dumpy 3", {0}}}); }

TEST_F(ScanDumpKeywords, LeavesOutADumpBehindABar)
{
    Check({{u"  | dump 9", {0}}, {u"abc | dump 9", {0}}, {u"abc |dump 9", {0}}});
}

TEST_F(ScanDumpKeywords, CountsADumpOnTheLineBelowABar)
{
    Check({{u"| abc\ndump 9", {9}}, {u"| abc\r\n dump 9", {9}}, {u"| dump 8\ndump 9", {9}}});
}

TEST_F(ScanDumpKeywords, LooksBackBeyondABareCarriageReturn) { Check({{u"| abc\rdump 9", {0}}}); }

TEST_F(ScanDumpKeywords, CountsASecondDumpBehindTheSameBar)
{
    Check({{u"| dump 1 dump 2", {2}}, {u"dump 3 | see dump 4 dump 5", {3, 5}}});
}

TEST_F(ScanDumpKeywords, LeavesOutTheFirstDumpInAComment)
{
    EXPECT_THAT(NumbersIn(u"dump 3 | see dump 4"), ElementsAre(3));
    EXPECT_THAT(texts_, ElementsAre(u"| see dump 4"));
}

TEST_F(ScanDumpKeywords, TakesTheSecondOfTwoKeywordsInOneWordForAStart) { Check({{u"dumpdump 5", {5}}}); }

TEST_F(ScanDumpKeywords, ReadsTheKeywordAsAWordThatIsNoNumber) { Check({{u"dump dump 5", {5}}}); }

TEST_F(ScanDumpKeywords, FindsAKeywordBetweenQuotes) { Check({{u"\" dump 5 \"", {5}}, {u"\"dump 5\"", {0}}}); }

TEST_F(ScanDumpKeywords, CutsALongCommentWithoutAMessage)
{
    NumbersIn(u"dump 7 |" + Text(300, u'x'));
    EXPECT_THAT(texts_, ElementsAre(u"|" + Text(245, u'x')));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ScanDumpKeywords, LosesTheTabsOfAComment)
{
    NumbersIn(u"dump 7 |\tmany\ttabs");
    EXPECT_THAT(texts_, ElementsAre(u"|manytabs"));
}

TEST_F(ScanDumpKeywords, ListsDumpsInOrderOfFirstAppearance)
{
    EXPECT_THAT(NumbersIn(u"dump 9 | nine\ndump 2 | two\ndump 9 | more\ndump 4"), ElementsAre(9, 2, 4));
    EXPECT_THAT(texts_, ElementsAre(u"| more", u"| two", u""));
}

TEST_F(ScanDumpKeywords, GoesOnWithListsOfAnEarlierScan)
{
    NumbersIn(u"dump 1 | one");
    scanner_.ScanDumpKeywords(u"dump 2 | two\ndump 1 | uno", numbers_, texts_);
    EXPECT_THAT(numbers_, ElementsAre(1, 2));
    EXPECT_THAT(texts_, ElementsAre(u"| uno", u"| two"));
}

TEST_F(ScanDumpKeywords, CutsTextsOfAnEarlierScanOnlyWhenItExtendsTheLists)
{
    texts_ = {u"a", u"b", u"c"};
    scanner_.ScanDumpKeywords(u"dump 1", numbers_, texts_);
    EXPECT_THAT(texts_, ElementsAre(u"", u"b", u"c"));
    scanner_.ScanDumpKeywords(u"dump 2 | two", numbers_, texts_);
    EXPECT_THAT(texts_, ElementsAre(u"", u"| two"));
}

TEST_F(ScanDumpKeywords, MakesTheElementOfANewDump)
{
    NumbersIn(u"dump 7 | a < b");
    EXPECT_EQ(Below(), R"(<DUMP No="7" TXT="| a &lt; b"/>)");
}

TEST_F(ScanDumpKeywords, LeavesTheElementOfAKnownDumpAsItIs)
{
    Load(R"(<DUMP No="7" TXT="| old"/>)");
    NumbersIn(u"dump 7 | new\ndump 7 | newer");
    EXPECT_EQ(Below(), R"(<DUMP No="7" TXT="| old"/>)");
    EXPECT_THAT(texts_, ElementsAre(u"| newer"));
}

TEST_F(ScanDumpKeywords, PassesOverAWordBeyondSixteenBitsAndRecordsIt)
{
    EXPECT_THAT(NumbersIn(u"dump " + Text(32768, u'1') + u" dump 5"), ElementsAre(5));
    EXPECT_EQ(state_.IntErrorCode, 6);
    EXPECT_EQ(state_.StrErrorText.substr(0, 31), u"The word that begins with \"1111");
}

TEST_F(ScanDumpKeywords, NamesNoDumpInAnEmptyScript) { Check({{u"", {0}}, {u"no keyword", {0}}}); }

TEST(EmptyLists, HoldOneZeroOrOneEmptyText)
{
    EXPECT_TRUE(IsEmptyList(std::vector<std::int16_t>{0}));
    EXPECT_FALSE(IsEmptyList(std::vector<std::int16_t>{1}));
    EXPECT_FALSE(IsEmptyList(std::vector<std::int16_t>{0, 1}));
    EXPECT_TRUE(IsEmptyList(std::vector<Text>{u""}));
    EXPECT_FALSE(IsEmptyList(std::vector<Text>{u"a"}));
    EXPECT_FALSE(IsEmptyList(std::vector<Text>{u"", u"a"}));
}

TEST(IsInStringList, ComparesExactly)
{
    EXPECT_TRUE(IsInStringList({u"abcde123"}, u"abcde123"));
    EXPECT_FALSE(IsInStringList({u"abcde123"}, u"ABCDE123"));
    EXPECT_FALSE(IsInStringList({u"abcde123"}, u"abcde123 "));
    EXPECT_TRUE(IsInStringList({u""}, u""));
}

TEST(IsInDumpList, FindsANumberAnywhere)
{
    EXPECT_TRUE(IsInDumpList({1, 2, 3}, 3));
    EXPECT_FALSE(IsInDumpList({1, 2, 3}, -3));
    EXPECT_TRUE(IsInDumpList({0}, 0));
}

class ParseMigrateKeywords : public ScriptBench {
protected:
    std::vector<Text> TablesIn(TextView StrScript)
    {
        scanner_.ParseMigrateKeywords(StrScript);
        return state_.StrMigrateTables;
    }
};

constexpr TextView NoTable = u"Migrate Keyword Has to be followed by a TableName";

TEST_F(ParseMigrateKeywords, LeavesEverythingAsItIsForAnEmptyText)
{
    TablesIn(u"migrate abcde123");
    EXPECT_THAT(TablesIn(u""), ElementsAre(u"abcde123"));
    EXPECT_THAT(RowsOf(views_.lstMigrateSource), ElementsAre(u"migrate abcde123", u""));
}

TEST_F(ParseMigrateKeywords, TellsWhetherATextWasReadToItsEnd)
{
    EXPECT_FALSE(scanner_.ParseMigrateKeywords(u""));
    EXPECT_TRUE(scanner_.ParseMigrateKeywords(u"nothing"));
    EXPECT_TRUE(scanner_.ParseMigrateKeywords(u"migrate srtab001 migrate"));
    EXPECT_FALSE(scanner_.ParseMigrateKeywords(Text(32768, u'x')));
}

TEST_F(ParseMigrateKeywords, EmptiesListAndViewForATextWithoutTheKeyword)
{
    TablesIn(u"migrate abcde123");
    EXPECT_THAT(TablesIn(u"select"), ElementsAre(u""));
    EXPECT_THAT(RowsOf(views_.lstMigrateSource), IsEmpty());
}

TEST_F(ParseMigrateKeywords, FindsTheKeywordInAnyMixtureOfCase)
{
    EXPECT_THAT(TablesIn(u"MIGRATE abcde123"), ElementsAre(u"abcde123"));
    EXPECT_THAT(TablesIn(u"MiGrAtE abcde123"), ElementsAre(u"abcde123"));
}

TEST_F(ParseMigrateKeywords, KeepsTablesThatDifferInCaseApart)
{
    EXPECT_THAT(TablesIn(u"migrate ABCDE123 migrate abcde123"), ElementsAre(u"ABCDE123", u"abcde123"));
}

TEST_F(ParseMigrateKeywords, AddsATableAtTheVeryEnd)
{
    EXPECT_THAT(TablesIn(u"migrate abcde123"), ElementsAre(u"abcde123"));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ParseMigrateKeywords, ComplainsAboutTheKeywordWithAtMostOneCharacterBehind)
{
    for (const TextView script : {u"migrate", u"migrate ", u"x migrate", u"migratex", u"immigrate"}) {
        EXPECT_THAT(TablesIn(script), ElementsAre(u"")) << testing::PrintToString(script);
        EXPECT_THAT(Boxes(), ElementsAre(u"critical: " + Text(NoTable))) << testing::PrintToString(script);
    }
}

TEST_F(ParseMigrateKeywords, DrawsTheListFromWhatItFoundBeforeTheComplaint)
{
    TablesIn(u"migrate abcde123 migrate");
    EXPECT_THAT(RowsOf(views_.lstMigrateSource), ElementsAre(u"migrate abcde123", u""));
    EXPECT_THAT(Boxes(), ElementsAre(u"critical: " + Text(NoTable)));
}

TEST_F(ParseMigrateKeywords, EndsTheNameAtAWhiteCharacter)
{
    EXPECT_THAT(TablesIn(u"migrate  abcde123 | sales"), ElementsAre(u"abcde123"));
    EXPECT_THAT(TablesIn(u"migrate\r\n\t abcde123\r\nx"), ElementsAre(u"abcde123"));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ParseMigrateKeywords, EndsTheNameAtNoBar)
{
    EXPECT_THAT(TablesIn(u"migrate abcde123|sales"), ElementsAre(u""));
    EXPECT_THAT(Boxes(), ElementsAre(u"critical: Table Name not Valid"));
}

TEST_F(ParseMigrateKeywords, SaysNothingAboutALongerWord)
{
    EXPECT_THAT(TablesIn(u"immigrate abcde123"), ElementsAre(u""));
    EXPECT_THAT(TablesIn(u"migrates abcde123"), ElementsAre(u""));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ParseMigrateKeywords, CountsAStatementBehindABar)
{
    EXPECT_THAT(TablesIn(u"| migrate abcde123"), ElementsAre(u"abcde123"));
    EXPECT_THAT(TablesIn(u"|migrate abcde123"), ElementsAre(u""));
}

TEST_F(ParseMigrateKeywords, SaysNothingAboutAKeywordInFrontOfWhiteAlone)
{
    EXPECT_THAT(TablesIn(u"migrate \r\n"), ElementsAre(u""));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ParseMigrateKeywords, DropsARepeatedTable)
{
    EXPECT_THAT(TablesIn(u"migrate abcde123 migrate fghij456 migrate abcde123"), ElementsAre(u"abcde123", u"fghij456"));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ParseMigrateKeywords, RefusesANameThatIsNotEightLongAndGoesOn)
{
    EXPECT_THAT(TablesIn(u"migrate abc migrate abcde1234 migrate abcde123"), ElementsAre(u"abcde123"));
    EXPECT_THAT(Boxes(), ElementsAre(u"critical: Table Name not Valid", u"critical: Table Name not Valid"));
}

TEST_F(ParseMigrateKeywords, RefusesANameOfTheWrongFormAndGoesOn)
{
    EXPECT_THAT(TablesIn(u"migrate abcd1234 migrate abcde12x migrate abcde123"), ElementsAre(u"abcde123"));
    EXPECT_THAT(Boxes(),
                ElementsAre(u"critical: Invalid table name 'abcd1234'", u"critical: Invalid table name 'abcde12x'"));
}

TEST_F(ParseMigrateKeywords, MovesTheFocusToTheScriptForARefusedName)
{
    TablesIn(u"migrate abc");
    EXPECT_TRUE(views_.txtPreCondition.HasFocus());
    views_.lstSourceTables.SetFocus();
    TablesIn(u"migrate abcd1234");
    EXPECT_TRUE(views_.txtPreCondition.HasFocus());
}

TEST_F(ParseMigrateKeywords, LeavesTheFocusForAKeywordWithoutAName)
{
    TablesIn(u"migrate");
    EXPECT_EQ(views_.Tree.Focused(), nullptr);
}

TEST_F(ParseMigrateKeywords, RecordsAFailureOfTheFocusChangeAndDrawsNoList)
{
    TablesIn(u"migrate abcde123");
    views_.lstSourceTables.LostFocus = [] { throw Failure(FailureCode::TypeMismatch, u"mismatch"); };
    views_.lstSourceTables.SetFocus();
    EXPECT_THAT(TablesIn(u"migrate fghij456 migrate abc"), ElementsAre(u"fghij456"));
    EXPECT_EQ(state_.IntErrorCode, 13);
    EXPECT_EQ(state_.StrErrorText, u"mismatch");
    EXPECT_THAT(RowsOf(views_.lstMigrateSource), ElementsAre(u"migrate abcde123", u""));
}

TEST_F(ParseMigrateKeywords, ReadsAPreconditionOf32767Characters)
{
    const Text statement = u"migrate abcde123 ";
    EXPECT_THAT(TablesIn(statement + Text(32767 - statement.size(), u'x')), ElementsAre(u"abcde123"));
    EXPECT_EQ(state_.IntErrorCode, 0);
}

TEST_F(ParseMigrateKeywords, RecordsALongerOneAndNamesNoTables)
{
    TablesIn(u"migrate fghij456");
    const Text statement = u"migrate abcde123 ";
    EXPECT_THAT(TablesIn(statement + Text(32768 - statement.size(), u'x')), ElementsAre(u""));
    EXPECT_EQ(state_.IntErrorCode, 6);
    EXPECT_THAT(RowsOf(views_.lstMigrateSource), ElementsAre(u"migrate fghij456", u""));
}

TEST_F(ParseMigrateKeywords, DrawsEachTableWithAnEmptyRowBehindIt)
{
    TablesIn(u"migrate abcde123 migrate fghij456");
    EXPECT_THAT(RowsOf(views_.lstMigrateSource), ElementsAre(u"migrate abcde123", u"", u"migrate fghij456", u""));
}

TEST_F(ParseMigrateKeywords, DrawsTheListAnewEachTime)
{
    TablesIn(u"migrate abcde123 migrate fghij456");
    TablesIn(u"migrate fghij456");
    EXPECT_THAT(RowsOf(views_.lstMigrateSource), ElementsAre(u"migrate fghij456", u""));
}

} // namespace
} // namespace rulemesh
