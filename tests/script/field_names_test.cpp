#include "script/field_names.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The places of the names, as texts.
std::vector<Text> Names(TextView StrText)
{
    std::vector<Text> names;
    FieldNameCursor cursor(StrText);
    while (const std::optional<FieldName> name = cursor.Next())
        names.emplace_back(StrText.substr(name->Position, name->Length));
    return names;
}

FieldName Only(TextView StrText)
{
    FieldNameCursor cursor(StrText);
    return cursor.Next().value_or(FieldName());
}

TEST(FieldNames, AreTableAndField)
{
    EXPECT_THAT(Names(u"trim(emply001.name)+Emply001.CITY"), ElementsAre(u"emply001.name", u"Emply001.CITY"));
    EXPECT_EQ(Only(u"(emply001.name)"), (FieldName{1, 13, u"emply001", u"name", u""}));
}

TEST(FieldNames, TakeTheirIndexWithThem)
{
    EXPECT_EQ(Only(u"emply001.f(3)"), (FieldName{0, 13, u"emply001", u"f", u"3"}));
    EXPECT_EQ(Only(u"emply001.f(12) "), (FieldName{0, 14, u"emply001", u"f", u"12"}));
}

TEST(FieldNames, ReadTheIndexThatMapWritesAsTheSame)
{
    EXPECT_EQ(Only(u"emply001.f(1,3)"), (FieldName{0, 15, u"emply001", u"f", u"3"}));
}

TEST(FieldNames, LeaveBracketsThatHoldNoIndex)
{
    for (const TextView StrText : {u"emply001.f(2,3)", u"emply001.f(x)", u"emply001.f()", u"emply001.f(1,)",
                                   u"emply001.f(3", u"emply001.f(1,2,3)"})
        EXPECT_EQ(Only(StrText), (FieldName{0, 10, u"emply001", u"f", u""}));
}

TEST(FieldNames, BeginWithATableCode)
{
    EXPECT_THAT(Names(u"emply01.a xemply001.a emply0012.a 3mply001.a row.a emply.a"), IsEmpty());
}

TEST(FieldNames, StandAlone)
{
    EXPECT_THAT(Names(u"emply001.name2"), ElementsAre(u"emply001.name2"));
    EXPECT_THAT(Names(u"x.emply001.a"), IsEmpty());
    EXPECT_THAT(Names(u"emply001.größe"), ElementsAre(u"emply001.größe"));
}

TEST(FieldNames, MayBeATableAlone)
{
    EXPECT_EQ(Only(u"from emply001\n"), (FieldName{5, 8, u"emply001", u"", u""}));
    EXPECT_THAT(Names(u"emply001 emply001. emply001.(3) \"emply001\""),
                ElementsAre(u"emply001", u"emply001", u"emply001"));
}

TEST(FieldNames, StandOutsideOfQuotes)
{
    EXPECT_THAT(Names(u"\"emply001.a\"+emply001.b+'emply001.c'"), ElementsAre(u"emply001.b"));
    EXPECT_THAT(Names(u"\"it's emply001.a\"+emply001.b"), ElementsAre(u"emply001.b"));
}

TEST(FieldNames, TakeAQuoteThatDoesNotCloseOnItsLineForNone)
{
    EXPECT_THAT(Names(u"don't emply001.a\nwon't emply001.b"), ElementsAre(u"emply001.a", u"emply001.b"));
    EXPECT_THAT(Names(u"\" emply001.a\r\" emply001.b"), ElementsAre(u"emply001.a", u"emply001.b"));
    EXPECT_THAT(Names(u"emply001.a'"), ElementsAre(u"emply001.a"));
}

} // namespace
} // namespace rulemesh
