#include "views/grid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "support/view_desk.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A grid of twenty rows, 3075 twips high, that logs each cell it leaves and enters.
struct GridTest : testing::Test, ViewDesk {
    GridTest()
    {
        for (int row = 0; row < 20; ++row)
            Cells.AddItem({u"field" + Text(1, static_cast<char16_t>(u'a' + row)), u""});
        Cells.LeaveCell = [this] { Log.push_back("leave " + Cell()); };
        Cells.EnterCell = [this] { Log.push_back("enter " + Cell()); };
        Cells.Click = [this] { Log.push_back("click " + Cell()); };
        Cells.DblClick = [this] { Log.push_back("double " + Cell()); };
        Cells.Scroll = [this] { Log.push_back("scroll " + std::to_string(Cells.TopRow().Number())); };
        Cells.GotFocus = nullptr;
    }

    [[nodiscard]] std::string Cell() const
    {
        return std::to_string(Cells.Row().Number()) + "," + std::to_string(Cells.Col());
    }
};

TEST(NewGrid, HasNoRowsAndItsFirstCellCurrent)
{
    const ViewDesk desk;
    EXPECT_EQ(desk.Cells.Rows(), 0);
    EXPECT_EQ(desk.Cells.Row(), 0);
    EXPECT_EQ(desk.Cells.Col(), 0);
    EXPECT_EQ(desk.Cells.TopRow(), 0);
}

TEST(NewGrid, LetsItsRowBeSetToWhatItIs)
{
    ViewDesk desk;
    EXPECT_EQ(FailureOf([&] { desk.Cells.Row(0); }), std::nullopt);
    EXPECT_EQ(FailureOf([&] { desk.Cells.Col(0); }), std::nullopt);
}

TEST(NewGrid, RaisesAFailureForTheTextOfItsCurrentCell)
{
    ViewDesk desk;
    EXPECT_EQ(FailureOf([&] { static_cast<void>(desk.Cells.Text()); }), FailureCode::InvalidPropertyArrayIndex);
    EXPECT_EQ(FailureOf([&] { desk.Cells.Text(u"x"); }), FailureCode::InvalidPropertyArrayIndex);
}

TEST_F(GridTest, LeavesTheOldCellBeforeItEntersTheNew)
{
    Cells.Row(3);
    Cells.Col(1);
    EXPECT_THAT(Log, ElementsAre("leave 0,0", "enter 3,0", "leave 3,0", "enter 3,1"));
}

TEST_F(GridTest, RunsNothingWhenRowOrColIsSetToWhatItIs)
{
    Cells.Row(3);
    Log.clear();
    Cells.Row(3);
    Cells.Col(0);
    EXPECT_THAT(Log, IsEmpty());
}

TEST_F(GridTest, RaisesAFailureForACurrentRowOrColumnOutside)
{
    for (const int row : {-1, 20})
        EXPECT_EQ(FailureOf([&] { Cells.Row(row); }), FailureCode::InvalidPropertyValue);
    for (const int col : {-1, 2})
        EXPECT_EQ(FailureOf([&] { Cells.Col(col); }), FailureCode::InvalidPropertyValue);
    EXPECT_EQ(static_cast<int>(FailureCode::InvalidPropertyValue), 380);
    EXPECT_EQ(Cell(), "0,0");
    EXPECT_THAT(Log, IsEmpty());
}

TEST_F(GridTest, RaisesAFailureForACellOutside)
{
    const std::pair<int, int> outside[] = {{-1, 0}, {20, 0}, {0, -1}, {0, 2}};
    for (const auto& [row, col] : outside) {
        EXPECT_EQ(FailureOf([&, r = row, c = col] { static_cast<void>(Cells.TextMatrix(r, c)); }),
                  FailureCode::InvalidPropertyArrayIndex);
        EXPECT_EQ(FailureOf([&, r = row, c = col] { Cells.TextMatrix(r, c, u"x"); }),
                  FailureCode::InvalidPropertyArrayIndex);
    }
    EXPECT_EQ(static_cast<int>(FailureCode::InvalidPropertyArrayIndex), 381);
}

TEST_F(GridTest, ReadsAndWritesTheTextOfTheCurrentCell)
{
    Cells.Row(2);
    Cells.Col(1);
    Cells.Text(u"rule");
    EXPECT_EQ(Cells.TextMatrix(2, 1), u"rule");
    EXPECT_EQ(Cells.Text(), u"rule");
}

TEST_F(GridTest, PutsRowAndTopRowBackWhenItIsClearedAndRunsNothing)
{
    Cells.Row(15);
    Cells.Col(1);
    Cells.TopRow(12);
    Log.clear();
    Cells.ClearRows();
    EXPECT_EQ(Cells.Rows(), 0);
    EXPECT_EQ(Cells.Row(), 0);
    EXPECT_EQ(Cells.TopRow(), 0);
    EXPECT_THAT(Log, IsEmpty());
}

TEST_F(GridTest, ShowsNineRowsIn3075Twips)
{
    EXPECT_TRUE(Cells.RowIsVisible(0));
    EXPECT_TRUE(Cells.RowIsVisible(8));
    EXPECT_FALSE(Cells.RowIsVisible(9));
}

TEST_F(GridTest, ShowsNineRowsFromItsTopRowOn)
{
    Cells.TopRow(4);
    EXPECT_FALSE(Cells.RowIsVisible(3));
    EXPECT_TRUE(Cells.RowIsVisible(4));
    EXPECT_TRUE(Cells.RowIsVisible(12));
    EXPECT_FALSE(Cells.RowIsVisible(13));
}

TEST_F(GridTest, ShowsARowThatLiesWhollyInside)
{
    Cells.Height(620);
    EXPECT_TRUE(Cells.RowIsVisible(1));
    Cells.Height(619);
    EXPECT_FALSE(Cells.RowIsVisible(1));
}

TEST_F(GridTest, ShowsNoRowBehindItsLast)
{
    Cells.TopRow(19);
    EXPECT_TRUE(Cells.RowIsVisible(19));
    EXPECT_FALSE(Cells.RowIsVisible(20));
}

TEST_F(GridTest, TakesATopRowPastTheLastForTheLast)
{
    Cells.TopRow(50);
    EXPECT_EQ(Cells.TopRow(), 19);
}

TEST_F(GridTest, RunsNoScrollHandlerWhenTheProgramSetsTheTopRow)
{
    Cells.TopRow(5);
    EXPECT_THAT(Log, IsEmpty());
}

TEST_F(GridTest, RunsTheScrollHandlerWhenTheUserScrolls)
{
    Cells.UserScrolls(5);
    EXPECT_THAT(Log, ElementsAre("scroll 5"));
}

TEST_F(GridTest, RunsNothingWhenTheUserScrollsToTheRowOnTop)
{
    Cells.TopRow(5);
    Cells.UserScrolls(5);
    EXPECT_THAT(Log, IsEmpty());
}

TEST_F(GridTest, ScrollsToTheLastRowWhenThereAreFewer)
{
    Cells.UserScrolls(30);
    Cells.UserScrolls(40);
    EXPECT_THAT(Log, ElementsAre("scroll 19"));
}

TEST_F(GridTest, LeavesTheFocusWhereItIsWhenTheUserScrolls)
{
    Box.SetFocus();
    Cells.UserScrolls(5);
    EXPECT_EQ(Focused(), u"text");
}

TEST_F(GridTest, LeavesEntersAndThenClicks)
{
    Cells.UserClicksCell(2, 1, Grid::Clicks::Single);
    EXPECT_THAT(Log, ElementsAre("leave 0,0", "enter 2,1", "click 2,1"));
    EXPECT_TRUE(Cells.HasFocus());
}

TEST_F(GridTest, ClicksTheCurrentCellWithoutLeavingIt)
{
    Cells.UserClicksCell(0, 0, Grid::Clicks::Single);
    EXPECT_THAT(Log, ElementsAre("click 0,0"));
}

TEST_F(GridTest, RunsTheClickAndThenTheDoubleClick)
{
    Cells.UserClicksCell(1, 0, Grid::Clicks::Double);
    EXPECT_THAT(Log, ElementsAre("leave 0,0", "enter 1,0", "click 1,0", "double 1,0"));
}

TEST_F(GridTest, LosesTheClickOnACellThatIsOutOfSightByThen)
{
    Box.LostFocus = [this] { Cells.TopRow(10); };
    Box.SetFocus();
    Log.clear();
    Cells.UserClicksCell(2, 1, Grid::Clicks::Double);
    EXPECT_THAT(Log, IsEmpty());
    EXPECT_EQ(Cell(), "0,0");
}

TEST_F(GridTest, LosesTheClickWhenTheFocusDoesNotReachIt)
{
    Box.LostFocus = [this] { Other.SetFocus(); };
    Box.SetFocus();
    Log.clear();
    Cells.UserClicksCell(2, 1, Grid::Clicks::Single);
    EXPECT_THAT(Log, ElementsAre("other got"));
}

TEST_F(GridTest, HandsACharacterKeyToItsHandlerAfterTheFocusCame)
{
    Cells.GotFocus = [this] { Log.emplace_back("got"); };
    Cells.KeyPress = [this](std::int16_t KeyAscii) { Log.push_back("key " + std::to_string(KeyAscii)); };
    Cells.UserPresses(65);
    EXPECT_THAT(Log, ElementsAre("got", "key 65"));
}

TEST_F(GridTest, PlacesACellByColumnWidthsAndRowsBelowTheTop)
{
    Cells.TopRow(4);
    Cells.Row(6);
    Cells.Col(1);
    const Placement place = Cells.CurrentCell();
    EXPECT_EQ(place.Left, 300);
    EXPECT_EQ(place.Top, 620);
    EXPECT_EQ(place.Width, 700);
    EXPECT_EQ(place.Height, 310);
}

TEST_F(GridTest, PlacesACellOfTheFirstColumnAtTheLeftEdge)
{
    Cells.Row(1);
    EXPECT_EQ(Cells.CurrentCell().Left, 0);
    EXPECT_EQ(Cells.CurrentCell().Top, 310);
    EXPECT_EQ(Cells.CurrentCell().Width, 300);
}

TEST_F(GridTest, PlacesACellAboveTheTopRowAtANegativeTop)
{
    Cells.TopRow(4);
    EXPECT_EQ(Cells.CurrentCell().Top, -1240);
}

TEST_F(GridTest, RefusesANegativeColumnWidth)
{
    EXPECT_EQ(FailureOf([this] { Cells.ColWidth(1, -1); }), FailureCode::InvalidPropertyValue);
    EXPECT_EQ(Cells.ColWidth(1), 700);
}

TEST_F(GridTest, TypedTextOpensWithItsFirstCharacterAndGoesOnInTheBox)
{
    Cells.KeyPress = [this](std::int16_t KeyAscii) {
        Box.Text(u"<" + Text(1, static_cast<char16_t>(KeyAscii)) + u">");
        Box.SelStart(2);
        Box.SetFocus();
    };
    Cells.UserTypes(u"\xD83D\xDE00y");
    EXPECT_EQ(Box.Text(), u"<\xD83D\xDE00y>");
}

TEST_F(GridTest, TypedTextThatOpensNothingEndsWithItsFirstCharacter)
{
    std::vector<int> keys;
    Cells.KeyPress = [&](std::int16_t KeyAscii) { keys.push_back(KeyAscii); };
    Cells.UserTypes(u"ab");
    Cells.UserTypes(u"");
    EXPECT_THAT(keys, ElementsAre('a'));
    EXPECT_EQ(Box.Text(), u"");
}

TEST_F(GridTest, UserMovesToTheNearestCellAndSeesIt)
{
    Cells.UserMovesTo(12, 1);
    EXPECT_THAT(TakeLog(), ElementsAre("leave 0,0", "enter 12,1", "scroll 4"));
    Cells.UserMovesTo(99, 1);
    EXPECT_THAT(TakeLog(), ElementsAre("leave 12,1", "enter 19,1", "scroll 11"));
    Cells.UserMovesTo(-1, 0);
    EXPECT_THAT(TakeLog(), ElementsAre("leave 19,1", "enter 0,0", "scroll 0"));
}

TEST_F(GridTest, UserScrollsJustAsFarAsShowsARow)
{
    Cells.UserScrollsToShow(8);
    EXPECT_THAT(TakeLog(), IsEmpty());
    Cells.UserScrollsToShow(9);
    EXPECT_THAT(TakeLog(), ElementsAre("scroll 1"));
    Cells.UserScrollsToShow(0);
    EXPECT_THAT(TakeLog(), ElementsAre("scroll 0"));
}

} // namespace
} // namespace rulemesh
