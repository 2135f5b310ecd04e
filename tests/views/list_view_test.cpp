#include "views/list_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "support/view_desk.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;

struct ListViewTest : testing::Test, ViewDesk {
    ListView Many{
        Tree,
        {.Name = u"many", .Parent = &FirstPane},
        {.Columns = {{u"Name", 100}, {u"Note", 200}}, .Select = ListView::Selection::Multiple, .CheckBoxes = true}};

    // The texts of one column from the first row to the last.
    static std::vector<Text> Column(const ListView& list, int position)
    {
        std::vector<Text> texts;
        for (int row = 1; row <= list.Count(); ++row)
            texts.push_back(list.TextAt(row, position));
        return texts;
    }

    static std::vector<int> Selected(const ListView& list)
    {
        std::vector<int> rows;
        for (int row = 1; row <= list.Count(); ++row) {
            if (list.At(row).Selected)
                rows.push_back(row);
        }
        return rows;
    }

    static void Fill(ListView& list, std::initializer_list<TextView> names)
    {
        for (const TextView name : names)
            list.Add({Text(name)});
    }

    // Rows whose first texts collide; the second tells the order in which they were added.
    static void FillWithEqualNames(ListView& list)
    {
        list.Add({u"b", u"1"});
        list.Add({u"a", u"2"});
        list.Add({u"b", u"3"});
        list.Add({u"a", u"4"});
        list.Add({u"b", u"5"});
    }
};

TEST_F(ListViewTest, CountsRowsFromOne)
{
    Fill(Rows, {u"x", u"y"});
    EXPECT_EQ(Rows.Count(), 2);
    EXPECT_EQ(Rows.TextAt(1, 0), u"x");
    EXPECT_EQ(Rows.TextAt(2, 0), u"y");
}

TEST_F(ListViewTest, KeepsTheOrderOfAddingWhileItIsNotSorted)
{
    Fill(Rows, {u"z", u"a", u"m"});
    EXPECT_THAT(Column(Rows, 0), ElementsAre(u"z", u"a", u"m"));
}

TEST_F(ListViewTest, SortsAscendingByTheTextOfItsSortColumn)
{
    Rows.Sorted(true);
    Fill(Rows, {u"z", u"a", u"m"});
    EXPECT_THAT(Column(Rows, 0), ElementsAre(u"a", u"m", u"z"));
}

TEST_F(ListViewTest, KeepsRowsOfEqualTextInTheOrderOfAddingAscending)
{
    Rows.Sorted(true);
    FillWithEqualNames(Rows);
    EXPECT_THAT(Column(Rows, 1), ElementsAre(u"2", u"4", u"1", u"3", u"5"));
}

TEST_F(ListViewTest, KeepsRowsOfEqualTextInTheOrderOfAddingDescending)
{
    Rows.Sorted(true);
    Rows.SortOrder(ListView::Order::Descending);
    FillWithEqualNames(Rows);
    EXPECT_THAT(Column(Rows, 1), ElementsAre(u"1", u"3", u"5", u"2", u"4"));
}

TEST_F(ListViewTest, GoesBackToTheOrderOfAddingForEqualTextHoweverOftenItIsSorted)
{
    Rows.Sorted(true);
    FillWithEqualNames(Rows);
    Rows.SortKey(1);
    Rows.SortOrder(ListView::Order::Descending);
    ASSERT_THAT(Column(Rows, 1), ElementsAre(u"5", u"4", u"3", u"2", u"1"));
    Rows.SortKey(0);
    Rows.SortOrder(ListView::Order::Ascending);
    EXPECT_THAT(Column(Rows, 1), ElementsAre(u"2", u"4", u"1", u"3", u"5"));
}

TEST_F(ListViewTest, ComparesCodeUnitByCodeUnit)
{
    Rows.Sorted(true);
    // U+FF5E lies above the surrogates with which U+1F600 is written, though U+1F600 is the greater code point.
    Fill(Rows, {u"\uFF5E", u"\U0001F600", u"b", u"a", u"B", u"\u00E4", u"", u"aa", u"10", u"9"});
    EXPECT_THAT(Column(Rows, 0),
                ElementsAre(u"", u"10", u"9", u"B", u"a", u"aa", u"b", u"\u00E4", u"\U0001F600", u"\uFF5E"));
}

TEST_F(ListViewTest, SortsRowsWithoutATextInTheColumnFirst)
{
    Rows.Sorted(true);
    Rows.SortKey(1);
    Rows.Add({u"with", u"x"});
    Rows.Add({u"without"});
    EXPECT_THAT(Column(Rows, 0), ElementsAre(u"without", u"with"));
}

TEST_F(ListViewTest, SortsARowThatIsAddedAfterItWasRead)
{
    Rows.Sorted(true);
    Fill(Rows, {u"b", u"c"});
    ASSERT_THAT(Column(Rows, 0), ElementsAre(u"b", u"c"));
    Fill(Rows, {u"a"});
    EXPECT_THAT(Column(Rows, 0), ElementsAre(u"a", u"b", u"c"));
}

TEST_F(ListViewTest, ShowsTheOrderOfAddingAgainWhenSortingIsSwitchedOff)
{
    Rows.Sorted(true);
    Fill(Rows, {u"z", u"a"});
    ASSERT_THAT(Column(Rows, 0), ElementsAre(u"a", u"z"));
    Rows.Sorted(false);
    EXPECT_THAT(Column(Rows, 0), ElementsAre(u"z", u"a"));
}

TEST_F(ListViewTest, InsertsARowAtItsNumber)
{
    Fill(Rows, {u"a", u"c"});
    Rows.Insert(2, {u"b"});
    Rows.Insert(4, {u"d"});
    EXPECT_THAT(Column(Rows, 0), ElementsAre(u"a", u"b", u"c", u"d"));
}

TEST_F(ListViewTest, RemovesTheRowOfThatNumberInTheOrderShown)
{
    Rows.Sorted(true);
    Fill(Rows, {u"z", u"a", u"m"});
    Rows.Remove(1);
    EXPECT_THAT(Column(Rows, 0), ElementsAre(u"m", u"z"));
}

TEST_F(ListViewTest, ReadsATextThatARowLacksAsEmpty)
{
    Fill(Rows, {u"a"});
    EXPECT_EQ(Rows.TextAt(1, 1), u"");
}

TEST_F(ListViewTest, RaisesAFailureForARowOutOfItsRange)
{
    Fill(Rows, {u"a"});
    for (const int row : {-1, 0, 2}) {
        EXPECT_EQ(FailureOf([&] { static_cast<void>(Rows.At(row)); }), FailureCode::IndexOutOfBounds);
        EXPECT_EQ(FailureOf([&] { static_cast<void>(Rows.TextAt(row, 0)); }), FailureCode::IndexOutOfBounds);
        EXPECT_EQ(FailureOf([&] { Rows.Remove(row); }), FailureCode::IndexOutOfBounds);
        EXPECT_EQ(FailureOf([&] { Rows.Select(row, true); }), FailureCode::IndexOutOfBounds);
        EXPECT_EQ(FailureOf([&] { Rows.Check(row, true); }), FailureCode::IndexOutOfBounds);
        EXPECT_EQ(FailureOf([&] { Rows.EnsureVisible(row); }), FailureCode::IndexOutOfBounds);
    }
    for (const int row : {0, 3})
        EXPECT_EQ(FailureOf([&] { Rows.Insert(row, {u"b"}); }), FailureCode::IndexOutOfBounds);
    EXPECT_EQ(static_cast<int>(FailureCode::IndexOutOfBounds), 35600);
    EXPECT_EQ(Rows.Count(), 1);
}

TEST_F(ListViewTest, TakesTheSelectionFromTheOthersWhenOnlyOneCanHaveIt)
{
    Fill(Rows, {u"a", u"b", u"c"});
    Rows.Select(1, true);
    Rows.Select(3, true);
    EXPECT_THAT(Selected(Rows), ElementsAre(3));
}

TEST_F(ListViewTest, KeepsSeveralRowsSelectedWhenManyCanBe)
{
    Fill(Many, {u"a", u"b", u"c"});
    Many.Select(3, true);
    Many.Select(1, true);
    EXPECT_THAT(Selected(Many), ElementsAre(1, 3));
    EXPECT_EQ(Many.SelectedRow(), 1);
}

TEST_F(ListViewTest, RunsNoClickWhenTheProgramSelects)
{
    int clicks = 0;
    Rows.ItemClick = [&](ListRow) { ++clicks; };
    Fill(Rows, {u"a"});
    Rows.Select(1, true);
    EXPECT_EQ(clicks, 0);
}

TEST_F(ListViewTest, LeavesNoneSelectedWhenTheSelectedRowGoes)
{
    Fill(Rows, {u"a", u"b"});
    Rows.Select(1, true);
    Rows.Remove(1);
    EXPECT_EQ(Rows.SelectedRow(), 0);
}

TEST_F(ListViewTest, KeepsTheSelectionWithItsRowWhenAnotherGoes)
{
    Fill(Rows, {u"a", u"b"});
    Rows.Select(2, true);
    Rows.Remove(1);
    EXPECT_EQ(Rows.SelectedRow(), 1);
    EXPECT_EQ(Rows.TextAt(1, 0), u"b");
}

TEST_F(ListViewTest, KeepsSelectionAndCheckWithTheirRowsWhenItIsSortedAnew)
{
    Many.Sorted(true);
    Fill(Many, {u"a", u"b", u"c"});
    Many.Select(1, true);
    Many.Check(2, true);
    Many.SortOrder(ListView::Order::Descending);
    EXPECT_THAT(Selected(Many), ElementsAre(3));
    EXPECT_TRUE(Many.At(2).Checked);
    EXPECT_EQ(Many.TextAt(3, 0), u"a");
}

TEST_F(ListViewTest, SelectsItsFirstRowWhenItGetsTheFocusWithoutASelection)
{
    Rows.Sorted(true);
    Fill(Rows, {u"b", u"a"});
    Rows.SetFocus();
    EXPECT_EQ(Rows.SelectedRow(), 1);
    EXPECT_EQ(Rows.TextAt(1, 0), u"a");
}

TEST_F(ListViewTest, HasItsFirstRowSelectedWhenTheGotFocusHandlerRuns)
{
    ListRow selected = NoListRow;
    Rows.GotFocus = [&] { selected = Rows.SelectedRow(); };
    Fill(Rows, {u"a"});
    Rows.SetFocus();
    EXPECT_EQ(selected, 1);
}

TEST_F(ListViewTest, KeepsItsSelectionWhenItGetsTheFocus)
{
    Fill(Rows, {u"a", u"b"});
    Rows.Select(2, true);
    Rows.SetFocus();
    EXPECT_THAT(Selected(Rows), ElementsAre(2));
}

TEST_F(ListViewTest, SelectsNothingWhenItGetsTheFocusWithoutRows)
{
    Rows.SetFocus();
    EXPECT_EQ(Rows.SelectedRow(), 0);
}

TEST_F(ListViewTest, SelectsOnlyTheRowThatTheUserClicks)
{
    Fill(Many, {u"a", u"b", u"c"});
    Many.Select(1, true);
    Many.Select(3, true);
    Many.UserClicksRow(2);
    EXPECT_THAT(Selected(Many), ElementsAre(2));
}

TEST_F(ListViewTest, TellsTheClickedRowAfterTheFocusCame)
{
    Rows.ItemClick = [this](ListRow row) { Log.push_back("click " + std::to_string(row.Number())); };
    Fill(Rows, {u"a", u"b"});
    Rows.UserClicksRow(2);
    EXPECT_THAT(Log, ElementsAre("list got", "click 2"));
}

TEST_F(ListViewTest, RunsTheClickOnTheRowThatIsSelectedAlready)
{
    int clicks = 0;
    Rows.ItemClick = [&](ListRow) { ++clicks; };
    Fill(Rows, {u"a"});
    Rows.UserClicksRow(1);
    Rows.UserClicksRow(1);
    EXPECT_EQ(clicks, 2);
}

TEST_F(ListViewTest, LosesTheClickOnARowThatIsNoLongerThere)
{
    int clicks = 0;
    Rows.ItemClick = [&](ListRow) { ++clicks; };
    Rows.GotFocus = [this] { Rows.Remove(2); };
    Fill(Rows, {u"a", u"b"});
    Rows.UserClicksRow(2);
    EXPECT_EQ(clicks, 0);
}

TEST_F(ListViewTest, ChecksARowAndTellsTheProgramWhenTheUserTicksIt)
{
    int checks = 0;
    Many.ItemCheck = [&] { ++checks; };
    Fill(Many, {u"a", u"b"});
    Many.UserTicks(2, true);
    EXPECT_FALSE(Many.At(1).Checked);
    EXPECT_TRUE(Many.At(2).Checked);
    EXPECT_EQ(checks, 1);
}

TEST_F(ListViewTest, RunsNothingWhenTheCheckBoxIsSetAlready)
{
    int checks = 0;
    Many.ItemCheck = [&] { ++checks; };
    Fill(Many, {u"a"});
    Many.Check(1, true);
    Many.UserTicks(1, true);
    EXPECT_EQ(checks, 0);
}

TEST_F(ListViewTest, LeavesTheFocusWhereItIsWhenTheUserClicksAHeader)
{
    Rows.ColumnClick = [this](int column) { Log.push_back("column " + std::to_string(column)); };
    Box.SetFocus();
    Log.clear();
    Rows.UserClicksHeader(2);
    EXPECT_THAT(Log, ElementsAre("column 2"));
    EXPECT_EQ(Focused(), u"text");
}

TEST_F(ListViewTest, LosesRowsAndSelectionWhenItIsCleared)
{
    Fill(Rows, {u"a", u"b"});
    Rows.Select(1, true);
    Rows.Clear();
    EXPECT_EQ(Rows.Count(), 0);
    EXPECT_EQ(Rows.SelectedRow(), 0);
}

TEST_F(ListViewTest, RefusesANegativeColumnWidth)
{
    EXPECT_EQ(FailureOf([this] { Rows.ColumnWidth(1, -1); }), FailureCode::InvalidPropertyValue);
    EXPECT_EQ(Rows.Columns()[0].Width, 100);
}

TEST_F(ListViewTest, CountsColumnsFromOneForTheirWidths)
{
    Rows.ColumnWidth(1, 0);
    EXPECT_EQ(Rows.Columns()[0].Width, 0);
    EXPECT_EQ(Rows.Columns()[1].Width, 200);
}

} // namespace
} // namespace rulemesh
