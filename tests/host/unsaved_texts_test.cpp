#include "host/unsaved_texts.h"

#include <gtest/gtest.h>

#include "script/control_events.h"
#include "shell/ctl_rulemesh.h"
#include "support/recording_events.h"
#include "support/recording_platform.h"

namespace rulemesh {
namespace {

const std::string Object = "<partn101><SRCTBL>custs001</SRCTBL><PREC>migrate custs001 | all\n</PREC>"
                           "<QUERY ST=\"custs001\">dump 1 | one\n</QUERY>"
                           "<SRCTAB><CUSTS001><CODE/></CUSTS001></SRCTAB>"
                           "<TARTAB><PARTN101><CODE No=\"1\"/><PRICE__1 No=\"2\"/></PARTN101></TARTAB>"
                           "<DUMP No=\"1\" TT=\"partn101\"><CODE TEXT=\"note\" TYPE=\"0\">custs001.code</CODE></DUMP>"
                           "</partn101>";

class UnsavedTextsTest : public ::testing::Test {
protected:
    UnsavedTextsTest()
    {
        control.TargetTable(u"partn101");
        control.Edit(true);
        control.MappingObjectXML(Object);
        control.ShowControl();
    }

    DesignerViews& Views() { return control.Views(); }
    std::string With(const std::string& old, const std::string& text) const
    {
        std::string object = Object;
        return object.replace(object.find(old), old.size(), text);
    }

    RecordingPlatform platform;
    RecordingEvents events;
    ctlRulemesh control{platform, events};
};

TEST_F(UnsavedTextsTest, AreNoneInAnObjectThatWasOnlyLookedAt)
{
    EXPECT_EQ(ObjectAsItStands(control), Object);
    Views().MainTab.UserClicksTab(1);
    EXPECT_EQ(ObjectAsItStands(control), control.DocumentAsItStands());
    EXPECT_TRUE(platform.Messages.empty());
}

TEST_F(UnsavedTextsTest, HoldThePreconditionThatIsBeingTyped)
{
    Views().txtPreCondition.UserTypes(u"migrate custs001 | some\r\n");
    EXPECT_EQ(control.DocumentAsItStands(), Object);
    EXPECT_EQ(ObjectAsItStands(control), With("| all\n", "| some\n"));
}

TEST_F(UnsavedTextsTest, HoldTheMainQueryOfTheTableShown)
{
    Views().txtMainQuery.UserTypes(u"dump 1 | <two>\r\n");
    EXPECT_EQ(ObjectAsItStands(control), With("dump 1 | one\n", "dump 1 | &lt;two&gt;\n"));
    Views().txtMainQuery.UserTypes(u"");
    EXPECT_EQ(ObjectAsItStands(control), Object); // no save stores an empty query
}

TEST_F(UnsavedTextsTest, HoldTheTextOfAnOpenPanel)
{
    Views().CmdFunction.UserClicks();
    const std::string before = control.DocumentAsItStands();
    Views().txtFunctions.UserTypes(u"function one");
    EXPECT_EQ(control.DocumentAsItStands(), before);
    EXPECT_NE(ObjectAsItStands(control).find("<FUNCTIONS>function one</FUNCTIONS>"), std::string::npos);
}

TEST_F(UnsavedTextsTest, HoldARuleInAnOpenCell)
{
    Views().MainTab.UserClicksTab(1);
    Grid& grid = Views().RulesGrid;
    grid.UserClicksCell(1, 1, Grid::Clicks::Double);
    ASSERT_TRUE(Views().txtgrdline.Visible());
    Views().txtgrdline.UserTypes(u"a +\r\nb");
    EXPECT_EQ(control.DocumentAsItStands().find("PRICE__1 TEXT"), std::string::npos);
    EXPECT_NE(ObjectAsItStands(control).find("<PRICE__1 TEXT=\"\" TYPE=\"1\">a +&#13;\nb</PRICE__1>"),
              std::string::npos);
}

TEST_F(UnsavedTextsTest, HoldARuleThatWasTakenAway)
{
    Views().MainTab.UserClicksTab(1);
    Views().RulesGrid.UserClicksCell(0, 1, Grid::Clicks::Single);
    control.FieldMapping(u"");
    EXPECT_NE(control.DocumentAsItStands().find("custs001.code</CODE>"), std::string::npos);
    EXPECT_EQ(ObjectAsItStands(control).find("custs001.code</CODE>"), std::string::npos);
}

TEST(WithUnsavedTexts, RemovesTheRecordOfAnEmptyRule)
{
    UnsavedTexts texts;
    texts.PreCondition = u"migrate custs001 | all\r\n";
    texts.Dump = u"01";
    texts.Rules = {{u"partn101.code", u""}, {u"partn101.price(1)", u" "}};
    EXPECT_EQ(WithUnsavedTexts(Object, texts).find("<CODE TEXT"), std::string::npos);
    EXPECT_EQ(WithUnsavedTexts(Object, texts).find("<PRICE__1 TEXT"), std::string::npos);
}

TEST(WithUnsavedTexts, AddsAQueryForATableThatHasNone)
{
    UnsavedTexts texts;
    texts.PreCondition = u"migrate custs001 | all\r\n";
    texts.QueryTable = u"custs002";
    texts.Query = u"dump 2";
    EXPECT_NE(WithUnsavedTexts(Object, texts).find("<QUERY ST=\"custs002\">dump 2</QUERY>"), std::string::npos);
}

TEST(WithUnsavedTexts, PassesOverARowWhoseKeyNamesNoField)
{
    UnsavedTexts texts;
    texts.PreCondition = u"migrate custs001 | all\r\n";
    texts.Dump = u"1";
    texts.Rules = {{u"", u"x"}, {u"x", u"y"}, {u"partn101.a=b", u"z"}};
    EXPECT_EQ(WithUnsavedTexts(Object, texts), Object);
}

TEST(WithUnsavedTexts, LeavesWhatIsNoObjectAsItIs)
{
    EXPECT_EQ(WithUnsavedTexts("no xml", {}), "no xml");
    EXPECT_EQ(WithUnsavedTexts("", {}), "");
}

} // namespace
} // namespace rulemesh
