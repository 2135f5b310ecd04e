#include "script/source_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "support/script_bench.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SourceTablesTest : public ScriptBench {
protected:
    void Fill(std::initializer_list<TextView> rows)
    {
        list_.Clear();
        for (const TextView row : rows)
            list_.Add({Text(row)});
    }

    void Delete(int row)
    {
        list_.Select(row, true);
        sourceTables_.lstSourceTables_KeyDown(46);
    }

    [[nodiscard]] std::vector<Text> Rows() const { return RowsOf(list_); }

    ListView& list_ = views_.lstSourceTables;
};

TEST_F(SourceTablesTest, ReadAsEmptyWithoutTheElement) { EXPECT_EQ(sourceTables_.SourceTables(), u""); }

TEST_F(SourceTablesTest, GetTheirElementAtTheFirstRefresh)
{
    sourceTables_.RefreshSourceTables();
    EXPECT_EQ(Below(), "<SRCTBL/>");
    EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(SourceTablesTest, HaveNoRowsForAnEmptyText)
{
    sourceTables_.SourceTables(u"");
    EXPECT_THAT(Rows(), IsEmpty());
    EXPECT_EQ(sourceTables_.SourceTables(), u"");
}

TEST_F(SourceTablesTest, FillAnEmptyListWithEveryPart)
{
    Load("<SRCTBL>abcde123,fghij456</SRCTBL>");
    sourceTables_.RefreshSourceTables();
    EXPECT_THAT(Rows(), ElementsAre(u"abcde123", u"fghij456"));
    EXPECT_EQ(Below(), "<SRCTBL>abcde123,fghij456</SRCTBL>");
}

TEST_F(SourceTablesTest, KeepARowThatTheTextLacks)
{
    Fill({u"A", u"B"});
    sourceTables_.SourceTables(u"B");
    EXPECT_THAT(Rows(), ElementsAre(u"A", u"B"));
    EXPECT_EQ(sourceTables_.SourceTables(), u"A,B");
}

TEST_F(SourceTablesTest, AddNewPartsBehindTheRows)
{
    Fill({u"A", u"B"});
    sourceTables_.SourceTables(u"B,C");
    EXPECT_THAT(Rows(), ElementsAre(u"A", u"B", u"C"));
    EXPECT_EQ(sourceTables_.SourceTables(), u"A,B,C");
}

TEST_F(SourceTablesTest, KeepAnEmptyRowForADoubledCommaInAnEmptyList)
{
    sourceTables_.SourceTables(u"A,,B");
    EXPECT_THAT(Rows(), ElementsAre(u"A", u"", u"B"));
    EXPECT_EQ(sourceTables_.SourceTables(), u"A,,B");
}

TEST_F(SourceTablesTest, PassOverAnEmptyOrBlankPartWhenThereAreRows)
{
    Fill({u"A"});
    sourceTables_.SourceTables(u"A,,B,   ,C");
    EXPECT_THAT(Rows(), ElementsAre(u"A", u"B", u"C"));
}

TEST_F(SourceTablesTest, LoseALeadingCommaButNotItsRow)
{
    sourceTables_.SourceTables(u",A");
    EXPECT_THAT(Rows(), ElementsAre(u"", u"A"));
    EXPECT_EQ(sourceTables_.SourceTables(), u"A");
}

TEST_F(SourceTablesTest, LoseEveryLeadingComma)
{
    sourceTables_.SourceTables(u",,A,,B,");
    EXPECT_THAT(Rows(), ElementsAre(u"", u"", u"A", u"", u"B", u""));
    EXPECT_EQ(sourceTables_.SourceTables(), u"A,,B,");
}

TEST_F(SourceTablesTest, TakeTheSameNameTwiceIntoAnEmptyListAndOnceIntoAnother)
{
    sourceTables_.SourceTables(u"A,A");
    EXPECT_THAT(Rows(), ElementsAre(u"A", u"A"));
    Fill({u"B"});
    sourceTables_.SourceTables(u"A,A");
    EXPECT_THAT(Rows(), ElementsAre(u"B", u"A"));
}

TEST_F(SourceTablesTest, DropLineEndsInsideAPart)
{
    sourceTables_.SourceTables(u"A,\r\nB,C\nD");
    EXPECT_THAT(Rows(), ElementsAre(u"A", u"B", u"CD"));
    EXPECT_EQ(sourceTables_.SourceTables(), u"A,B,CD");
}

TEST_F(SourceTablesTest, CompareRowsWithoutTheLineEndsOfAPart)
{
    Fill({u"A", u"B"});
    sourceTables_.SourceTables(u"A,\r\nB,\r\nC");
    EXPECT_THAT(Rows(), ElementsAre(u"A", u"B", u"C"));
}

TEST_F(SourceTablesTest, KeepBlanksInsideTheText)
{
    sourceTables_.SourceTables(u"A, B ,C");
    EXPECT_THAT(Rows(), ElementsAre(u"A", u" B ", u"C"));
    EXPECT_EQ(sourceTables_.SourceTables(), u"A, B ,C");
}

TEST_F(SourceTablesTest, KeepNamesThatDifferInCaseApart)
{
    Fill({u"A"});
    sourceTables_.SourceTables(u"a");
    EXPECT_THAT(Rows(), ElementsAre(u"A", u"a"));
}

TEST_F(SourceTablesTest, LeaveTheTextOfAnEmptyListAsItIs)
{
    Load("<SRCTBL>  <x/> </SRCTBL>");
    sourceTables_.RefreshSourceTables();
    EXPECT_EQ(Below(), "<SRCTBL>  <x/> </SRCTBL>");
}

TEST_F(SourceTablesTest, StandBelowTheRootBehindADeclarationToo)
{
    ASSERT_TRUE(document_.loadXML(u"<?xml version=\"1.0\"?><tgtab001/>"));
    sourceTables_.SourceTables(u"A");
    EXPECT_EQ(document_.xml(), u"<?xml version=\"1.0\"?><tgtab001><SRCTBL>A</SRCTBL></tgtab001>");
}

TEST_F(SourceTablesTest, RaiseAFailureOnAnEmptyDocument)
{
    ASSERT_FALSE(document_.loadXML(u""));
    EXPECT_EQ(FailureOf([this] { sourceTables_.SourceTables(u"A"); }), FailureCode::ObjectVariableNotSet);
    EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(SourceTablesTest, SetTheSortingOfTheSourceFieldsBack)
{
    ListView& fields = views_.lstSourceFields;
    fields.Sorted(false);
    fields.SortOrder(ListView::Order::Descending);
    fields.SortKey(4);
    sourceTables_.RefreshSourceTables();
    EXPECT_TRUE(fields.Sorted());
    EXPECT_EQ(fields.SortOrder(), ListView::Order::Ascending);
    EXPECT_EQ(fields.SortKey(), 1);
}

TEST_F(SourceTablesTest, LoseTheSelectedRowOnDelete)
{
    sourceTables_.SourceTables(u"A,B,C");
    Delete(2);
    EXPECT_THAT(Rows(), ElementsAre(u"A", u"C"));
    EXPECT_EQ(sourceTables_.SourceTables(), u"A,C");
    EXPECT_EQ(list_.SelectedRow(), 0);
}

TEST_F(SourceTablesTest, EmptyTheTextWithTheLastRow)
{
    sourceTables_.SourceTables(u"A");
    Delete(1);
    EXPECT_THAT(Rows(), IsEmpty());
    EXPECT_EQ(sourceTables_.SourceTables(), u"");
}

TEST_F(SourceTablesTest, LoseTheBlanksOfTheLastRowInTheReversedTextOfADelete)
{
    sourceTables_.SourceTables(u"X,A, B");
    Delete(1); // the text is " B,A" for a moment, which reads as "B,A": B is a name that no row has
    EXPECT_THAT(Rows(), ElementsAre(u"A", u" B", u"B"));
}

TEST_F(SourceTablesTest, StayOnDeleteWithoutASelection)
{
    sourceTables_.SourceTables(u"A,B");
    sourceTables_.lstSourceTables_KeyDown(46);
    EXPECT_THAT(Rows(), ElementsAre(u"A", u"B"));
}

TEST_F(SourceTablesTest, StayOnAnyOtherKey)
{
    sourceTables_.SourceTables(u"A,B");
    list_.Select(1, true);
    sourceTables_.lstSourceTables_KeyDown(8);
    EXPECT_THAT(Rows(), ElementsAre(u"A", u"B"));
}

TEST_F(SourceTablesTest, LoseARowOnDeleteInAReadOnlyControlToo)
{
    state_.BoolEdit = false;
    sourceTables_.SourceTables(u"A,B");
    Delete(1);
    EXPECT_EQ(sourceTables_.SourceTables(), u"B");
}

TEST_F(SourceTablesTest, StayAwayAfterDeleteUntilTheNextAnalysis)
{
    Load("<PREC>migrate abcde123</PREC><SRCTBL>A,abcde123</SRCTBL>");
    sourceTables_.RefreshSourceTables();
    Delete(2);
    EXPECT_THAT(Rows(), ElementsAre(u"A"));
    preConditions_.AnalysePreCondition();
    EXPECT_THAT(Rows(), ElementsAre(u"A", u"abcde123"));
}

TEST_F(SourceTablesTest, AreTheHostsToChooseWithThePresentText)
{
    Load("<SRCTBL>A,B</SRCTBL>");
    sourceTables_.CmdSelectSource_Click();
    EXPECT_THAT(events_.Raised, ElementsAre(u"ShowSourceTablesPopUp(A,B)"));
    EXPECT_THAT(Rows(), IsEmpty());
}

} // namespace
} // namespace rulemesh
