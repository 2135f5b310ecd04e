#include "host/reading/script_statements.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace rulemesh {
namespace {

using ::testing::ElementsAre;

TEST(DumpStatement, KeepsItsCommentOnOneLine)
{
    EXPECT_EQ(DumpStatement(7), u"dump 7");
    EXPECT_EQ(DumpStatement(7, u" open\r\norders "), u"dump 7 | open  orders");
    EXPECT_EQ(MigrateStatement(u"custs001", u"Customers"), u"migrate custs001 | Customers");
}

TEST(NextFreeDump, IsBehindTheGreatest)
{
    EXPECT_EQ(NextFreeDump({}), 1);
    EXPECT_EQ(NextFreeDump({-5}), 1);
    EXPECT_EQ(NextFreeDump({3, 10, 2}), 11);
    EXPECT_EQ(NextFreeDump({1, 2, 999}), 3);
}

TEST(NextFreeDump, IsNoneWhenAllAreTaken)
{
    std::vector<std::int16_t> all;
    for (std::int16_t number = 1; number <= 999; ++number)
        all.push_back(number);
    EXPECT_EQ(NextFreeDump(all), std::nullopt);
}

TEST(DumpsNamedBy, LooksIntoAllScriptsAndTheDumpsThatTheObjectHas)
{
    const std::string object = "<partn101><PREC>dump 1</PREC><FUNCTIONS>x\nDUMP 2 | two</FUNCTIONS>"
                               "<QUERY ST=\"a\">dump\n3</QUERY><QUERY ST=\"b\">xdump 90 dumpy 91 dump 1000</QUERY>"
                               "<DUMP No=\"5\"/></partn101>";
    EXPECT_THAT(DumpsNamedBy(object, u"dump 4"), ElementsAre(4, 1, 2, 3, 5));
}

TEST(TablesMigratedBy, ListsEachValidTableOnce)
{
    EXPECT_THAT(
        TablesMigratedBy(u"migrate custs001 | x\nMigrate ordrs001\nmigrate custs001 immigrate prodc001 migrate x"),
        ElementsAre(u"custs001", u"ordrs001"));
}

// Where the designer's reading is odd, what is offered goes by it.
TEST(DumpsNamedBy, HoldsWhatTheDesignerRegistersAndWhatABarHides)
{
    EXPECT_THAT(DumpsNamedBy("<partn101/>", u"dumpdump 5 dump 999.4 | dump 7 xdump 8"), ElementsAre(5, 999, 7));
    EXPECT_THAT(DumpsNamedBy("<partn101/>", u"dump -2 dump 0 dump 999.5 dump 40000"), ElementsAre());
}

TEST(TablesMigratedBy, ListsWhatTheDesignerDoes)
{
    EXPECT_THAT(TablesMigratedBy(u"migratemigrate custs001 |migrate ordrs001 | migrate prodc001"),
                ElementsAre(u"custs001", u"prodc001"));
}

TEST(InsertLine, PutsTheStatementOnALineOfItsOwn)
{
    struct Case {
        Text Script;
        std::size_t Caret;
        Text Expected;
    };
    const std::vector<Case> cases = {
        {u"", 0, u"dump 1\n"},
        {u"for each row", 3, u"for each row\ndump 1\n"},
        {u"begin\n    x | note\nend", 12, u"begin\n    x | note\n    dump 1\nend"},
        {u"begin\n    \nend", 8, u"begin\n    dump 1\nend"},
        {u"begin\n", 6, u"begin\ndump 1\n"},
        {u"begin", 99, u"begin\ndump 1\n"},
    };
    for (const Case& c : cases) {
        const Insertion made = InsertLine(c.Script, c.Caret, u"dump 1");
        EXPECT_EQ(made.Script, c.Expected);
        EXPECT_EQ(made.Script.substr(made.Caret - 6, 6), u"dump 1");
    }
}

TEST(MigratesCleanly, ComplainsAsTheDesignerDoes)
{
    EXPECT_TRUE(MigratesCleanly(u""));
    EXPECT_TRUE(MigratesCleanly(u"migrate custs001 | immigrated in May"));
    EXPECT_TRUE(MigratesCleanly(u"MIGRATE custs001\r\nmigrate   ordrs001\r\n"));
    EXPECT_FALSE(MigratesCleanly(u"migrate custs1"));
    EXPECT_FALSE(MigratesCleanly(u"migrate custs001 | then migrate it"));
    EXPECT_FALSE(MigratesCleanly(u"migrate custs001\r\nmigrate"));
    EXPECT_TRUE(MigratesCleanly(u"migrate custs001\r\nmigrate  \r\n"));
    EXPECT_FALSE(MigratesCleanly(u"migrate " + Text(32768, u'x')));
}

TEST(DumpsPast16Bits, AreFoundWithTheirLine)
{
    EXPECT_EQ(DumpsPast16Bits(u"dump 1\r\n\r\ndump 40000 | x"), (std::vector<PlacedWord>{{u"40000", 3}}));
    EXPECT_EQ(DumpsPast16Bits(u"dump\n-1e9 dump 32768"), (std::vector<PlacedWord>{{u"-1e9", 2}, {u"32768", 2}}));
    EXPECT_TRUE(DumpsPast16Bits(u"dump -32768 dump 32767.4 dump " + Text(32768, u'9')).empty());
    EXPECT_TRUE(DumpsPast16Bits(u"dump 32767 | dump 40000 xdump 40000\ndump word").empty());
}

} // namespace
} // namespace rulemesh
