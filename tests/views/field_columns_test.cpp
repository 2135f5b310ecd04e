#include "views/field_columns.h"

#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace rulemesh {
namespace {

using testing::ElementsAre;

struct Shown {
    std::vector<Text> Captions;
    std::vector<int> Widths;
    std::vector<int> RightAligned; // positions

    explicit Shown(FieldList list)
    {
        for (const ListView::Column& column : ColumnsOf(list)) {
            if (column.RightAligned)
                RightAligned.push_back(static_cast<int>(Captions.size()));
            Captions.emplace_back(column.Caption);
            Widths.push_back(column.Width);
        }
    }
};

TEST(FieldColumns, AreThirteenInTheTargetList)
{
    const Shown shown(FieldList::Target);
    EXPECT_THAT(shown.Captions, ElementsAre(u"", u"", u"No", u"Field Name", u"Type", u"Length", u"Description",
                                            u"Alignment", u"Case", u"Domain", u"Initial Value", u"DomEnum", u""));
    EXPECT_THAT(shown.Widths, ElementsAre(441, 706, 882, 2293, 1093, 882, 2187, 882, 882, 2540, 2540, 2540, 2540));
    EXPECT_THAT(shown.RightAligned, ElementsAre(2, 5));
}

TEST(FieldColumns, AreElevenInTheSourceList)
{
    const Shown shown(FieldList::Source);
    EXPECT_THAT(shown.Captions, ElementsAre(u"", u"No", u"Field Name", u"Type", u"Length", u"Description", u"Alignment",
                                            u"Case", u"Domain", u"Initial Value", u"DomEnum"));
    EXPECT_THAT(shown.Widths, ElementsAre(706, 882, 2381, 1093, 882, 2187, 882, 882, 2540, 2540, 2540));
    EXPECT_THAT(shown.RightAligned, ElementsAre(4));
}

TEST(FieldColumns, StandWhereTheRowsHoldTheirTexts)
{
    EXPECT_THAT((std::vector{TargetField::Front, TargetField::Mark, TargetField::Number, TargetField::Name,
                             TargetField::Type, TargetField::Length, TargetField::Domain, TargetField::Enums}),
                ElementsAre(0, 1, 2, 3, 4, 5, 9, 11));
    EXPECT_THAT((std::vector{SourceField::Mark, SourceField::Number, SourceField::Name, SourceField::Type,
                             SourceField::Length, SourceField::Domain, SourceField::Enums}),
                ElementsAre(0, 1, 2, 3, 4, 8, 10));
    EXPECT_EQ(PositionIn(FieldList::Source, FieldText::Front), -1);
    EXPECT_EQ(PositionIn(FieldList::Source, FieldText::Rest), -1);
}

TEST(FieldColumns, TellEachTextOnceAndReadEachAttributeOnce)
{
    std::set<FieldText> texts;
    std::set<std::string_view> attributes;
    for (const FieldColumn& column : FieldColumns) {
        EXPECT_TRUE(texts.insert(column.Tells).second) << static_cast<int>(column.Tells);
        EXPECT_TRUE(column.Attribute.empty() || attributes.insert(column.Attribute).second) << column.Attribute;
        EXPECT_TRUE(column.Source || column.Target) << static_cast<int>(column.Tells);
    }
}

} // namespace
} // namespace rulemesh
