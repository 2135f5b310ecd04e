#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/view_desk.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A list that takes several rows, and one that takes one; each of six rows.
struct ListViewUser : testing::Test, ViewDesk {
    ListView Many{
        Tree,
        {.Name = u"many", .Parent = &FirstPane},
        {.Columns = {{u"Name", 100}}, .Select = ListView::Selection::Multiple, .CheckBoxes = true, .Sorted = true}};

    ListViewUser()
    {
        for (const TextView name : {u"tab1.egg", u"tab1.fig", u"tab2.elder", u"apple", u"bean", u"Bread"}) {
            Many.Add({Text(name)});
            Rows.Add({Text(name)});
        }
        for (ListView* list : {&Many, &Rows})
            list->ItemClick = [this](ListRow row) { Clicks.push_back(row.Number()); };
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

    std::vector<int> Clicks;
};

TEST_F(ListViewUser, TogglesOneRowAndLeavesTheOthers)
{
    Many.UserClicksRow(2);
    Many.UserTogglesRow(5);
    EXPECT_THAT(Selected(Many), ElementsAre(2, 5));
    Many.UserTogglesRow(2);
    EXPECT_THAT(Selected(Many), ElementsAre(5));
    EXPECT_THAT(Clicks, ElementsAre(2, 5, 2));
}

TEST_F(ListViewUser, ExtendsFromTheLastRowThatWasClickedOrToggled)
{
    Many.UserClicksRow(1);
    Many.UserTogglesRow(4);
    Many.UserExtendsTo(6);
    EXPECT_THAT(Selected(Many), ElementsAre(4, 5, 6));
    Many.UserExtendsTo(3);
    EXPECT_THAT(Selected(Many), ElementsAre(3, 4));
    EXPECT_EQ(Many.CurrentRow(), 3);
}

TEST_F(ListViewUser, ExtendsFromTheRowThatTheFocusSelected)
{
    Tree.MoveFocus(Many);
    Many.UserExtendsTo(3);
    EXPECT_THAT(Selected(Many), ElementsAre(1, 2, 3));
}

TEST_F(ListViewUser, MovesWithoutSelecting)
{
    Many.UserClicksRow(2);
    Many.UserMovesTo(5);
    EXPECT_THAT(Selected(Many), ElementsAre(2));
    EXPECT_EQ(Many.CurrentRow(), 5);
    EXPECT_THAT(Clicks, ElementsAre(2));
}

TEST_F(ListViewUser, TakesOneRowWhereTheListTakesNoMore)
{
    Rows.UserClicksRow(1);
    Rows.UserTogglesRow(3);
    EXPECT_THAT(Selected(Rows), ElementsAre(3));
    Rows.UserExtendsTo(5);
    EXPECT_THAT(Selected(Rows), ElementsAre(5));
    Rows.UserMovesTo(2);
    EXPECT_THAT(Selected(Rows), ElementsAre(2));
    EXPECT_THAT(Clicks, ElementsAre(1, 3, 5, 2));
}

TEST_F(ListViewUser, CurrentRowIsTheTickedOneAlsoWhenNothingIsSelected)
{
    Many.ItemCheck = [this] {
        for (int row = 1; row <= Many.Count(); ++row)
            Many.Select(row, Many.At(row).Checked);
    };
    Many.UserTicks(4, true);
    Many.UserTicks(4, false);
    EXPECT_THAT(Selected(Many), IsEmpty());
    EXPECT_EQ(Many.CurrentRow(), 4);
}

TEST_F(ListViewUser, CurrentRowFollowsItsRowThroughSortingAndRemoval)
{
    Many.UserClicksRow(2);
    Many.SortOrder(ListView::Order::Descending);
    EXPECT_EQ(Many.CurrentRow(), 5);
    Many.Remove(1);
    EXPECT_EQ(Many.CurrentRow(), 4);
    Rows.UserClicksRow(3);
    Rows.Insert(1, {u"first"});
    EXPECT_EQ(Rows.CurrentRow(), 4);
    Rows.Remove(4);
    EXPECT_EQ(Rows.CurrentRow(), 0);
    Rows.UserClicksRow(2);
    Rows.Clear();
    EXPECT_EQ(Rows.CurrentRow(), 0);
}

TEST_F(ListViewUser, RowsThatAreGoneTakeNoInput)
{
    Many.UserTogglesRow(7);
    Many.UserExtendsTo(7);
    Many.UserMovesTo(7);
    EXPECT_THAT(Clicks, IsEmpty());
    EXPECT_EQ(Many.CurrentRow(), 1); // which the focus selected
}

TEST_F(ListViewUser, TypedBeginningIsFoundBelowAndThenFromTheTop)
{
    EXPECT_EQ(Rows.RowBeginningWith(u"B", 0), 5);
    EXPECT_EQ(Rows.RowBeginningWith(u"b", 5), 6);
    EXPECT_EQ(Rows.RowBeginningWith(u"b", 6), 5);
    EXPECT_EQ(Rows.RowBeginningWith(u"bre", 0), 6);
    EXPECT_EQ(Rows.RowBeginningWith(u"breads", 0), 0);
    EXPECT_EQ(Rows.RowBeginningWith(u"apple", 4), 4);
}

TEST_F(ListViewUser, TypedBeginningMayStandBehindTheTable)
{
    EXPECT_EQ(Rows.RowBeginningWith(u"e", 0), 1);
    EXPECT_EQ(Rows.RowBeginningWith(u"e", 1), 3);
    EXPECT_EQ(Rows.RowBeginningWith(u"tab2", 0), 3);
}

} // namespace
} // namespace rulemesh
