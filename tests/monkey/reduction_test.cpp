#include "monkey/reduction.h"

#include <algorithm>

#include <gmock/gmock.h>

namespace rulemesh::monkey {

namespace {

using testing::ElementsAre;

std::vector<int> FirstNumbers(int count)
{
    std::vector<int> numbers(static_cast<std::size_t>(count));
    for (int number = 0; number < count; ++number)
        numbers[static_cast<std::size_t>(number)] = number;
    return numbers;
}

} // namespace

TEST(Reduction, KeepsTheActionsThatTheFindingNeeds)
{
    const auto replay = [](const std::vector<int>& numbers) -> std::optional<std::string> {
        const auto has = [&](int number) { return std::find(numbers.begin(), numbers.end(), number) != numbers.end(); };
        return has(3) && has(170) && has(499) ? std::optional<std::string>("CmbDump entries: 5\n") : std::nullopt;
    };
    EXPECT_THAT(Reduce(FirstNumbers(500), "CmbDump entries", replay), ElementsAre(3, 170, 499));
}

TEST(Reduction, DoesNotTakeAnotherFindingForTheSame)
{
    const auto replay = [](const std::vector<int>& numbers) -> std::optional<std::string> {
        return numbers.size() > 2 ? "RulesGrid rows: 5\n" : "focus: elsewhere\n";
    };
    EXPECT_EQ(Reduce(FirstNumbers(9), "RulesGrid rows", replay).size(), 3U);
}

TEST(Reduction, KindOfAFindingLeavesOutItsNumbersAndValues)
{
    EXPECT_EQ(KindOf("CmbDump entry 12: the widget shows \"a: b\"\nmore: 3\n"), "CmbDump entry ");
}

} // namespace rulemesh::monkey
