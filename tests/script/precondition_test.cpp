#include "script/precondition.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "support/script_bench.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr TextView Warning = u"notice: Migrate statement(s) removed, \r\nScript will be deleted if Press 'OK', Cancel "
                             u"will undo the changes :  [PreCondition warning] OK Cancel";

class PreConditionsTest : public ScriptBench {
protected:
    // An object with this precondition, shown and analysed as at the start.
    void Open(const std::string& precondition, const std::string& below = "")
    {
        Load("<PREC>" + precondition + "</PREC>" + below);
        preConditions_.ShowPreCondition();
        preConditions_.AnalysePreCondition();
        static_cast<void>(Boxes());
    }

    // The user retypes the script and leaves the box.
    void Save(TextView StrText, std::deque<MessageButton> answers = {})
    {
        platform_.Buttons = std::move(answers);
        box_.Text(Text(StrText));
        preConditions_.SavePreCondition();
    }

    [[nodiscard]] Text Stored() const { return object_.Read().GetPreconditionText(); }

    SyntaxBox& box_ = views_.txtPreCondition;
    static constexpr MessageButton Cancel = MessageButton::Cancel;
};

TEST_F(PreConditionsTest, ShowsTheStoredScriptDecoded)
{
    Load("<PREC>a &amp;lt; b\nc</PREC>");
    preConditions_.ShowPreCondition();
    EXPECT_EQ(box_.Text(), u"a < b\r\nc");
}

TEST_F(PreConditionsTest, SavesAnUnchangedScriptWithoutAWarning)
{
    Open("migrate abcde123");
    preConditions_.SavePreCondition();
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(Stored(), u"migrate abcde123");
    EXPECT_THAT(state_.StrMigrateTables, ElementsAre(u"abcde123"));
}

// The lists are reset, then the element's text is read, and only then is anything looked through.
TEST_F(PreConditionsTest, AnAbsentElementFailsBetweenTheResetOfTheListsAndTheSearch)
{
    Open("migrate abcde123");
    preConditions_.SavePreCondition();
    Load("");
    EXPECT_EQ(FailureOf([&] { Save(u"migrate wrong"); }), FailureCode::ObjectVariableNotSet);
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_THAT(state_.StrPriorMigrateTables, ElementsAre(u""));
    EXPECT_THAT(state_.StrNewMigrateTables, ElementsAre(u""));
    EXPECT_THAT(state_.StrMigrateTables, ElementsAre(u"abcde123"));
    EXPECT_EQ(state_.IntErrorCode, 0);
}

// Refusing a table gives the box the focus, and the host may answer that with another script.
TEST_F(PreConditionsTest, ReadsTheScriptToItsEndThoughTheHostSetsAnother)
{
    Open("");
    views_.lstSourceTables.SetFocus();
    const Text StrScript = u"migrate wrong " + Text(2000, u'x') + u" migrate abcde123";
    box_.GotFocus = [&] {
        for (int again = 0; again < 4; ++again) // over and over, so that what the script leaves is written on
            box_.Text(Text(StrScript.size(), u'y'));
    };
    Save(StrScript);
    EXPECT_THAT(state_.StrNewMigrateTables, ElementsAre(u"abcde123"));
}

TEST_F(PreConditionsTest, StoresWithoutAWarningWhenAStatementIsAdded)
{
    Open("migrate abcde123");
    Save(u"migrate abcde123 migrate fghij456");
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(Stored(), u"migrate abcde123 migrate fghij456");
}

TEST_F(PreConditionsTest, WarnsWhenAStatementIsGone)
{
    Open("migrate abcde123 migrate fghij456");
    Save(u"migrate abcde123");
    EXPECT_THAT(Boxes(), ElementsAre(Warning));
}

TEST_F(PreConditionsTest, KeepsTheScriptOfALostTableOnOk)
{
    Open("migrate abcde123 migrate fghij456", R"(<QUERY ST="fghij456">x</QUERY>)");
    Save(u"migrate abcde123", {MessageButton::Ok});
    EXPECT_EQ(Stored(), u"migrate abcde123");
    EXPECT_THAT(RowsOf(views_.lstMigrateSource), ElementsAre(u"migrate abcde123", u""));
    EXPECT_EQ(object_.Read().GetQueryText(u"fghij456"), u"x");
}

TEST_F(PreConditionsTest, BringsTheStoredScriptBackOnCancel)
{
    Open("migrate abcde123 migrate fghij456");
    Save(u"migrate abcde123", {Cancel});
    EXPECT_EQ(box_.Text(), u"migrate abcde123 migrate fghij456");
    EXPECT_EQ(Stored(), u"migrate abcde123 migrate fghij456");
    EXPECT_THAT(RowsOf(views_.lstMigrateSource), ElementsAre(u"migrate abcde123", u"", u"migrate fghij456", u""));
}

TEST_F(PreConditionsTest, BringsTheStoredScriptBackUndecoded)
{
    Open("migrate abcde123 &amp;amp;\nx");
    Save(u"x", {Cancel});
    EXPECT_EQ(box_.Text(), u"migrate abcde123 &amp;\nx");
}

TEST_F(PreConditionsTest, AnalysesTwiceOnCancel)
{
    Open("migrate abcde123 migrate abc");
    Save(u"x", {Cancel});
    const Text complaint = u"critical: Table Name not Valid";
    EXPECT_THAT(Boxes(), ElementsAre(complaint, Warning, complaint, complaint));
}

TEST_F(PreConditionsTest, AnalysesOnceOnOk)
{
    Open("migrate abcde123");
    Save(u"migrate abc", {MessageButton::Ok});
    const Text complaint = u"critical: Table Name not Valid";
    EXPECT_THAT(Boxes(), ElementsAre(complaint, Warning, complaint));
}

TEST_F(PreConditionsTest, ComplainsAboutTheStoredTextFirst)
{
    Open("migrate abcd1234 migrate abcde123");
    Save(u"migrate abcde12x migrate abcde123");
    EXPECT_THAT(Boxes(),
                ElementsAre(u"critical: Invalid table name 'abcd1234'", u"critical: Invalid table name 'abcde12x'",
                            u"critical: Invalid table name 'abcde12x'"));
}

TEST_F(PreConditionsTest, WarnsWhenAllTextIsDeleted)
{
    Open("migrate abcde123", R"(<QUERY ST="abcde123">x</QUERY>)");
    ASSERT_EQ(views_.txtMainQuery.Text(), u"x");
    Save(u"", {MessageButton::Ok});
    EXPECT_THAT(Boxes(), ElementsAre(Warning));
    EXPECT_EQ(Stored(), u"");
    EXPECT_EQ(views_.txtMainQuery.Text(), u"");
    EXPECT_EQ(state_.QueryTable.Written(), u"");
}

TEST_F(PreConditionsTest, WarnsWhenTheTextIsReplacedByBlanks)
{
    Open("migrate abcde123");
    Save(u"   ");
    EXPECT_THAT(Boxes(), ElementsAre(Warning));
}

TEST_F(PreConditionsTest, DoesNotWarnOfATableReplacedInPlace)
{
    Open("migrate abcde123");
    Save(u"migrate fghij456");
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(state_.QueryTable.Written(), u"fghij456");
}

TEST_F(PreConditionsTest, DoesNotWarnWithoutMigrateTables)
{
    Open("select");
    Save(u"");
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(Stored(), u"");
}

TEST_F(PreConditionsTest, CountsARepeatedStatementOnce)
{
    Open("migrate abcde123 migrate abcde123");
    Save(u"migrate abcde123");
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(PreConditionsTest, RaisesAFailureForAnObjectWithoutPrecondition)
{
    Load("<SRCTBL/>");
    EXPECT_EQ(FailureOf([this] { preConditions_.SavePreCondition(); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(Below(), "<SRCTBL/>");
}

TEST_F(PreConditionsTest, AddsAnUnknownTableToTheSourceTablesAndShutsTheRules)
{
    Open("", "<SRCTBL>abcde123</SRCTBL><SRCTAB><FGHIJ456/></SRCTAB>");
    Save(u"migrate fghij456");
    EXPECT_EQ(object_.Read().GetSourceTablesText(), u"abcde123,fghij456");
    EXPECT_THAT(RowsOf(views_.lstSourceTables), ElementsAre(u"abcde123", u"fghij456"));
    EXPECT_FALSE(views_.MainTab.TabEnabled(1));
}

TEST_F(PreConditionsTest, StartsTheSourceTablesWithAnUnknownTable)
{
    Open("migrate abcde123");
    EXPECT_EQ(object_.Read().GetSourceTablesText(), u"abcde123");
}

TEST_F(PreConditionsTest, AddsOneUnknownTableEachRun)
{
    Open("migrate abcde123 migrate fghij456");
    EXPECT_EQ(object_.Read().GetSourceTablesText(), u"abcde123");
    preConditions_.AnalysePreCondition();
    EXPECT_EQ(object_.Read().GetSourceTablesText(), u"abcde123,fghij456");
}

TEST_F(PreConditionsTest, OpensTheRulesInTheRunAfterTheCatalogueIsThere)
{
    Open("migrate abcde123", "<SRCTAB><ABCDE123/></SRCTAB>");
    EXPECT_FALSE(views_.MainTab.TabEnabled(1));
    preConditions_.AnalysePreCondition();
    EXPECT_TRUE(views_.MainTab.TabEnabled(1));
}

TEST_F(PreConditionsTest, ShutsTheRulesForATableThatTheCatalogueLacks)
{
    Open("migrate abcde123 migrate fghij456", "<SRCTBL>abcde123,fghij456</SRCTBL><SRCTAB><ABCDE123/></SRCTAB>");
    EXPECT_FALSE(views_.MainTab.TabEnabled(1));
}

TEST_F(PreConditionsTest, ComparesSourceTablesExactlyAndTheCatalogueInUpperCase)
{
    Open("migrate abcde123", "<SRCTBL>ABCDE123</SRCTBL><SRCTAB><ABCDE123/></SRCTAB>");
    EXPECT_EQ(object_.Read().GetSourceTablesText(), u"ABCDE123,abcde123");
    EXPECT_FALSE(views_.MainTab.TabEnabled(1));
    preConditions_.AnalysePreCondition();
    EXPECT_TRUE(views_.MainTab.TabEnabled(1));
}

TEST_F(PreConditionsTest, LooksForATableBetweenTheCommasAsTheyStand)
{
    Open("migrate fghij456", "<SRCTBL>abcde123, fghij456</SRCTBL>");
    EXPECT_EQ(object_.Read().GetSourceTablesText(), u"abcde123, fghij456,fghij456");
}

TEST_F(PreConditionsTest, LeavesTheRulesAsTheyAreWithoutAMigrateStatement)
{
    Open("select");
    EXPECT_TRUE(views_.MainTab.TabEnabled(1));
    views_.MainTab.TabEnabled(1, false);
    preConditions_.AnalysePreCondition();
    EXPECT_FALSE(views_.MainTab.TabEnabled(1));
}

TEST_F(PreConditionsTest, EmptiesTheMainQueryWithoutAMigrateStatement)
{
    Open("migrate abcde123", R"(<QUERY ST="abcde123">x</QUERY>)");
    access_.GetNode(u"/tgtab001/PREC").text(u"select");
    preConditions_.AnalysePreCondition();
    EXPECT_EQ(views_.txtMainQuery.Text(), u"");
    EXPECT_EQ(state_.QueryTable.Written(), u"");
    EXPECT_THAT(RowsOf(views_.lstMigrateSource), IsEmpty());
}

TEST_F(PreConditionsTest, ShowsTheFirstTableThatIsLeft)
{
    Open("migrate abcde123 migrate fghij456", R"(<QUERY ST="fghij456">y</QUERY>)");
    Save(u"migrate fghij456", {MessageButton::Ok});
    EXPECT_EQ(state_.QueryTable.Written(), u"fghij456");
    EXPECT_EQ(views_.txtMainQuery.Text(), u"y");
}

TEST_F(PreConditionsTest, LeavesTheShownTableWhileItIsMigrated)
{
    Open("migrate abcde123 migrate fghij456");
    state_.QueryTable = TableCode(u"fghij456");
    views_.txtMainQuery.Text(u"being edited");
    preConditions_.AnalysePreCondition();
    EXPECT_EQ(views_.txtMainQuery.Text(), u"being edited");
}

TEST_F(PreConditionsTest, NamesNoTablesForAScriptOfMoreThan32767Characters)
{
    Open("migrate abcde123 " + std::string(32768, 'x'));
    EXPECT_THAT(state_.StrMigrateTables, ElementsAre(u""));
    EXPECT_EQ(state_.IntErrorCode, 6);
    EXPECT_TRUE(views_.MainTab.TabEnabled(1));
}

TEST_F(PreConditionsTest, SetsTheHostsTextDecodedAndSavesIt)
{
    Open("");
    views_.CmdBuildPre.Enabled(false);
    preConditions_.PreCondition(u"a &lt; b");
    EXPECT_EQ(box_.Text(), u"a < b");
    EXPECT_EQ(Stored(), u"a < b");
    EXPECT_TRUE(views_.CmdBuildPre.Enabled());
}

TEST_F(PreConditionsTest, HasANoteOnlyWithAnElementAndAText)
{
    EXPECT_FALSE(preConditions_.HasPreConditionNote());
    Load("<PREC/>");
    EXPECT_FALSE(preConditions_.HasPreConditionNote());
    Load("<PREC TEXT=\"\"/>");
    EXPECT_FALSE(preConditions_.HasPreConditionNote());
    Load("<PREC TEXT=\"note\"/>");
    EXPECT_TRUE(preConditions_.HasPreConditionNote());
}

TEST_F(PreConditionsTest, EnablesTheNoteButtonOnFocusByTheNoteWhenReadOnly)
{
    state_.BoolEdit = false;
    Load("<PREC/>");
    preConditions_.txtPreCondition_GotFocus();
    EXPECT_FALSE(views_.CmdPreDoc.Enabled());
    Load("<PREC TEXT=\"note\"/>");
    preConditions_.txtPreCondition_GotFocus();
    EXPECT_TRUE(views_.CmdPreDoc.Enabled());
}

TEST_F(PreConditionsTest, LeavesNoteButtonAndLockOnFocusWhenTheUserMayEdit)
{
    Load("<PREC/>");
    box_.Locked(true);
    preConditions_.txtPreCondition_GotFocus();
    EXPECT_TRUE(views_.CmdPreDoc.Enabled());
    EXPECT_TRUE(box_.Locked());
}

TEST_F(PreConditionsTest, AsksTheHostWithTheStoredText)
{
    Load("<PREC>stored</PREC><SRCTBL>abcde123</SRCTBL>");
    box_.Text(u"typed");
    preConditions_.CmdBuildPre_Click();
    EXPECT_THAT(events_.Raised, ElementsAre(u"ShowConditionBuilderPopUp(stored, abcde123)"));
}

TEST_F(PreConditionsTest, MovesTheFocusAheadWithControlAndBackWithShift)
{
    std::int16_t KeyCode = 9;
    preConditions_.txtPreCondition_KeyDown(KeyCode, 2);
    EXPECT_EQ(KeyCode, 0);
    EXPECT_TRUE(views_.CmdSelectSource.HasFocus());
    KeyCode = 9;
    preConditions_.txtPreCondition_KeyDown(KeyCode, 1);
    EXPECT_EQ(KeyCode, 0);
    EXPECT_TRUE(views_.lstSourceTables.HasFocus());
}

TEST_F(PreConditionsTest, OnlyLosesTheTabKeyWithOtherShiftStates)
{
    std::int16_t KeyCode = 9;
    preConditions_.txtPreCondition_KeyDown(KeyCode, 3);
    EXPECT_EQ(KeyCode, 0);
    EXPECT_EQ(views_.Tree.Focused(), nullptr);
}

TEST_F(PreConditionsTest, LeavesAPlainTabToTheBox)
{
    std::int16_t KeyCode = 9;
    preConditions_.txtPreCondition_KeyDown(KeyCode, 0);
    EXPECT_EQ(KeyCode, 9);
}

} // namespace
} // namespace rulemesh
