#include "object/field_catalogue.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "object/field_types.h"

namespace rulemesh {
namespace {

class FieldTypeWords : public testing::Test {
protected:
    // The table TGTAB001 with these fields.
    [[nodiscard]] XmlNode Table(const std::string& fields)
    {
        EXPECT_TRUE(document_.loadXML("<TGTAB001>" + fields + "</TGTAB001>"));
        return document_.documentElement();
    }

    XmlDocument document_;
};

TEST(FieldWords, NumbersAreFilledToThreeDigits)
{
    const std::vector<std::pair<Text, Text>> cases = {
        {u"7", u"007"},      {u"9", u"009"},     {u"10", u"010"},    {u"42", u"042"},  {u"99", u"099"},
        {u"100", u"100"},    {u"1234", u"1234"}, {u"0", u"000"},     {u"-1", u"00-1"}, {u"9.5", u"09.5"},
        {u"99.5", u"099.5"}, {u"1e2", u"1e2"},   {u"1e1", u"01e1"},  {u"ab", u"000"},  {u"", u"000"},
        {u"7x", u"000"},     {u"+7", u"00+7"},   {u"007", u"00007"},
    };
    for (const auto& [number, shown] : cases)
        EXPECT_EQ(FieldNumberText(number), shown) << testing::PrintToString(number);
}

TEST(FieldWords, ABlankMakesANumberNoNumber) { EXPECT_EQ(FieldNumberText(u" 7"), u"000"); }

TEST_F(FieldTypeWords, TypesHaveAWordAndALengthOfTheirOwn)
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

TEST(FieldWords, AlignmentsAreWords)
{
    for (const auto& [letter, word] : std::vector<std::pair<Text, Text>>{{u"N", u"No"},
                                                                         {u"R", u"Right"},
                                                                         {u"L", u"Left"},
                                                                         {u"C", u"Centre"},
                                                                         {u"r", u"No"},
                                                                         {u"X", u"No"},
                                                                         {u"", u"No"}})
        EXPECT_EQ(AlignmentWord(letter), word) << testing::PrintToString(letter);
}

TEST(FieldWords, CasesAreWords)
{
    for (const auto& [letter, word] : std::vector<std::pair<Text, Text>>{
             {u"N", u"No"}, {u"U", u"Upper"}, {u"L", u"Lower"}, {u"u", u"No"}, {u"X", u"No"}, {u"", u"No"}})
        EXPECT_EQ(CaseWord(letter), word) << testing::PrintToString(letter);
}

// The table is looked up by the type's place in it.
TEST(FieldTypes, StandInTheOrderOfTheirTypes)
{
    for (const FieldTypeEntry& entry : FieldTypes)
        EXPECT_EQ(WordOf(entry.Type), entry.Word) << testing::PrintToString(entry.Word);
}

} // namespace
} // namespace rulemesh
