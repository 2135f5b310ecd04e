#include "script/main_query.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "support/script_bench.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

class MainQueriesTest : public ScriptBench {
protected:
    // Puts a table's text into the box as if it had been chosen and edited.
    void Edit(TextView StrTable, TextView StrText)
    {
        state_.QueryTable = TableCode(Text(StrTable));
        views_.txtMainQuery.Text(Text(StrText));
    }

    std::vector<std::int16_t> Collect()
    {
        queries_.CollectDumps(state_.IntDumpNumbers, state_.StrDumpTexts);
        return state_.IntDumpNumbers;
    }

    SyntaxBox& box_ = views_.txtMainQuery;
};

TEST_F(MainQueriesTest, ShowsTheStoredScriptDecodedWithItsTable)
{
    Load("<QUERY ST=\"abcde123\">a &amp;amp; b\nc</QUERY>");
    queries_.ShowMigrateQuery(u"abcde123");
    EXPECT_EQ(box_.Text(), u"a & b\r\nc");
    EXPECT_EQ(state_.QueryTable.Written(), u"abcde123");
}

TEST_F(MainQueriesTest, ShowsAnEmptyBoxForATableWithoutAScriptAndMakesNone)
{
    Edit(u"fghij456", u"old");
    queries_.ShowMigrateQuery(u"abcde123");
    EXPECT_EQ(box_.Text(), u"");
    EXPECT_EQ(state_.QueryTable.Written(), u"abcde123");
    EXPECT_EQ(Below(), "");
}

TEST_F(MainQueriesTest, EmptiesTextAndTableForNoTable)
{
    Edit(u"abcde123", u"old");
    queries_.ShowMigrateQuery(u"");
    EXPECT_EQ(box_.Text(), u"");
    EXPECT_EQ(state_.QueryTable.Written(), u"");
}

TEST_F(MainQueriesTest, EnablesTheNoteButtonByTheNoteWhenReadOnly)
{
    state_.BoolEdit = false;
    Load(R"(<QUERY ST="abcde123" TEXT="note">x</QUERY><QUERY ST="fghij456" TEXT="">y</QUERY>)");
    queries_.ShowMigrateQuery(u"fghij456");
    EXPECT_FALSE(views_.CmdMQDoc.Enabled());
    queries_.ShowMigrateQuery(u"abcde123");
    EXPECT_TRUE(views_.CmdMQDoc.Enabled());
    queries_.ShowMigrateQuery(u"");
    EXPECT_FALSE(views_.CmdMQDoc.Enabled());
}

TEST_F(MainQueriesTest, LeavesTheNoteButtonAsItIsWhenTheUserMayEdit)
{
    queries_.ShowMigrateQuery(u"");
    EXPECT_TRUE(views_.CmdMQDoc.Enabled());
    views_.CmdMQDoc.Enabled(false);
    Load(R"(<QUERY ST="abcde123" TEXT="note"/>)");
    queries_.ShowMigrateQuery(u"abcde123");
    EXPECT_FALSE(views_.CmdMQDoc.Enabled());
}

TEST_F(MainQueriesTest, HasANoteOnlyWithATableAQueryAndAText)
{
    Load(R"(<QUERY ST="abcde123" TEXT="n"/><QUERY ST="fghij456"/><QUERY ST="  " TEXT="n"/><QUERY TEXT="n"/>)");
    const std::pair<TextView, bool> cases[] = {{u"abcde123", true}, {u"fghij456", false}, {u"klmno789", false},
                                               {u"", false},        {u"  ", false},       {u" abcde123", false}};
    for (const auto& [tag, expected] : cases) {
        state_.QueryTable = TableCode(Text(tag));
        EXPECT_EQ(queries_.HasMainQueryNote(), expected) << testing::PrintToString(tag);
    }
}

TEST_F(MainQueriesTest, StoresAScriptInItsQuery)
{
    Load(R"(<QUERY ST="abcde123">old</QUERY><QUERY ST="fghij456">other</QUERY>)");
    queries_.SaveQuery(u"abcde123", u"a < b");
    EXPECT_EQ(Below(), R"(<QUERY ST="abcde123">a &lt; b</QUERY><QUERY ST="fghij456">other</QUERY>)");
}

TEST_F(MainQueriesTest, MakesAQueryForANewScript)
{
    queries_.SaveQuery(u"abcde123", u"select");
    EXPECT_EQ(Below(), R"(<QUERY ST="abcde123">select</QUERY>)");
}

TEST_F(MainQueriesTest, NeverStoresAnEmptyScript)
{
    Load(R"(<QUERY ST="abcde123">old</QUERY>)");
    queries_.SaveQuery(u"abcde123", u"");
    queries_.SaveQuery(u"fghij456", u"");
    EXPECT_EQ(Below(), R"(<QUERY ST="abcde123">old</QUERY>)");
}

TEST_F(MainQueriesTest, RecordsAFailureToStore)
{
    ASSERT_FALSE(document_.loadXML(u"broken"));
    queries_.SaveQuery(u"abcde123", u"x");
    EXPECT_EQ(state_.IntErrorCode, 91);
    EXPECT_EQ(state_.StrErrorText, u"The object has no such element in Saving Query");
}

TEST_F(MainQueriesTest, CollectsFromPreconditionFunctionsAndScriptsInThatOrder)
{
    Load(R"(<QUERY ST="fghij456">dump 4</QUERY><QUERY ST="abcde123">dump 3</QUERY>)"
         R"(<FUNCTIONS>dump 2</FUNCTIONS><PREC>dump 1</PREC>)");
    state_.StrMigrateTables = {u"abcde123", u"fghij456"};
    EXPECT_THAT(Collect(), ElementsAre(1, 2, 3, 4));
}

TEST_F(MainQueriesTest, CollectsNothingFromTheScriptOfATableThatIsNotMigrated)
{
    Load(R"(<QUERY ST="abcde123">dump 3</QUERY><QUERY ST="fghij456">dump 4</QUERY>)");
    state_.StrMigrateTables = {u"fghij456"};
    EXPECT_THAT(Collect(), ElementsAre(4));
}

TEST_F(MainQueriesTest, CollectsFromTheDocumentAndNotFromTheBox)
{
    Load(R"(<QUERY ST="abcde123">dump 3</QUERY>)");
    state_.StrMigrateTables = {u"abcde123"};
    Edit(u"abcde123", u"dump 9");
    EXPECT_THAT(Collect(), ElementsAre(3));
}

TEST_F(MainQueriesTest, CollectsFromTextsAsStored)
{
    Load(R"(<PREC>dump&amp;lt; 3 dump 1&amp;lt;</PREC>)");
    EXPECT_THAT(Collect(), ElementsAre(0));
}

TEST_F(MainQueriesTest, ForgetsTheNumbersOfTheLastCollectionAndKeepsItsTexts)
{
    Load("<PREC>x</PREC>");
    state_.IntDumpNumbers = {1, 2};
    state_.StrDumpTexts = {u"| one", u"| two"};
    EXPECT_THAT(Collect(), ElementsAre(0));
    EXPECT_THAT(state_.StrDumpTexts, ElementsAre(u"| one", u"| two"));
}

TEST_F(MainQueriesTest, IndexesADumpByTheFirstTableThatNamesIt)
{
    Load(R"(<PREC>dump 1</PREC><QUERY ST="fghij456">dump 1 dump 2 dump 3</QUERY><QUERY ST="abcde123">dump 2</QUERY>)");
    state_.StrMigrateTables = {u"abcde123", u"fghij456"};
    Collect();
    EXPECT_THAT(state_.DumpSourceTables,
                UnorderedElementsAre(Pair(1, Text()), Pair(2, u"abcde123"), Pair(3, u"fghij456")));
}

TEST_F(MainQueriesTest, IndexesADumpOfTheFunctionsUnderNoTable)
{
    Load(R"(<FUNCTIONS>dump 1</FUNCTIONS><QUERY ST="abcde123">dump 1</QUERY>)");
    state_.StrMigrateTables = {u"abcde123"};
    Collect();
    EXPECT_THAT(state_.DumpSourceTables, ElementsAre(Pair(1, Text())));
}

TEST_F(MainQueriesTest, IndexesTheCommentOfTheLastScan)
{
    Load("<QUERY ST=\"abcde123\">dump 2 | first</QUERY><QUERY ST=\"fghij456\">dump 2 | last</QUERY>");
    state_.StrMigrateTables = {u"abcde123", u"fghij456"};
    Collect();
    EXPECT_THAT(state_.DumpComments, ElementsAre(Pair(2, u"| last")));
    EXPECT_THAT(state_.StrDumpTexts, ElementsAre(u"| last"));
}

TEST_F(MainQueriesTest, ForgetsTablesButNotCommentsOfDumpsThatAreGone)
{
    Load("<PREC>dump 1 | one</PREC>");
    Collect();
    Load("<PREC>dump 2 | two</PREC>");
    Collect();
    EXPECT_THAT(state_.DumpSourceTables, ElementsAre(Pair(2, Text())));
    EXPECT_THAT(state_.DumpComments, UnorderedElementsAre(Pair(1, u"| one"), Pair(2, u"| two")));
}

TEST_F(MainQueriesTest, ForgetsTheOwnersOnlyBehindPreconditionAndFunctions)
{
    state_.StrMigrateTables = {u"abcde123", u"fghij456"};
    const auto collectFrom = [&](const std::string& precondition, const std::string& functions,
                                 const std::string& query) {
        Load("<PREC>" + precondition + "</PREC><FUNCTIONS>" + functions + "</FUNCTIONS><QUERY ST=\"abcde123\">" +
             query + "</QUERY><QUERY ST=\"fghij456\">dump 4</QUERY>");
        return FailureOf([&] { Collect(); });
    };
    ASSERT_EQ(collectFrom("dump 1", "", "dump 3"), std::nullopt);
    const auto all = UnorderedElementsAre(Pair(1, Text()), Pair(3, Text(u"abcde123")), Pair(4, Text(u"fghij456")));
    EXPECT_THAT(state_.DumpSourceTables, all);
    EXPECT_EQ(collectFrom("dump 2 dump 40000", "", ""), FailureCode::Overflow);
    EXPECT_THAT(state_.DumpSourceTables, all);
    EXPECT_EQ(collectFrom("dump 2", "dump 40000", ""), FailureCode::Overflow);
    EXPECT_THAT(state_.DumpSourceTables, all);
    EXPECT_EQ(collectFrom("dump 2", "", "dump 5 dump 40000"), FailureCode::Overflow);
    EXPECT_THAT(state_.DumpSourceTables, ElementsAre(Pair(2, Text())));
}

TEST_F(MainQueriesTest, IndexesNothingForTheListThatHoldsZero)
{
    Load("<PREC>dump 0 | none</PREC>");
    Collect();
    EXPECT_THAT(state_.DumpSourceTables, IsEmpty());
    EXPECT_THAT(state_.DumpComments, IsEmpty());
}

TEST_F(MainQueriesTest, SavesTheScriptAndMakesItsNewDumps)
{
    state_.StrMigrateTables = {u"abcde123"};
    Edit(u"abcde123", u"dump 5 | orders");
    queries_.SaveMainQuery();
    EXPECT_EQ(Below(), R"(<QUERY ST="abcde123">dump 5 | orders</QUERY><DUMP No="5" TXT="| orders"/>)");
    EXPECT_THAT(state_.IntPriorDumpNumbers, ElementsAre(0));
    EXPECT_THAT(state_.IntDumpNumbers, ElementsAre(5));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(MainQueriesTest, ChangesListsButNotTheElementForAChangedComment)
{
    Load(R"(<QUERY ST="abcde123">dump 5 | old</QUERY><DUMP No="5" TXT="| old"/>)");
    state_.StrMigrateTables = {u"abcde123"};
    Edit(u"abcde123", u"dump 5 | new");
    queries_.SaveMainQuery();
    EXPECT_EQ(Below(), R"(<QUERY ST="abcde123">dump 5 | new</QUERY><DUMP No="5" TXT="| old"/>)");
    EXPECT_THAT(state_.StrDumpTexts, ElementsAre(u"| new"));
    EXPECT_THAT(state_.DumpComments, ElementsAre(Pair(5, u"| new")));
}

TEST_F(MainQueriesTest, StoresTheNumberThatCancelBringsBack)
{
    Load(R"(<QUERY ST="abcde123">dump 5 x</QUERY><DUMP No="5" TXT=""><PRICE TEXT="rule"/></DUMP>)");
    state_.StrMigrateTables = {u"abcde123"};
    Edit(u"abcde123", u"dump 6 x");
    platform_.Buttons = {MessageButton::Cancel};
    queries_.SaveMainQuery();
    EXPECT_EQ(Below(), R"(<QUERY ST="abcde123">dump 5x</QUERY><DUMP No="5" TXT=""><PRICE TEXT="rule"/></DUMP>)"
                       R"(<DUMP No="6" TXT=""/>)");
    EXPECT_THAT(state_.IntDumpNumbers, ElementsAre(5));
}

TEST_F(MainQueriesTest, DoesNotCollectAgainBehindADummyLine)
{
    Load(R"(<QUERY ST="abcde123">dump 5 x</QUERY>)");
    state_.StrMigrateTables = {u"abcde123"};
    Edit(u"abcde123", u"dump 6 dump 7");
    platform_.Buttons = {MessageButton::Cancel};
    queries_.SaveMainQuery();
    EXPECT_THAT(state_.IntDumpNumbers, ElementsAre(6, 7));
    EXPECT_THAT(Collect(), ElementsAre(6, 7, 5));
}

TEST_F(MainQueriesTest, DoesNotWarnAgainOfALossThatWasAccepted)
{
    Load(R"(<QUERY ST="abcde123">dump 5 x</QUERY>)");
    state_.StrMigrateTables = {u"abcde123"};
    Edit(u"abcde123", u"dump 6 x");
    queries_.SaveMainQuery();
    ASSERT_EQ(Boxes().size(), 1U);
    queries_.SaveMainQuery();
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(MainQueriesTest, ResetsThePriorTextsBeforeTheScriptsAreRead)
{
    Load("<PREC/><QUERY ST=\"abcde123\">dump 1 | one\ndump 2 | two</QUERY>");
    state_.StrMigrateTables = {u"abcde123"};
    Edit(u"abcde123", u"select");
    queries_.SaveMainQuery();
    EXPECT_THAT(state_.IntPriorDumpNumbers, ElementsAre(1, 2));
    EXPECT_THAT(state_.StrPriorDumpTexts, ElementsAre(u"| one", u"| two"));
    queries_.SaveMainQuery();
    EXPECT_THAT(state_.IntPriorDumpNumbers, ElementsAre(0));
    EXPECT_THAT(state_.StrPriorDumpTexts, ElementsAre(u""));
}

TEST_F(MainQueriesTest, KeepsTheStoredScriptWhenTheBoxIsCleared)
{
    Load(R"(<QUERY ST="abcde123">dump 5</QUERY>)");
    state_.StrMigrateTables = {u"abcde123"};
    Edit(u"abcde123", u"");
    queries_.SaveMainQuery();
    EXPECT_EQ(Below(), R"(<QUERY ST="abcde123">dump 5</QUERY><DUMP No="5" TXT=""/>)");
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(MainQueriesTest, WarnsOfADumpThatMovesInTwoSaves)
{
    Load(R"(<QUERY ST="abcde123">dump 5 x</QUERY><QUERY ST="fghij456">y</QUERY>)");
    state_.StrMigrateTables = {u"abcde123", u"fghij456"};
    Edit(u"abcde123", u"x");
    queries_.SaveMainQuery();
    EXPECT_EQ(Boxes().size(), 1U);
    Edit(u"fghij456", u"dump 5 y");
    queries_.SaveMainQuery();
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(MainQueriesTest, LetsAnOverflowOutWithTheScriptStored)
{
    Load(R"(<QUERY ST="abcde123">dump 1</QUERY>)");
    state_.StrMigrateTables = {u"abcde123"};
    Edit(u"abcde123", u"dump 40000");
    EXPECT_EQ(FailureOf([this] { queries_.SaveMainQuery(); }), FailureCode::Overflow);
    EXPECT_EQ(Below(), R"(<QUERY ST="abcde123">dump 40000</QUERY><DUMP No="1" TXT=""/>)");
}

TEST_F(MainQueriesTest, ComplainsOnEveryScanOfABadScript)
{
    Load("<PREC>x dump</PREC>");
    queries_.SaveMainQuery();
    EXPECT_EQ(Boxes().size(), 2U);
}

TEST_F(MainQueriesTest, SetsTheHostsTextUndecodedAndSavesIt)
{
    views_.cmdBuildMQ.Enabled(false);
    Edit(u"abcde123", u"");
    queries_.MainQuery(u"a &amp; b");
    EXPECT_EQ(box_.Text(), u"a &amp; b");
    EXPECT_EQ(Below(), R"(<QUERY ST="abcde123">a &amp;amp; b</QUERY>)");
    EXPECT_TRUE(views_.cmdBuildMQ.Enabled());
}

TEST_F(MainQueriesTest, ChangesScriptsWhenARowIsClicked)
{
    Load("<QUERY ST=\"fghij456\">a &amp;lt; b\nc</QUERY>");
    state_.StrMigrateTables = {u"abcde123", u"fghij456"};
    scanner_.FillMigrateList();
    Edit(u"abcde123", u"select");
    queries_.lstMigrateSource_ItemClick(3);
    EXPECT_EQ(box_.Text(), u"a < b\r\nc");
    EXPECT_EQ(state_.QueryTable.Written(), u"fghij456");
    EXPECT_EQ(Below(), "<QUERY ST=\"fghij456\">a &amp;lt; b\nc</QUERY><QUERY ST=\"abcde123\">select</QUERY>");
}

TEST_F(MainQueriesTest, SavesWithoutComparingDumpsWhenARowIsClicked)
{
    Load(R"(<QUERY ST="abcde123">dump 5</QUERY>)");
    state_.StrMigrateTables = {u"abcde123"};
    scanner_.FillMigrateList();
    Edit(u"abcde123", u"dump 6");
    queries_.lstMigrateSource_ItemClick(1);
    EXPECT_EQ(Below(), R"(<QUERY ST="abcde123">dump 6</QUERY>)");
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(MainQueriesTest, StoresNothingUnderNoNameWhenARowIsClicked)
{
    Load("<QUERY ST=\"abcde123\">select</QUERY>");
    state_.StrMigrateTables = {u"abcde123"};
    scanner_.FillMigrateList();
    Edit(u"", u"of no table");
    queries_.lstMigrateSource_ItemClick(1);
    EXPECT_EQ(Below(), "<QUERY ST=\"abcde123\">select</QUERY>");
    EXPECT_EQ(box_.Text(), u"select");
}

TEST_F(MainQueriesTest, DoesNothingWhenABlankRowIsClicked)
{
    state_.StrMigrateTables = {u"abcde123"};
    scanner_.FillMigrateList();
    Edit(u"abcde123", u"select");
    queries_.lstMigrateSource_ItemClick(2);
    EXPECT_EQ(box_.Text(), u"select");
    EXPECT_EQ(Below(), "");
}

TEST_F(MainQueriesTest, BringsTheOldScriptBackWhenTheRowOfAClearedOneIsClicked)
{
    Load(R"(<QUERY ST="abcde123">old</QUERY>)");
    state_.StrMigrateTables = {u"abcde123"};
    scanner_.FillMigrateList();
    Edit(u"abcde123", u"");
    queries_.lstMigrateSource_ItemClick(1);
    EXPECT_EQ(box_.Text(), u"old");
}

TEST_F(MainQueriesTest, LocksTheBoxOnFocusWithoutMigrateRows)
{
    queries_.txtMainQuery_GotFocus();
    EXPECT_TRUE(box_.Locked());
    state_.StrMigrateTables = {u"abcde123"};
    scanner_.FillMigrateList();
    queries_.txtMainQuery_GotFocus();
    EXPECT_FALSE(box_.Locked());
}

TEST_F(MainQueriesTest, LocksTheBoxOnFocusWhenReadOnly)
{
    state_.BoolEdit = false;
    state_.StrMigrateTables = {u"abcde123"};
    scanner_.FillMigrateList();
    queries_.txtMainQuery_GotFocus();
    EXPECT_TRUE(box_.Locked());
}

TEST_F(MainQueriesTest, EnablesTheNoteButtonOnFocusWhenReadOnly)
{
    state_.BoolEdit = false;
    Load(R"(<QUERY ST="abcde123" TEXT="note">x</QUERY>)");
    views_.CmdMQDoc.Enabled(false);
    state_.QueryTable = TableCode(u"abcde123");
    queries_.txtMainQuery_GotFocus();
    EXPECT_TRUE(views_.CmdMQDoc.Enabled());
}

TEST_F(MainQueriesTest, AsksTheHostWithTheBoxesTextAndItsOneTable)
{
    Load("<SRCTBL>abcde123,fghij456</SRCTBL>");
    Edit(u"fghij456", u"select");
    queries_.cmdBuildMQ_Click();
    EXPECT_THAT(events_.Raised, ElementsAre(u"ShowQueryBuilderPopUp(select, fghij456)"));
}

TEST_F(MainQueriesTest, AsksTheHostNothingWithoutATable)
{
    Edit(u"", u"select");
    queries_.cmdBuildMQ_Click();
    EXPECT_THAT(events_.Raised, IsEmpty());
}

TEST_F(MainQueriesTest, MovesTheFocusAheadWithControlAndBackWithShift)
{
    std::int16_t KeyCode = 9;
    queries_.txtMainQuery_KeyDown(KeyCode, 2);
    EXPECT_EQ(KeyCode, 0);
    EXPECT_TRUE(views_.cmdBuildMQ.HasFocus());
    KeyCode = 9;
    queries_.txtMainQuery_KeyDown(KeyCode, 1);
    EXPECT_EQ(KeyCode, 0);
    EXPECT_TRUE(views_.lstMigrateSource.HasFocus());
}

TEST_F(MainQueriesTest, OnlyLosesTheTabKeyWithOtherShiftStates)
{
    for (const std::int16_t shift : {std::int16_t{3}, std::int16_t{4}, std::int16_t{7}}) {
        std::int16_t KeyCode = 9;
        queries_.txtMainQuery_KeyDown(KeyCode, shift);
        EXPECT_EQ(KeyCode, 0);
        EXPECT_EQ(views_.Tree.Focused(), nullptr);
    }
}

TEST_F(MainQueriesTest, LeavesAPlainTabAndOtherKeysToTheBox)
{
    std::int16_t KeyCode = 9;
    queries_.txtMainQuery_KeyDown(KeyCode, 0);
    EXPECT_EQ(KeyCode, 9);
    KeyCode = 65;
    queries_.txtMainQuery_KeyDown(KeyCode, 2);
    EXPECT_EQ(KeyCode, 65);
    EXPECT_EQ(views_.Tree.Focused(), nullptr);
}

} // namespace
} // namespace rulemesh
