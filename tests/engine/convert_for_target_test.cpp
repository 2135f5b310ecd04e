#include "engine/convert_for_target.h"

#include <vector>

#include <gtest/gtest.h>

namespace rulemesh {
namespace {

struct Conversion {
    Text Source;
    Text SourceType;
    Text TargetType;
    Text Rule;
};

TEST(ConvertForTarget, GoesByTheTwoTypes)
{
    const Text x = u"srtab001.field";
    const std::vector<Conversion> cases = {
        {x, u"Date", u"Date", u"utc(srtab001.field,0,2)"},
        {x, u"UTC", u"Date", u"utc(srtab001.field,0,2)"},
        {x, u"String", u"Date", x},
        {x, u"", u"Date", x},
        {x, u"Date", u"UTC", u"utc(srtab001.field,0,2)"},
        {x, u"UTC", u"UTC", u"utc$(srtab001.field)"},
        {x, u"Long", u"UTC", x},
        {x, u"String", u"Multi-Byte String", u""},
        {x, u"Multi-Byte String", u"String", u""},
        {x, u"String", u"String", x},
        {x, u"Multi-Byte String", u"Multi-Byte String", x},
        {x, u"Date", u"String", x},
        {x, u"Text", u"Multi-Byte String", x},
        {x, u"Date", u"Long", x},
        {x, u"UTC", u"", x},
        {u"", u"UTC", u"UTC", u"utc$()"},
    };
    for (const auto& [source, sourceType, targetType, rule] : cases)
        EXPECT_EQ(ConvertForTarget(source, sourceType, targetType), rule);
}

TEST(ConvertForTarget, CutsAnIndexedStringFromItsFirstCharacter)
{
    const std::vector<Conversion> cases = {
        {u"srtab001.a(3)", u"String", u"String", u"srtab001.a(1,3)"},
        {u"srtab001.a(3)", u"Multi-Byte String", u"Multi-Byte String", u"srtab001.a(1,3)"},
        {u"srtab001.a(2(1)", u"String", u"String", u"srtab001.a(1,2(1,1)"},
        {u"srtab001.a(3)", u"String", u"Multi-Byte String", u""},
        {u"srtab001.a(3)", u"Long", u"String", u"srtab001.a(3)"},
        {u"srtab001.a(3)", u"String", u"Long", u"srtab001.a(3)"},
        {u"srtab001.a(3)", u"Date", u"Date", u"utc(srtab001.a(3),0,2)"},
    };
    for (const auto& [source, sourceType, targetType, rule] : cases)
        EXPECT_EQ(ConvertForTarget(source, sourceType, targetType), rule);
}

TEST(ConvertForTarget, ComparesTypeWordsExactly)
{
    EXPECT_EQ(ConvertForTarget(u"a", u"date", u"Date"), u"a");
    EXPECT_EQ(ConvertForTarget(u"a", u"UTC", u"utc"), u"a");
    EXPECT_EQ(ConvertForTarget(u"a(1)", u"string", u"String"), u"a(1)");
    EXPECT_EQ(ConvertForTarget(u"a", u"Multi-byte String", u"String"), u"a");
}

} // namespace
} // namespace rulemesh
