#include "views/shared_rows.h"

#include <string>

#include <gtest/gtest.h>

namespace rulemesh {
namespace {

SharedRows<std::string> Numbers(int count)
{
    SharedRows<std::string> rows;
    for (int number = 0; number < count; ++number)
        rows.push_back(std::to_string(number));
    return rows;
}

bool Same(const std::string& one, const std::string& other) { return one == other; }

TEST(SharedRows, ACopyKeepsWhatItHadWhenTheOtherChanges)
{
    SharedRows<std::string> rows = Numbers(200);
    const SharedRows<std::string> copy = rows;
    rows.Change(130) = "changed";
    rows.push_back("new");
    EXPECT_EQ(copy[130], "130");
    EXPECT_EQ(copy.size(), 200U);
    EXPECT_EQ(rows[130], "changed");
    EXPECT_EQ(rows[200], "new");
}

TEST(SharedRows, InsertsAndErasesAnywhere)
{
    SharedRows<std::string> rows = Numbers(65);
    rows.insert(64, "in");
    EXPECT_EQ(rows[64], "in");
    EXPECT_EQ(rows[65], "64");
    rows.insert(rows.size(), "end");
    EXPECT_EQ(rows[66], "end");
    rows.erase(0);
    EXPECT_EQ(rows[0], "1");
    EXPECT_EQ(rows.size(), 66U);
}

TEST(SharedRows, ComparesValuesAndNotWhereTheyStand)
{
    SharedRows<std::string> other = Numbers(100);
    EXPECT_TRUE(Numbers(100).EqualTo(other, Same));
    other.Change(99) = "x";
    EXPECT_FALSE(Numbers(100).EqualTo(other, Same));
    EXPECT_FALSE(Numbers(99).EqualTo(Numbers(100), Same));
}

TEST(SharedRows, SharesAgainWhatWasMadeAnewAlike)
{
    const SharedRows<std::string> former = Numbers(1000);
    const SharedRows<std::string> held = former;
    SharedRows<std::string> rows = Numbers(1000);
    const auto bytes = [](const std::string& text) { return text.size(); };
    const std::size_t alike = rows.ShareWith(former, Same, bytes);
    rows.Change(500) = "x";
    const std::size_t changed = rows.ShareWith(former, Same, bytes);
    EXPECT_LT(alike, 1000U);
    EXPECT_GT(changed, alike);
    EXPECT_LT(changed, alike + 100 * sizeof(std::string));
    EXPECT_EQ(rows[500], "x");
}

TEST(SharedRows, ComparesNothingThatNobodyElseHolds)
{
    const SharedRows<std::string> former = Numbers(100);
    SharedRows<std::string> rows = Numbers(100);
    int compared = 0;
    const auto count = [&](const std::string& one, const std::string& other) {
        ++compared;
        return one == other;
    };
    static_cast<void>(rows.ShareWith(former, count, [](const std::string& text) { return text.size(); }));
    EXPECT_EQ(compared, 0);
}

} // namespace
} // namespace rulemesh
