#include "engine/shown_dump.h"

#include <gmock/gmock.h>

#include "base/failure.h"
#include "base/failure_of.h"
#include "engine/engine_bench.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* Catalogue = R"(<TARTAB><TGTAB001><ITEM No="1"/><PRICE__1 No="2"/></TGTAB001>)"
                                  R"(<TGTAB002><CODE No="1"/></TGTAB002></TARTAB>)";

class ShownDumpTest : public EngineBench {
protected:
    void LoadWith(const std::string& dumps) { Load(Catalogue + dumps); }

    [[nodiscard]] std::string Dumps() const { return Below().substr(std::string(Catalogue).size()); }
};

TEST_F(ShownDumpTest, ShowsTheRulesInTheRowsOfTheirNumbers)
{
    LoadWith(R"(<DUMP No="3" TT_DESC="Items"><PRICE__1>p</PRICE__1></DUMP>)");
    NameDumps({{3, u"| three"}});
    Show(0);
    EXPECT_THAT(Keys(), ElementsAre(u"tgtab001.item", u"tgtab001.price(1)"));
    EXPECT_THAT(Rules(), ElementsAre(u"", u"p"));
    EXPECT_EQ(views_.Details.Caption(), u"F&ields of Dump:  3:| three");
    EXPECT_EQ(views_.CmbDump.ToolTip(), u"| three");
    EXPECT_EQ(state_.DumpInGrid.Tag(), u"3");
    EXPECT_EQ(views_.LBLTargetTableName.Caption(), u"tgtab001");
    EXPECT_EQ(views_.lblTargetTableDescription.Caption(), u"Items");
}

TEST_F(ShownDumpTest, RowsGoByTheNumberAndNotByThePlace)
{
    Load(R"(<TARTAB><TGTAB001><A No="2"/><B No="1"/></TGTAB001></TARTAB><DUMP No="1"><A>a</A></DUMP>)");
    NameDumps({{1, u""}});
    Show(0);
    EXPECT_THAT(Keys(), ElementsAre(u"tgtab001.a", u"tgtab001.b"));
    EXPECT_THAT(Rules(), ElementsAre(u"", u"a"));
}

TEST_F(ShownDumpTest, AFieldWithoutANumberFailsTheLoad)
{
    Load(R"(<TARTAB><TGTAB001><A No="x"/><B No="2"/></TGTAB001></TARTAB><DUMP No="1"/>)");
    NameDumps({{1, u""}});
    EXPECT_EQ(FailureOf([&] { Show(0); }), FailureCode::TypeMismatch);
}

TEST_F(ShownDumpTest, AFaultyNumberFailsTheLoadBeforeADumpIsMade)
{
    const std::string below = R"(<TARTAB><TGTAB001><A No="x"/></TGTAB001></TARTAB>)";
    Load(below);
    NameDumps({{4, u""}});
    views_.RulesGrid.AddItem({u"tgtab001.a", u" "});
    state_.DumpInGrid = GridDump(DumpNumber(4));
    EXPECT_EQ(FailureOf([&] { shownDump_.LoadDumpRules(DumpNumber(4)); }), FailureCode::TypeMismatch);
    EXPECT_EQ(Below(), below);
}

TEST_F(ShownDumpTest, ARowBelowSixteenBitsIsAnOverflow)
{
    Load(R"(<TARTAB><TGTAB001><A No="-32768"/></TGTAB001></TARTAB><DUMP No="1"/>)");
    NameDumps({{1, u""}});
    state_.DumpInGrid = GridDump(DumpNumber(1));
    EXPECT_EQ(FailureOf([&] { shownDump_.LoadDumpRules(DumpNumber(1)); }), FailureCode::Overflow);
    EXPECT_EQ(FailureOf([&] { shownDump_.SaveDumpRules(GridDump(DumpNumber(1))); }), FailureCode::Overflow);
}

TEST_F(ShownDumpTest, ARuleIsShownAsItIsStored)
{
    LoadWith("<DUMP No=\"1\"><ITEM>a &amp;lt; b\nc</ITEM></DUMP>");
    NameDumps({{1, u""}});
    Show(0);
    EXPECT_EQ(Rules().front(), u"a &lt; b\nc");
}

TEST_F(ShownDumpTest, DumpZeroEmptiesTheRulesAndLeavesTheDocument)
{
    LoadWith(R"(<DUMP No="3"><ITEM>i</ITEM></DUMP>)");
    NameDumps({{3, u""}});
    Show(0);
    const std::string before = Dumps();
    shownDump_.LoadDumpRules(DumpNumber(0));
    EXPECT_THAT(Rules(), ElementsAre(u"", u""));
    EXPECT_EQ(Dumps(), before);
}

TEST_F(ShownDumpTest, LoadingTakesTheFirstEntryWhenNoneIsSelected)
{
    LoadWith(R"(<DUMP No="3"/><DUMP No="4"/>)");
    NameDumps({{3, u"c"}, {4, u"d"}});
    state_.DumpInGrid = GridDump(DumpNumber(4));
    shownDump_.ShowDump(DumpNumber(4));
    EXPECT_EQ(views_.CmbDump.ListIndex(), 0);
    EXPECT_EQ(views_.Details.Caption(), u"F&ields of Dump:  3:c");
}

TEST_F(ShownDumpTest, LoadingPutsTheFirstRowOnTop)
{
    std::string fields;
    for (int number = 1; number <= 20; ++number)
        fields += "<F" + std::to_string(number) + " No=\"" + std::to_string(number) + "\"/>";
    Load("<TARTAB><TGTAB001>" + fields + R"(</TGTAB001></TARTAB><DUMP No="1"/>)");
    NameDumps({{1, u""}});
    Show(0);
    views_.RulesGrid.TopRow(7);
    shownDump_.LoadDumpRules(DumpNumber(1));
    EXPECT_EQ(views_.RulesGrid.TopRow(), 0);
}

TEST_F(ShownDumpTest, LoadingWithoutATableSetsTheTagInTwoDigits)
{
    Load(R"(<DUMP No="3"/>)");
    NameDumps({{3, u""}});
    views_.RulesGrid.AddItem({u"tgtab001.item", u"i"});
    state_.DumpInGrid = GridDump(DumpNumber(3));
    shownDump_.LoadDumpRules(DumpNumber(3));
    EXPECT_EQ(state_.DumpInGrid.Tag(), u"03");
    EXPECT_THAT(Rules(), ElementsAre(u"i"));
    EXPECT_FALSE(views_.CmbDump.HasSelection());
}

TEST_F(ShownDumpTest, WithoutATableOnlyTheTagIsSet)
{
    Load(R"(<DUMP No="3"/>)");
    NameDumps({{3, u""}});
    state_.DumpInGrid = GridDump(DumpNumber(3));
    shownDump_.ShowDump(DumpNumber(3));
    EXPECT_EQ(state_.DumpInGrid.Tag(), u"03");
    EXPECT_EQ(views_.RulesGrid.Rows(), 0);
    EXPECT_EQ(views_.Details.Caption(), u"Deta&ils");
}

TEST_F(ShownDumpTest, SourceFieldsComeInTheOrderOfTheTables)
{
    Load("<SRCTAB><SRTAB001><A/></SRTAB001><SRTAB002><A/><B/></SRTAB002></SRCTAB>");
    for (const TextView table : {u"srTAB002", u"", u"none0001", u"srtab001"})
        views_.lstSourceTables.Add({Text(table)});
    views_.lstSourceFields.Add({u"*", u"001", u"left.over"});
    views_.lstSourceFields.Sorted(false);
    shownDump_.ShowDump(DumpNumber(1));
    ASSERT_EQ(views_.lstSourceFields.Count(), 3);
    EXPECT_EQ(views_.lstSourceFields.TextAt(1, 2), u"srtab002.a");
    EXPECT_EQ(views_.lstSourceFields.TextAt(2, 2), u"srtab002.b");
    EXPECT_EQ(views_.lstSourceFields.TextAt(3, 2), u"srtab001.a");
}

TEST_F(ShownDumpTest, ASingleTargetObjectKeepsItsRows)
{
    LoadWith(R"(<DUMP No="1"/><DUMP No="2"><ITEM>i</ITEM></DUMP>)");
    NameDumps({{1, u""}, {2, u""}});
    Show(0);
    views_.RulesGrid.TextMatrix(0, 0, u"kept");
    Show(1);
    EXPECT_THAT(Keys(), ElementsAre(u"kept", u"tgtab001.price(1)"));
    EXPECT_THAT(Rules(), ElementsAre(u"i", u""));
}

TEST_F(ShownDumpTest, AGridOfOneRowIsBuiltAgain)
{
    Load(R"(<TARTAB><TGTAB001><ITEM No="1"/></TGTAB001></TARTAB><DUMP No="1"/>)");
    NameDumps({{1, u""}});
    Show(0);
    views_.RulesGrid.TextMatrix(0, 0, u"gone");
    Show(0);
    EXPECT_THAT(Keys(), ElementsAre(u"tgtab001.item"));
}

TEST_F(ShownDumpTest, AMultiTargetObjectShowsTheTableOfTheDump)
{
    LoadWith(R"(<DUMP No="1" TT="tgtab001"/><DUMP No="2" TT="tgtab002" TT_DESC="Codes"><CODE>c</CODE></DUMP>)");
    NameDumps({{1, u""}, {2, u""}});
    OfferTables({u"TGTAB001", u"TGTAB002"});
    Show(0);
    EXPECT_THAT(Keys(), ElementsAre(u"tgtab001.item", u"tgtab001.price(1)"));
    EXPECT_EQ(views_.CmbTargetTable.Text(), u"TGTAB001");
    Show(1);
    EXPECT_THAT(Keys(), ElementsAre(u"tgtab002.code"));
    EXPECT_THAT(Rules(), ElementsAre(u"c"));
    EXPECT_EQ(views_.lstTargetFields.Count(), 1);
    EXPECT_EQ(views_.CmbTargetTable.Text(), u"TGTAB002");
    EXPECT_EQ(views_.LBLTargetTableName.Caption(), u"tgtab002");
    EXPECT_EQ(views_.lblTargetTableDescription.Caption(), u"Codes");
}

TEST_F(ShownDumpTest, ATableWithoutCatalogueEmptiesTheListAndLeavesTheRows)
{
    LoadWith(R"(<DUMP No="1" TT="tgtab001"/><DUMP No="2" TT="other001"/>)");
    NameDumps({{1, u""}, {2, u""}});
    OfferTables({u"TGTAB001"});
    Show(0);
    Show(1);
    EXPECT_EQ(views_.lstTargetFields.Count(), 0);
    EXPECT_EQ(views_.RulesGrid.Rows(), 2);
    EXPECT_EQ(state_.DumpInGrid.Tag(), u"2");
}

TEST_F(ShownDumpTest, RefreshWithoutATagLeavesTheBlankOfEachRow)
{
    LoadWith(R"(<DUMP No="1" TT="tgtab001"><ITEM>i</ITEM></DUMP>)");
    NameDumps({{1, u"| one"}});
    OfferTables({u"other001", u"tgtab001", u"TGTAB001", u"TGTAB001"});
    views_.CmbDump.ListIndex(0);
    shownDump_.RefreshTargetFields();
    EXPECT_THAT(Rules(), ElementsAre(u" ", u" "));
    EXPECT_EQ(views_.CmbDump.ToolTip(), u"| one");
    EXPECT_EQ(views_.CmbTargetTable.ListIndex(), 2); // the first that equals the element's name
}

TEST_F(ShownDumpTest, RefreshDoesNothingForASingleTarget)
{
    LoadWith("");
    views_.lstTargetFields.Add({u"", u"", u"001", u"kept"});
    shownDump_.RefreshTargetFields();
    EXPECT_EQ(views_.lstTargetFields.Count(), 1);
}

TEST_F(ShownDumpTest, RefreshTargetListFillsAnew)
{
    LoadWith("");
    views_.lstTargetFields.Add({u"", u"", u"001", u"gone"});
    shownDump_.RefreshTargetList();
    ASSERT_EQ(views_.lstTargetFields.Count(), 2);
    EXPECT_EQ(views_.lstTargetFields.TextAt(1, 3), u"tgtab001.item");
    Load("");
    shownDump_.RefreshTargetList();
    EXPECT_EQ(views_.lstTargetFields.Count(), 0);
}

TEST_F(ShownDumpTest, TheLabelGoesByTheTagAndTheDescriptionByTheArgument)
{
    LoadWith(R"(<DUMP No="1" TT="tgtab002" TT_DESC="one"/><DUMP No="2" TT="tgtab001" TT_DESC="two"/>)");
    OfferTables({u" tgtab002", u"tgtab002 ", u"TGTAB002"});
    state_.DumpInGrid = GridDump(DumpNumber(1));
    shownDump_.ShowDumpTarget(DumpNumber(2));
    EXPECT_EQ(views_.LBLTargetTableName.Caption(), u"tgtab002");
    EXPECT_EQ(views_.lblTargetTableDescription.Caption(), u"two");
    EXPECT_EQ(views_.CmbTargetTable.ListIndex(), 1); // trimmed, and the last of two
}

TEST_F(ShownDumpTest, AnEmptyTagFailsTheLabels)
{
    LoadWith(R"(<DUMP No="1"/>)");
    EXPECT_EQ(FailureOf([&] { shownDump_.ShowDumpTarget(DumpNumber(1)); }), FailureCode::TypeMismatch);
}

TEST_F(ShownDumpTest, SavingCreatesChangesAndRemovesRecords)
{
    LoadWith(R"(<DUMP No="1"><ITEM TEXT="note" TYPE="0">old</ITEM></DUMP>)");
    NameDumps({{1, u""}});
    Show(0);
    views_.RulesGrid.TextMatrix(0, 1, u"new");
    views_.RulesGrid.TextMatrix(1, 1, u"a\r\nb");
    shownDump_.SaveDumpRules(GridDump(DumpNumber(1)));
    EXPECT_EQ(Dumps(), "<DUMP No=\"1\" TT=\"tgtab001\"><ITEM TEXT=\"note\" TYPE=\"0\">new</ITEM>"
                       "<PRICE__1 TEXT=\"\" TYPE=\"1\">a&#13;\nb</PRICE__1></DUMP>");
    views_.RulesGrid.TextMatrix(0, 1, u"");
    views_.RulesGrid.TextMatrix(1, 1, u"a b");
    shownDump_.SaveDumpRules(GridDump(DumpNumber(1), GridDump::Digits::Two));
    EXPECT_EQ(Dumps(), R"(<DUMP No="1" TT="tgtab001"><PRICE__1 TEXT="" TYPE="0">a b</PRICE__1></DUMP>)");
}

TEST_F(ShownDumpTest, SavingNoDumpDoesNothing)
{
    LoadWith(R"(<DUMP No="0"/>)");
    NameDumps({{1, u""}});
    views_.RulesGrid.AddItem({u"tgtab001.item", u"x"});
    views_.RulesGrid.AddItem({u"tgtab001.price(1)", u"y"});
    shownDump_.SaveDumpRules(GridDump());
    shownDump_.SaveDumpRules(GridDump(DumpNumber(0)));
    EXPECT_EQ(Dumps(), R"(<DUMP No="0"/>)");
}

// The text "00" is not the text "0": it is a dump like any other.
TEST_F(ShownDumpTest, SavingTwoZerosSavesDumpZero)
{
    LoadWith("");
    NameDumps({{0, u""}});
    views_.RulesGrid.AddItem({u"tgtab001.item", u"x"});
    views_.RulesGrid.AddItem({u"tgtab001.price(1)", u""});
    shownDump_.SaveDumpRules(GridDump(DumpNumber(0), GridDump::Digits::Two));
    EXPECT_EQ(Dumps(), R"(<DUMP No="0"><ITEM TEXT="" TYPE="0">x</ITEM></DUMP>)");
}

TEST_F(ShownDumpTest, TheBlankOfANewRowBecomesARecordThatTheNextSaveRemoves)
{
    LoadWith(R"(<DUMP No="1"/>)");
    NameDumps({{1, u""}});
    Show(0);
    views_.RulesGrid.TextMatrix(0, 1, u" ");
    shownDump_.SaveDumpRules(GridDump(DumpNumber(1)));
    EXPECT_EQ(Dumps(), R"(<DUMP No="1" TT="tgtab001"><ITEM TEXT="" TYPE="0"> </ITEM></DUMP>)");
    shownDump_.LoadDumpRules(DumpNumber(1));
    shownDump_.SaveDumpRules(GridDump(DumpNumber(1)));
    EXPECT_EQ(Dumps(), R"(<DUMP No="1" TT="tgtab001"/>)");
}

TEST_F(ShownDumpTest, AFieldPastTheLastRowIsSkippedWithARecordAndFailsWithoutOne)
{
    Load(R"(<TARTAB><TGTAB001><A No="2"/></TGTAB001></TARTAB><DUMP No="1"><A TEXT="n">a</A></DUMP><DUMP No="2"/>)");
    NameDumps({{1, u""}});
    views_.RulesGrid.AddItem({u"tgtab001.a", u"x"});
    const std::string before = Below();
    shownDump_.SaveDumpRules(GridDump(DumpNumber(1)));
    EXPECT_EQ(Below(), before);
    EXPECT_EQ(FailureOf([&] { shownDump_.SaveDumpRules(GridDump(DumpNumber(2))); }),
              FailureCode::InvalidPropertyArrayIndex);
    Load(R"(<TARTAB><TGTAB001><A No="3"/></TGTAB001></TARTAB><DUMP No="2"/>)");
    EXPECT_EQ(FailureOf([&] { shownDump_.SaveDumpRules(GridDump(DumpNumber(2))); }),
              std::nullopt); // two past it is skipped
}

TEST_F(ShownDumpTest, SavingAMissingDumpOfAMultiTargetObjectTakesTheChosenTable)
{
    LoadWith("");
    NameDumps({{2, u""}});
    OfferTables({u"TGTAB002"});
    views_.CmbTargetTable.ListIndex(0);
    views_.RulesGrid.AddItem({u"tgtab002.code", u"c"});
    state_.DumpInGrid = GridDump(DumpNumber(2));
    shownDump_.SaveDumpRules(GridDump(DumpNumber(2)));
    EXPECT_EQ(Dumps(), R"(<DUMP No="2" TT="TGTAB002"><CODE TEXT="" TYPE="0">c</CODE></DUMP>)");
    EXPECT_THAT(platform_.Messages, IsEmpty());
}

TEST_F(ShownDumpTest, SavingAMissingDumpWithoutAChosenTableSaysSoAndSaves)
{
    LoadWith("");
    NameDumps({{2, u""}});
    OfferTables({u"TGTAB001"});
    views_.RulesGrid.AddItem({u"tgtab001.item", u"i"});
    views_.RulesGrid.AddItem({u"tgtab001.price(1)", u""});
    state_.DumpInGrid = GridDump(DumpNumber(2));
    shownDump_.SaveDumpRules(GridDump(DumpNumber(2)));
    ASSERT_EQ(platform_.Messages.size(), 1U);
    EXPECT_EQ(platform_.Messages[0].Text, u"TargetTable for the Dump Not chosen. Please Choose One Now");
    EXPECT_EQ(platform_.Messages[0].Title, u"");
    EXPECT_EQ(platform_.Messages[0].Icon, MessageIcon::Critical);
    EXPECT_THAT(platform_.Messages[0].Buttons, ElementsAre(MessageButton::Ok));
    EXPECT_EQ(views_.MainTab.Tab(), 1);
    EXPECT_EQ(Dumps(), R"(<DUMP No="2" TT="tgtab001"><ITEM TEXT="" TYPE="0">i</ITEM></DUMP>)");
}

TEST_F(ShownDumpTest, SavingAMissingDumpWithoutAChosenTableTurnsToTheTables)
{
    LoadWith(R"(<DUMP No="1" TT="TGTAB001"/>)");
    NameDumps({{1, u""}, {2, u""}});
    OfferTables({u"TGTAB003"});
    views_.CmbTargetTable.Visible(true);
    views_.FrmRules.Enabled(true);
    views_.RulesGrid.AddItem({u"tgtab001.item", u""});
    views_.RulesGrid.AddItem({u"tgtab001.price(1)", u""});
    state_.DumpInGrid = GridDump(DumpNumber(1));
    shownDump_.SaveDumpRules(GridDump(DumpNumber(2)));
    EXPECT_EQ(views_.MainTab.Tab(), 1);
    EXPECT_EQ(views_.Tree.Focused(), &views_.CmbTargetTable);
    EXPECT_EQ(Dumps(), R"(<DUMP No="1" TT="TGTAB001"/><DUMP No="2" TT=""/>)"); // not stamped: dump 1 is the shown one
}

TEST_F(ShownDumpTest, SavingAMissingDumpOfASingleTargetObjectAsksForNoTable)
{
    LoadWith("");
    views_.RulesGrid.AddItem({u"tgtab001.item", u""});
    views_.RulesGrid.AddItem({u"tgtab001.price(1)", u""});
    shownDump_.SaveDumpRules(GridDump(DumpNumber(2)));
    EXPECT_EQ(Dumps(), R"(<DUMP No="2"/>)");
    EXPECT_THAT(platform_.Messages, IsEmpty());
    EXPECT_EQ(views_.MainTab.Tab(), 0);
}

TEST_F(ShownDumpTest, SavingAMissingDumpAppendsItToTheFirstNodeOfTheDocument)
{
    const std::string xml = "<!--c--><tgtab001>" + std::string(Catalogue) + "</tgtab001>";
    ASSERT_TRUE(document_.loadXML(xml));
    EXPECT_EQ(FailureOf([&] { shownDump_.SaveDumpRules(GridDump(DumpNumber(2))); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(document_.xmlUtf8(), xml);
}

TEST_F(ShownDumpTest, LeavingTheListMakesTheChosenDumpTheShownOneBeforeItLoads)
{
    LoadWith(R"(<DUMP No="1" TT="TGTAB001"/><DUMP No="2" TT="TGTAB002"><CODE>c</CODE></DUMP>)");
    NameDumps({{1, u""}, {2, u""}});
    OfferTables({u"TGTAB001", u"TGTAB002"});
    Show(0);
    views_.CmbDump.ListIndex(1); // as after a choice that failed before it set the tag
    shownDump_.CmbDump_LostFocus();
    EXPECT_EQ(state_.DumpInGrid.Tag(), u"2");
    EXPECT_THAT(Keys(), ElementsAre(u"tgtab002.code"));
    EXPECT_THAT(Rules(), ElementsAre(u"c"));
}

TEST_F(ShownDumpTest, AChoiceSavesTheOldDumpAndNamesTheNewOne)
{
    LoadWith(R"(<DUMP No="1"/><DUMP No="2" TT="tgtab002" TT_DESC="Codes"/>)");
    NameDumps({{1, u""}, {2, u""}});
    Show(0);
    views_.RulesGrid.TextMatrix(0, 1, u"i");
    views_.CmbDump.ListIndex(1);
    views_.lblTargetTable.Visible(true);
    shownDump_.CmbDump_Click();
    EXPECT_EQ(Dumps(), R"(<DUMP No="1" TT="tgtab001"><ITEM TEXT="" TYPE="0">i</ITEM></DUMP>)"
                       R"(<DUMP No="2" TT="tgtab002" TT_DESC="Codes"/>)");
    EXPECT_EQ(state_.DumpInGrid.Tag(), u"2");
    EXPECT_EQ(views_.LBLTargetTableName.Caption(), u"tgtab002");
    EXPECT_EQ(views_.lblTargetTableDescription.Caption(), u"Codes");
    EXPECT_THAT(Rules(), ElementsAre(u"i", u"")); // the load comes with the lost focus
    shownDump_.CmbDump_LostFocus();
    EXPECT_THAT(Rules(), ElementsAre(u"", u""));
}

TEST_F(ShownDumpTest, ShowNamesTheTableWithoutTheDescription)
{
    LoadWith(R"(<DUMP No="1"/><DUMP No="2" TT="tgtab002" TT_DESC="Codes"/>)");
    NameDumps({{1, u""}, {2, u""}});
    Show(0);
    views_.CmbDump.ListIndex(1);
    views_.lblTargetTable.Visible(true);
    views_.lblTargetTableDescription.Caption(u"before");
    shownDump_.Command1_Click();
    EXPECT_EQ(views_.LBLTargetTableName.Caption(), u"tgtab002");
    EXPECT_EQ(views_.lblTargetTableDescription.Caption(), u"before");
    EXPECT_EQ(state_.DumpInGrid.Tag(), u"2");
}

TEST_F(ShownDumpTest, AFirstChoiceSavesNothing)
{
    LoadWith("");
    NameDumps({{1, u""}});
    views_.CmbDump.ListIndex(0);
    views_.lblTargetTable.Visible(true);
    shownDump_.CmbDump_Click();
    EXPECT_EQ(state_.DumpInGrid.Tag(), u"1");
    EXPECT_EQ(views_.LBLTargetTableName.Caption(), u"");
    EXPECT_EQ(Dumps(), "");
}

TEST_F(ShownDumpTest, LeavingTheComboLoadsOnlyAnotherDump)
{
    LoadWith(R"(<DUMP No="1"/><DUMP No="2"/>)");
    NameDumps({{1, u"a:b"}, {2, u""}});
    shownDump_.CmbDump_LostFocus(); // no dump shown yet
    EXPECT_EQ(state_.DumpInGrid.Tag(), u"");
    Show(0);
    views_.RulesGrid.TextMatrix(0, 1, u"typed");
    shownDump_.CmbDump_LostFocus();
    EXPECT_EQ(Rules().front(), u"typed");
    views_.CmbDump.Clear();
    shownDump_.CmbDump_LostFocus();
    EXPECT_EQ(Rules().front(), u"typed");
}

TEST_F(ShownDumpTest, NoDumpIsInTheDetailsAtFirst)
{
    EXPECT_EQ(FailureOf([&] { static_cast<void>(shownDump_.DumpInDetails()); }), FailureCode::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(shownDump_.SelectedDump()); }), FailureCode::ObjectVariableNotSet);
}

} // namespace
} // namespace rulemesh
