#include "views/row_numbers.h"

#include <type_traits>

#include <gtest/gtest.h>

namespace rulemesh {
namespace {

TEST(RowNumbers, OfTwoCountsDoNotMix)
{
    EXPECT_FALSE((std::is_constructible_v<ListRow, GridRow>));
    EXPECT_FALSE((std::is_constructible_v<GridRow, ListRow>));
    EXPECT_FALSE((std::is_assignable_v<ListRow&, GridRow>));
    EXPECT_FALSE((std::is_convertible_v<ListRow, int>));
}

TEST(RowNumbers, GoOnByRowsAndDifferByRows)
{
    const GridRow row = 3;
    EXPECT_EQ(row + 2, GridRow(5));
    EXPECT_EQ(row - 1, GridRow(2));
    EXPECT_EQ(GridRow(7) - row, 4);
    EXPECT_LT(row, GridRow(4));
}

} // namespace
} // namespace rulemesh
