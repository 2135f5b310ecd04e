#include "engine/field_rows.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "views/view_tree.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;

class FieldRows : public testing::Test {
protected:
    // The table TGTAB001 with these fields.
    [[nodiscard]] TableRecord Table(const std::string& fields)
    {
        EXPECT_TRUE(document_.loadXML("<TGTAB001>" + fields + "</TGTAB001>"));
        return TableRecord(document_.documentElement());
    }

    [[nodiscard]] std::vector<Text> SourceRow(const std::string& field)
    {
        const TableRecord table = Table(field);
        return FieldTexts(FieldList::Source, table.Name(), *table.Fields().begin());
    }

    XmlDocument document_;
    ViewTree tree_;
    ListView list_{tree_, {.Name = u"list"}, {}};
};

constexpr const char* WholeField =
    R"(<PRICE__1 No="9" FNo="7" MAN="Y" TYPE="F" DIGB="10" DIGA="2" LENG="3" DSCA="Price &amp; more" ADJU="R" CASE="U")"
    R"( DOMAIN="money" INITVAL=" 0 " DOMENUMS="a,b"/>)";

TEST_F(FieldRows, SourceRowBeginsWithTheMark)
{
    EXPECT_THAT(SourceRow(WholeField), ElementsAre(u"*", u"007", u"tgtab001.price(1)", u"Float", u"10,2",
                                                   u"Price & more", u"Right", u"Upper", u"money", u" 0 ", u"a,b"));
}

TEST_F(FieldRows, TargetRowBeginsWithAnEmptyText)
{
    const TableRecord table = Table(WholeField);
    EXPECT_THAT(FieldTexts(FieldList::Target, table.Name(), *table.Fields().begin()),
                ElementsAre(u"", u"*", u"007", u"tgtab001.price(1)", u"Float", u"10,2", u"Price & more", u"Right",
                            u"Upper", u"money", u" 0 ", u"a,b"));
}

TEST_F(FieldRows, AbsentAttributesReadAsEmpty)
{
    EXPECT_THAT(SourceRow("<CODE/>"),
                ElementsAre(u"", u"000", u"tgtab001.code", u"", u"", u"", u"No", u"No", u"", u"", u""));
    EXPECT_EQ(SourceRow(R"(<CODE TYPE="F"/>)")[4], u",");
}

TEST_F(FieldRows, MarkIsForYAlone)
{
    for (const auto& [letter, mark] :
         std::vector<std::pair<std::string, Text>>{{"Y", u"*"}, {"y", u""}, {"N", u""}, {"", u""}, {"YY", u""}})
        EXPECT_EQ(SourceRow("<A MAN=\"" + letter + "\"/>")[SourceField::Mark], mark) << letter;
}

TEST_F(FieldRows, AnUnknownTypeShowsTheMarkAsItsLength)
{
    const std::vector<Text> marked = SourceRow(R"(<A MAN="Y" TYPE="X" LENG="20"/>)");
    EXPECT_EQ(marked[SourceField::Type], u"");
    EXPECT_EQ(marked[SourceField::Length], u"*");
    EXPECT_EQ(SourceRow(R"(<A TYPE="X" LENG="20"/>)")[SourceField::Length], u"");
}

TEST_F(FieldRows, NamesOfSeveralIndexesCloseOneBracket)
{
    EXPECT_EQ(SourceRow("<AMT__2__1/>")[SourceField::Name], u"tgtab001.amt(2(1)");
}

TEST_F(FieldRows, OfTargetsHaveAnEmptyTextInFront)
{
    FillSourceFields(list_, Table(R"(<CODE MAN="Y" FNo="7"/>)"));
    FillTargetFields(list_, Table(R"(<CODE MAN="Y" FNo="7"/>)"));
    EXPECT_THAT(*list_.At(1).Texts,
                ElementsAre(u"*", u"007", u"tgtab001.code", u"", u"*", u"", u"No", u"No", u"", u"", u""));
    EXPECT_THAT(*list_.At(2).Texts,
                ElementsAre(u"", u"*", u"007", u"tgtab001.code", u"", u"*", u"", u"No", u"No", u"", u"", u""));
}

TEST_F(FieldRows, AreAddedInDocumentOrderBehindThoseThere)
{
    FillSourceFields(list_, Table("<B/><!--x--><A/>"));
    FillSourceFields(list_, Table("<C/>"));
    ASSERT_EQ(list_.Count(), 3);
    EXPECT_EQ(list_.TextAt(1, SourceField::Name), u"tgtab001.b");
    EXPECT_EQ(list_.TextAt(2, SourceField::Name), u"tgtab001.a");
    EXPECT_EQ(list_.TextAt(3, SourceField::Name), u"tgtab001.c");
}

TEST_F(FieldRows, AMissingTableAddsNothing)
{
    FillSourceFields(list_, {});
    FillTargetFields(list_, {});
    FillTargetFields(list_, Table(""));
    EXPECT_EQ(list_.Count(), 0);
}

} // namespace
} // namespace rulemesh
