#include "host/reading/unsaved_texts.h"

#include <memory>

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
    UnsavedTextsTest() { Open(Object); }

    // A control shows one object in its life.
    void Open(const std::string& object)
    {
        shown = std::make_unique<ctlRulemesh>(platform, events);
        Control().TargetTable(u"partn101");
        Control().Edit(true);
        Control().MappingObjectXML(object);
        Control().ShowControl();
    }

    ctlRulemesh& Control() { return *shown; }
    DesignerViews& Views() { return Control().Views(); }
    std::string With(const std::string& old, const std::string& text) const
    {
        std::string object = Object;
        return object.replace(object.find(old), old.size(), text);
    }

    RecordingPlatform platform;
    RecordingEvents events;
    std::unique_ptr<ctlRulemesh> shown;
};

TEST_F(UnsavedTextsTest, AreNoneInAnObjectThatWasOnlyLookedAt)
{
    EXPECT_EQ(ObjectAsItStands(Control()), Object);
    Views().MainTab.UserClicksTab(1);
    EXPECT_EQ(ObjectAsItStands(Control()), Control().DocumentAsItStands());
    EXPECT_TRUE(platform.Messages.empty());
}

TEST_F(UnsavedTextsTest, HoldThePreconditionThatIsBeingTyped)
{
    Views().txtPreCondition.UserTypes(u"migrate custs001 | some\r\n");
    EXPECT_EQ(Control().DocumentAsItStands(), Object);
    EXPECT_EQ(ObjectAsItStands(Control()), With("| all\n", "| some\n"));
}

TEST_F(UnsavedTextsTest, HoldTheMainQueryOfTheTableShown)
{
    Views().txtMainQuery.UserTypes(u"dump 1 | <two>\r\n");
    EXPECT_EQ(ObjectAsItStands(Control()), With("dump 1 | one\n", "dump 1 | &lt;two&gt;\n"));
    Views().txtMainQuery.UserTypes(u"");
    EXPECT_EQ(ObjectAsItStands(Control()), Object); // no save stores an empty query
}

TEST_F(UnsavedTextsTest, HoldTheTextOfAnOpenPanel)
{
    Views().CmdFunction.UserClicks();
    const std::string before = Control().DocumentAsItStands();
    Views().txtFunctions.UserTypes(u"function one");
    EXPECT_EQ(Control().DocumentAsItStands(), before);
    EXPECT_NE(ObjectAsItStands(Control()).find("<FUNCTIONS>function one</FUNCTIONS>"), std::string::npos);
}

TEST_F(UnsavedTextsTest, HoldARuleInAnOpenCell)
{
    Views().MainTab.UserClicksTab(1);
    Grid& grid = Views().RulesGrid;
    grid.UserClicksCell(1, 1, Grid::Clicks::Double);
    ASSERT_TRUE(Views().txtgrdline.Visible());
    Views().txtgrdline.UserTypes(u"a +\r\nb");
    EXPECT_EQ(Control().DocumentAsItStands().find("PRICE__1 TEXT"), std::string::npos);
    EXPECT_NE(ObjectAsItStands(Control()).find("<PRICE__1 TEXT=\"\" TYPE=\"1\">a +&#13;\nb</PRICE__1>"),
              std::string::npos);
}

TEST_F(UnsavedTextsTest, HoldARuleThatWasTakenAway)
{
    Views().MainTab.UserClicksTab(1);
    Views().RulesGrid.UserClicksCell(0, 1, Grid::Clicks::Single);
    Control().FieldMapping(u"");
    EXPECT_NE(Control().DocumentAsItStands().find("custs001.code</CODE>"), std::string::npos);
    EXPECT_EQ(ObjectAsItStands(Control()).find("custs001.code</CODE>"), std::string::npos);
}

TEST_F(UnsavedTextsTest, AreNotTheMarksThatAPanelShowsAsTabsAndLineEnds)
{
    Open(Object.substr(0, Object.find("<DUMP")) + "<VAR>a~|~b~^~c &amp;lt;</VAR></partn101>");
    Views().CmdVariables.UserClicks();
    ASSERT_EQ(Views().txtVariables.Text(), u"a\tb\r\nc <");
    EXPECT_EQ(ObjectAsItStands(Control()), Control().DocumentAsItStands());
    Views().txtVariables.UserTypes(u"a\td");
    EXPECT_NE(ObjectAsItStands(Control()).find("<VAR>a\td</VAR>"), std::string::npos);
}

// Fields that are numbered against their order, so that the row of a rule bears another field's name.
const std::string Crossed = "<partn101><SRCTBL>custs001</SRCTBL><PREC>migrate custs001 | all\n</PREC>"
                            "<QUERY ST=\"custs001\">dump 1 | one\n</QUERY>"
                            "<SRCTAB><CUSTS001><CODE/></CUSTS001></SRCTAB>"
                            "<TARTAB><PARTN101><CODE No=\"2\"/><NAME No=\"1\"/></PARTN101></TARTAB>"
                            "<DUMP No=\"1\" TT=\"partn101\"><CODE TEXT=\"\" TYPE=\"0\">custs001.code</CODE>"
                            "<NAME TEXT=\"\" TYPE=\"0\">custs001.name</NAME></DUMP></partn101>";

TEST_F(UnsavedTextsTest, MoveNoRuleThatNobodyTouched)
{
    Open(Crossed);
    Views().MainTab.UserClicksTab(1);
    ASSERT_EQ(Views().RulesGrid.TextMatrix(0, 1), u"custs001.name");
    EXPECT_EQ(ObjectAsItStands(Control()), Crossed);
}

TEST_F(UnsavedTextsTest, StandInTheDraftAsTheSaveWritesThem)
{
    for (const std::string& object : {Object, Crossed}) {
        Open(object);
        Views().MainTab.UserClicksTab(1);
        Views().RulesGrid.UserClicksCell(1, 1, Grid::Clicks::Double);
        Views().txtgrdline.UserTypes(u"typed");
        const std::string draft = ObjectAsItStands(Control());
        EXPECT_EQ(draft.find(">typed</"), draft.rfind(">typed</")); // in one field
        Views().Tree.UserLeaves();
        Views().MainTab.UserClicksTab(0);
        EXPECT_EQ(draft, Control().DocumentAsItStands());
    }
}

TEST_F(UnsavedTextsTest, AreKeptWhereTheRulesCanNotBeStored)
{
    Open(With("No=\"2\"", "No=\"two\""));
    Views().txtPreCondition.UserTypes(u"migrate custs001 | some\r\n");
    UnsavedTexts texts = TakeUnsavedTexts(Control());
    texts.Dump = GridDump(DumpNumber(1));
    texts.Rules = {u"custs001.id", u"x"};
    const std::string draft = WithUnsavedTexts(Control().DocumentAsItStands(), texts);
    EXPECT_NE(draft.find("| some\n"), std::string::npos);
    EXPECT_NE(draft.find(">custs001.id</CODE>"), std::string::npos); // in front of the field that ends the save
}

TEST(WithUnsavedTexts, RemovesTheRecordOfAnEmptyRule)
{
    UnsavedTexts texts;
    texts.PreCondition = u"migrate custs001 | all\r\n";
    texts.Dump = GridDump(DumpNumber(1), GridDump::Digits::Two);
    texts.Rules = {u"", u""};
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

TEST(WithUnsavedTexts, GivesADumpWithoutAnElementTheChosenTable)
{
    std::string object = Object;
    object.insert(object.find("<TARTAB>"), "<MSCRIPT><PARTN101/></MSCRIPT>");
    UnsavedTexts texts;
    texts.PreCondition = u"migrate custs001 | all\r\n";
    texts.Dump = GridDump(DumpNumber(2));
    texts.DumpTable = u"PARTN101";
    texts.Rules = {u"x", u""};
    EXPECT_NE(WithUnsavedTexts(object, texts)
                  .find("<DUMP No=\"2\" TT=\"PARTN101\"><CODE TEXT=\"\" TYPE=\"0\">x</CODE></DUMP>"),
              std::string::npos);
}

TEST(WithUnsavedTexts, LeavesWhatIsNoObjectAsItIs)
{
    EXPECT_EQ(WithUnsavedTexts("no xml", {}), "no xml");
    EXPECT_EQ(WithUnsavedTexts("", {}), "");
}

} // namespace
} // namespace rulemesh
