#include "object/grid_dump.h"

#include <type_traits>

#include <gtest/gtest.h>

#include "base/failure_of.h"

namespace rulemesh {
namespace {

TEST(GridDump, IsNoneAtFirst)
{
    const GridDump none;
    EXPECT_TRUE(none.IsNone());
    EXPECT_FALSE(none.HasRules());
    EXPECT_EQ(none.Tag(), u"");
    EXPECT_EQ(FailureOf([&] { static_cast<void>(none.Number()); }), FailureCode::TypeMismatch);
}

TEST(GridDump, KeepsTheDigitsInWhichItWasTold)
{
    EXPECT_EQ(GridDump(DumpNumber(7)).Tag(), u"7");
    EXPECT_EQ(GridDump(DumpNumber(7), GridDump::Digits::Two).Tag(), u"07");
    EXPECT_EQ(GridDump(DumpNumber(7)).Number(), GridDump(DumpNumber(7), GridDump::Digits::Two).Number());
}

TEST(GridDump, OfZeroHasRulesInTwoDigitsAlone)
{
    EXPECT_FALSE(GridDump(DumpNumber(0)).HasRules());
    EXPECT_TRUE(GridDump(DumpNumber(0), GridDump::Digits::Two).HasRules());
    EXPECT_TRUE(GridDump(DumpNumber(-2)).HasRules());
}

TEST(DumpNumber, IsNoPlainNumber)
{
    EXPECT_FALSE((std::is_convertible_v<int, DumpNumber>));
    EXPECT_FALSE((std::is_convertible_v<DumpNumber, int>));
}

} // namespace
} // namespace rulemesh
