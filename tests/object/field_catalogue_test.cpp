#include "object/field_catalogue.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace rulemesh {
namespace {

using testing::ElementsAre;
using Texts = std::vector<Text>;

class FieldCatalogue : public testing::Test {
protected:
    // The table TGTAB001 with these fields.
    [[nodiscard]] XmlNode Table(const std::string& fields)
    {
        EXPECT_TRUE(document_.loadXML("<TGTAB001>" + fields + "</TGTAB001>"));
        return document_.documentElement();
    }

    [[nodiscard]] Texts SourceRow(const std::string& field)
    {
        const XmlNode table = Table(field);
        return FieldTexts(table.baseName(), table.firstChild(), SourceField::Mark);
    }

    XmlDocument document_;
};

constexpr const char* WholeField =
    R"(<PRICE__1 No="9" FNo="7" MAN="Y" TYPE="F" DIGB="10" DIGA="2" LENG="3" DSCA="Price &amp; more" ADJU="R" CASE="U")"
    R"( DOMAIN="money" INITVAL=" 0 " DOMENUMS="a,b"/>)";

TEST_F(FieldCatalogue, SourceRowBeginsWithTheMark)
{
    EXPECT_THAT(SourceRow(WholeField), ElementsAre(u"*", u"007", u"tgtab001.price(1)", u"Float", u"10,2",
                                                   u"Price & more", u"Right", u"Upper", u"money", u" 0 ", u"a,b"));
}

TEST_F(FieldCatalogue, TargetRowBeginsWithAnEmptyText)
{
    const XmlNode table = Table(WholeField);
    EXPECT_THAT(FieldTexts(table.baseName(), table.firstChild(), TargetField::Mark),
                ElementsAre(u"", u"*", u"007", u"tgtab001.price(1)", u"Float", u"10,2", u"Price & more", u"Right",
                            u"Upper", u"money", u" 0 ", u"a,b"));
}

TEST_F(FieldCatalogue, AbsentAttributesReadAsEmpty)
{
    EXPECT_THAT(SourceRow("<CODE/>"),
                ElementsAre(u"", u"000", u"tgtab001.code", u"", u"", u"", u"No", u"No", u"", u"", u""));
    EXPECT_EQ(SourceRow(R"(<CODE TYPE="F"/>)")[4], u",");
}

TEST_F(FieldCatalogue, MarkIsForYAlone)
{
    for (const auto& [letter, mark] :
         std::vector<std::pair<std::string, Text>>{{"Y", u"*"}, {"y", u""}, {"N", u""}, {"", u""}, {"YY", u""}})
        EXPECT_EQ(SourceRow("<A MAN=\"" + letter + "\"/>")[SourceField::Mark], mark) << letter;
}

TEST_F(FieldCatalogue, NumbersAreFilledToThreeDigits)
{
    const std::vector<std::pair<std::string, Text>> cases = {
        {"7", u"007"},     {"9", u"009"},  {"10", u"010"},  {"42", u"042"},   {"99", u"099"},     {"100", u"100"},
        {"1234", u"1234"}, {"0", u"000"},  {"-1", u"00-1"}, {"9.5", u"09.5"}, {"99.5", u"099.5"}, {"1e2", u"1e2"},
        {"1e1", u"01e1"},  {"ab", u"000"}, {"", u"000"},    {"7x", u"000"},   {"+7", u"00+7"},    {"007", u"00007"},
    };
    for (const auto& [number, shown] : cases)
        EXPECT_EQ(SourceRow("<A FNo=\"" + number + "\"/>")[SourceField::Number], shown) << number;
}

TEST_F(FieldCatalogue, ABlankMakesANumberNoNumber)
{
    EXPECT_EQ(SourceRow(R"(<A FNo=" 7"/>)")[SourceField::Number], u"000");
}

TEST_F(FieldCatalogue, TypesHaveAWordAndALengthOfTheirOwn)
{
    struct Case {
        std::string letter;
        Text word;
        Text length;
    };
    const std::vector<Case> cases = {
        {"B", u"Byte", u"6"},
        {"I", u"Integer", u"6"},
        {"L", u"Long", u"6"},
        {"F", u"Float", u"6,2"},
        {"D", u"Double", u"6,2"},
        {"S", u"String", u"20"},
        {"M", u"Multi-Byte String", u"20"},
        {"E", u"Enumerated", u"20"},
        {"P", u"Set", u"20"},
        {"T", u"Date", u"10"},
        {"K", u"UTC", u"15"},
        {"U", u"Text", u""},
        {"X", u"", u"as it was"},
        {"s", u"", u"as it was"},
        {"SS", u"", u"as it was"},
        {"", u"", u"as it was"},
    };
    for (const auto& [letter, word, length] : cases) {
        const XmlNode table = Table(R"(<A LENG="20" DIGB="6" DIGA="2" TYPE=")" + letter + "\"/>");
        Text StrLength = u"as it was";
        EXPECT_EQ(DecodeFieldType(table.firstChild(), StrLength), word) << letter;
        EXPECT_EQ(StrLength, length) << letter;
    }
}

TEST_F(FieldCatalogue, AnUnknownTypeShowsTheMarkAsItsLength)
{
    const Texts marked = SourceRow(R"(<A MAN="Y" TYPE="X" LENG="20"/>)");
    EXPECT_EQ(marked[SourceField::Type], u"");
    EXPECT_EQ(marked[SourceField::Length], u"*");
    EXPECT_EQ(SourceRow(R"(<A TYPE="X" LENG="20"/>)")[SourceField::Length], u"");
}

TEST_F(FieldCatalogue, AlignmentsAreWords)
{
    for (const auto& [letter, word] : std::vector<std::pair<std::string, Text>>{
             {"N", u"No"}, {"R", u"Right"}, {"L", u"Left"}, {"C", u"Centre"}, {"r", u"No"}, {"X", u"No"}, {"", u"No"}})
        EXPECT_EQ(SourceRow("<A ADJU=\"" + letter + "\"/>")[6], word) << letter;
}

TEST_F(FieldCatalogue, CasesAreWords)
{
    for (const auto& [letter, word] : std::vector<std::pair<std::string, Text>>{
             {"N", u"No"}, {"U", u"Upper"}, {"L", u"Lower"}, {"u", u"No"}, {"X", u"No"}, {"", u"No"}})
        EXPECT_EQ(SourceRow("<A CASE=\"" + letter + "\"/>")[7], word) << letter;
}

TEST_F(FieldCatalogue, NamesOfSeveralIndexesCloseOneBracket)
{
    EXPECT_EQ(SourceRow("<AMT__2__1/>")[SourceField::Name], u"tgtab001.amt(2(1)");
}

} // namespace
} // namespace rulemesh
