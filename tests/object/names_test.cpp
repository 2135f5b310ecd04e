#include "object/names.h"

#include <vector>

#include <gtest/gtest.h>

namespace rulemesh {
namespace {

using Cases = std::vector<std::pair<Text, Text>>;

TEST(FieldDisplayName, GivesOneClosingBracketHoweverManyIndexes)
{
    const Cases cases = {
        {u"PRICE", u"PRICE"},
        {u"PRICE__1", u"PRICE(1)"},
        {u"price__1", u"price(1)"},
        {u"AMT__2__1", u"AMT(2(1)"},
        {u"UNIT_PRICE", u"UNIT_PRICE"},
        {u"A___1", u"A(_1)"}, // from front to back
        {u"A__", u"A()"},
        {u"", u""},
    };
    for (const auto& [stored, shown] : cases)
        EXPECT_EQ(FieldDisplayName(stored), shown);
}

TEST(FieldNodeName, DropsEveryClosingBracket)
{
    const Cases cases = {
        {u"price", u"price"}, {u"price(1)", u"price__1"}, {u"amt(2(1)", u"amt__2__1"}, {u"a(1)b)", u"a__1b"},
        {u"a(", u"a__"},      {u"a)b", u"a)b"}, // no index, no change
        {u"", u""},
    };
    for (const auto& [shown, stored] : cases)
        EXPECT_EQ(FieldNodeName(shown), stored);
}

TEST(FieldNames, ComeBackFromTheScreenAsTheyWere)
{
    for (const TextView name : {u"ITEM", u"PRICE__1", u"AMT__2__1", u"UNIT_PRICE", u"NAME__12"})
        EXPECT_EQ(FieldNodeName(FieldDisplayName(name)), name);
}

TEST(QualifiedName, IsInLowerCase)
{
    EXPECT_EQ(QualifiedName(u"TGTAB001", u"PRICE__1"), u"tgtab001.price(1)");
    EXPECT_EQ(QualifiedName(u"TgTab001", u"\u00C4MT"), u"tgtab001.\u00E4mt");
}

TEST(FieldPart, BeginsAtTheTenthCharacterWhateverStandsBefore)
{
    const Cases cases = {
        {u"tgtab001.item", u"item"},
        {u"tgtab001.price(1)", u"price(1)"},
        {u"tgtab01.item", u"tem"},     // a code of seven characters
        {u"tgtab0001.item", u".item"}, // one of nine
        {u"tgtab001.", u""},
        {u"tgtab", u""},
        {u"", u""},
    };
    for (const auto& [name, field] : cases)
        EXPECT_EQ(FieldPart(name), field);
}

} // namespace
} // namespace rulemesh
