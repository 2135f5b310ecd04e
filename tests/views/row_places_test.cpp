#include "views/row_places.h"

#include <gtest/gtest.h>

#include "views/grid.h"
#include "views/view_tree.h"

namespace rulemesh {
namespace {

constexpr RowPlaces Places(4, 310); // the fifth row is on top

TEST(RowPlaces, StandBelowEachOtherFromTheTopRowOn)
{
    EXPECT_EQ(Places.TopOf(4), 0);
    EXPECT_EQ(Places.TopOf(6), 620);
    EXPECT_EQ(Places.TopOf(3), -310);
}

TEST(RowPlaces, FitWhenTheyLieWhollyInTheRoom)
{
    EXPECT_TRUE(Places.Fits(5, 620));
    EXPECT_FALSE(Places.Fits(5, 619));
    EXPECT_FALSE(Places.Fits(3, 10'000)) << "above the upper edge";
    EXPECT_EQ(Places.CountIn(929), 2);
    EXPECT_EQ(Places.CountIn(930), 3);
}

TEST(RowPlaces, AreFoundByTheirExactUpperEdge)
{
    EXPECT_EQ(Places.RowThatBeginsAt(0), GridRow(4));
    EXPECT_EQ(Places.RowThatBeginsAt(620), GridRow(6));
    EXPECT_EQ(Places.RowThatBeginsAt(621), NoGridRow);
    EXPECT_EQ(Places.RowThatBeginsAt(-310), NoGridRow);
}

TEST(RowPlaces, AreThoseOfTheGridInTwips)
{
    ViewTree tree;
    Grid grid(tree, {.Name = u"RulesGrid", .Place = {0, 0, 5000, 3075}}, {1700, 3000});
    for (int row = 0; row < 10; ++row)
        grid.AddItem({u"key", u"rule"});
    grid.TopRow(2);
    grid.Row(4);
    EXPECT_EQ(grid.Places().TopOf(4), 620);
    EXPECT_EQ(grid.CurrentCell().Top, 620);
}

} // namespace
} // namespace rulemesh
