#include "object/rule_text.h"

#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace rulemesh {
namespace {

TEST(IsBlankRule, TrimsBlanksFirstAndDropsTabsThen)
{
    const std::vector<std::pair<Text, bool>> cases = {
        {u"", true},         {u" ", true},    {u"\t", true},       {u"  \t\t ", true},  {u"\t \t", false},
        {u" \t \t ", false}, {u"\n", false},  {u"\r\n", false},    {u"a", false},       {u"\u00A0", false},
        {u" \t ", true},     {u"\t\t", true}, {u" \ta\t ", false}, {u" \t\n\t ", false}};
    for (const auto& [rule, blank] : cases)
        EXPECT_EQ(IsBlankRule(rule), blank) << testing::PrintToString(rule);
}

TEST(UntouchedRule, IsBlankAndNotEmpty)
{
    EXPECT_TRUE(IsBlankRule(UntouchedRule));
    EXPECT_EQ(UntouchedRule, u" ");
}

} // namespace
} // namespace rulemesh
