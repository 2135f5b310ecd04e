#include "engine/field_rows.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "object/field_catalogue.h"
#include "views/designer_views.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;

class FieldRows : public testing::Test {
protected:
    // The table TGTAB001 with these fields.
    [[nodiscard]] XmlNode Table(const std::string& fields)
    {
        EXPECT_TRUE(document_.loadXML("<TGTAB001>" + fields + "</TGTAB001>"));
        return document_.documentElement();
    }

    XmlDocument document_;
    ViewTree tree_;
    ListView list_{tree_, {.Name = u"list"}, {}};
};

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

TEST(FieldLists, ShowTheEnumerationsAsTheirToolTip)
{
    const DesignerViews views;
    EXPECT_EQ(views.lstTargetFields.ToolTipPosition(), TargetField::Enums);
    EXPECT_EQ(views.lstSourceFields.ToolTipPosition(), SourceField::Enums);
}

} // namespace
} // namespace rulemesh
