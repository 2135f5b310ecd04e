#include "shell/ctl_rulemesh.h"

#include <gmock/gmock.h>

#include "base/failure.h"
#include "base/failure_of.h"
#include "shell/designer_bench.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using CtlRulemesh = DesignerBench;

TEST_F(CtlRulemesh, ArrayIsInitializedOnceItHasAnElement)
{
    EXPECT_FALSE(ctlRulemesh::ArrayIsInitialized(std::vector<std::int16_t>{}));
    EXPECT_FALSE(ctlRulemesh::ArrayIsInitialized(std::vector<Text>{}));
    EXPECT_TRUE(ctlRulemesh::ArrayIsInitialized(std::vector<std::int16_t>{0}));
    EXPECT_TRUE(ctlRulemesh::ArrayIsInitialized(std::vector<Text>{u""}));
}

TEST_F(CtlRulemesh, StateAtTheStartIsThatOfNoObject)
{
    const ControlState& state = control_.State();
    EXPECT_THAT(state.IntDumpNumbers, ElementsAre(0));
    EXPECT_THAT(state.StrDumpTexts, ElementsAre(u""));
    EXPECT_THAT(state.StrMigrateTables, ElementsAre(u""));
    EXPECT_TRUE(state.DumpSourceTables.empty());
    EXPECT_TRUE(state.DumpComments.empty());
    EXPECT_FALSE(state.BoolEditorOpen || state.BoolEdit || state.BoolMultiTarget || state.BoolSyntaxHighlight);
    EXPECT_EQ(state.IntErrorCode, 0);
    EXPECT_EQ(control_.DocumentAsItStands(), "");
}

TEST_F(CtlRulemesh, ALoneSurrogateIsNoXml)
{
    Open();
    Text xml = u"<tgtab001><PREC>x</PREC></tgtab001>";
    xml[16] = 0xD800;
    control_.MappingObjectXML(xml);
    EXPECT_EQ(control_.DocumentAsItStands(), "");
    EXPECT_EQ(control_.State().IntErrorCode, 1);
    EXPECT_EQ(control_.State().StrErrorText, u"The Loaded XML was not a Valid XML. Please refresh");
    EXPECT_EQ(views_.txtPreCondition.Text(), u"migrate srtab001");
    EXPECT_THAT(platform_.Messages, IsEmpty());
}

TEST_F(CtlRulemesh, BothFormsOfTheTextAreTheSame)
{
    const Text xml = u"<tgtab001><PREC>\u00E9\u4E2D\U0001F600</PREC><SRCTBL/><DUMP No=\"0\" TXT=\"\"/></tgtab001>";
    control_.TargetTable(u"tgtab001");
    control_.MappingObjectXML(TextView(xml));
    control_.ShowControl();
    const std::string utf8 = control_.DocumentAsItStands();
    EXPECT_EQ(control_.MappingObjectXML(), xml);
    EXPECT_EQ(control_.MappingObjectXmlUtf8(), utf8);
    control_.MappingObjectXML(utf8);
    EXPECT_EQ(control_.MappingObjectXML(), xml);
}

TEST_F(CtlRulemesh, TargetTableHasEightCharacters)
{
    for (const auto& [given, kept] : std::vector<std::pair<Text, Text>>{
             {u"tgtab0012", u"tgtab001"}, {u"tgt1", u"tgt1    "}, {u"", u"        "}, {u" a", u" a      "}}) {
        control_.TargetTable(given);
        EXPECT_EQ(control_.State().StrTargetTable, kept);
    }
}

TEST_F(CtlRulemesh, ForeignRootNamesTheRootThatIsNotTheTargetTable)
{
    EXPECT_EQ(control_.ForeignRoot(), u""); // no root yet
    Open();
    EXPECT_EQ(control_.ForeignRoot(), u"");
    control_.TargetTable(u"TGTAB001");
    EXPECT_EQ(control_.ForeignRoot(), u"tgtab001");
    control_.TargetTable(u"par");
    control_.MappingObjectXML(u"<par/>"); // TargetTable is filled with blanks, which no root has
    EXPECT_EQ(control_.ForeignRoot(), u"par");
    control_.MappingObjectXML(u"<broken");
    EXPECT_EQ(control_.ForeignRoot(), u"");
}

TEST_F(CtlRulemesh, HighlightingReachesTheFourScriptBoxes)
{
    control_.Syntax_Highlight(true);
    for (const SyntaxBox* box :
         {&views_.txtPreCondition, &views_.txtMainQuery, &views_.txtVariables, &views_.txtFunctions})
        EXPECT_TRUE(box->Highlight());
    EXPECT_TRUE(control_.Syntax_Highlight());
    control_.Syntax_Highlight(false);
    EXPECT_FALSE(views_.txtMainQuery.Highlight());
}

TEST_F(CtlRulemesh, TheCopyFileSpellsOutWhatItsCodePageLacks)
{
    Open("<tgtab001><PREC>\xC3\xA9\xE4\xB8\xAD</PREC></tgtab001>");
    static_cast<void>(control_.MappingObjectXML());
    EXPECT_EQ(platform_.InMemory.Contents().at(u"C:\\Temp\\tgtab001.xml"),
              "<tgtab001><PREC>\xE9&#20013;</PREC><SRCTBL/><DUMP No=\"0\" TXT=\"\"/></tgtab001>");
}

TEST_F(CtlRulemesh, TheHostGetsNoTextWhenTheCopyCanNotBeWritten)
{
    Open();
    platform_.InMemory.FailNext();
    EXPECT_EQ(FailureOf([&] { static_cast<void>(control_.MappingObjectXML()); }), FailureCode::PathFileAccess);
    EXPECT_EQ(control_.MappingObjectXmlUtf8(), SmallObject);
}

TEST_F(CtlRulemesh, ReadingBackChangesNothingThatNobodyTouched)
{
    OpenRules();
    views_.MainTab.UserClicksTab(0);
    EXPECT_EQ(control_.MappingObjectXmlUtf8(), SmallObject);
    EXPECT_EQ(control_.MappingObjectXmlUtf8(), SmallObject);
}

TEST_F(CtlRulemesh, AnObjectWithoutPreconditionCanNotBeReadBack)
{
    Open("<tgtab001/>");
    EXPECT_EQ(FailureOf([&] { static_cast<void>(control_.MappingObjectXML()); }), FailureCode::ObjectVariableNotSet);
}

TEST_F(CtlRulemesh, HostsSetPropertiesFromInsideTheEventsThatAskForThem)
{
    Open();
    events_.Answer = [&] { control_.SourceTables(u"srtab001,srtab002"); };
    views_.CmdSelectSource.UserClicks();
    events_.Answer = [&] { control_.PreCondition(u"migrate srtab001 | &lt;built&gt;"); };
    views_.CmdBuildPre.UserClicks();
    events_.Answer = [&] { control_.MainQuery(u"dump 1 dump 2 | &lt;built&gt;"); };
    views_.cmdBuildMQ.UserClicks();
    EXPECT_THAT(events_.Raised, ElementsAre(u"ShowSourceTablesPopUp(srtab001)",
                                            u"ShowConditionBuilderPopUp(migrate srtab001, srtab001,srtab002)",
                                            u"ShowQueryBuilderPopUp(dump 1 | one\r\ndump 2 | two, srtab001)"));
    EXPECT_EQ(control_.SourceTables(), u"srtab001,srtab002");
    EXPECT_EQ(views_.lstSourceTables.Count(), 2);
    EXPECT_EQ(views_.txtPreCondition.Text(), u"migrate srtab001 | <built>");
    EXPECT_EQ(control_.MainQuery(), u"dump 1 dump 2 | &lt;built&gt;");
    EXPECT_THAT(control_.DocumentAsItStands(), HasSubstr("<PREC>migrate srtab001 | &lt;built&gt;</PREC>"));
    EXPECT_THAT(control_.DocumentAsItStands(), HasSubstr("dump 1 dump 2 | &amp;lt;built&amp;gt;</QUERY>"));
}

TEST_F(CtlRulemesh, HostsMayReadBackAndShowAgainFromInsideAnEvent)
{
    Open();
    std::string inside;
    events_.Answer = [&] {
        inside = control_.MappingObjectXmlUtf8();
        control_.ShowControl();
    };
    views_.CmdFunction.UserClicks();
    EXPECT_THAT(events_.Raised, ElementsAre(u"SaveDoneDisabled()"));
    EXPECT_EQ(inside, SmallObject);
    EXPECT_TRUE(views_.txtFunctions.Visible());
}

TEST_F(CtlRulemesh, AHostsLoadFromInsideAnEventWins)
{
    OpenRules();
    views_.CmdFuncBuild.Visible(true);
    events_.Answer = [&] { Open("<tgtab001><PREC>other</PREC></tgtab001>"); };
    views_.CmdFuncBuild.UserClicks();
    EXPECT_THAT(events_.Raised, ElementsAre(u"ShowFunctionBuilderPopUp(a, srtab001)"));
    EXPECT_EQ(views_.txtPreCondition.Text(), u"other");
    EXPECT_EQ(views_.lstTargetFields.Count(), 0);
}

class TwoControls : public DesignerBench {
protected:
    RecordingPlatform otherPlatform_;
    RecordingEvents otherEvents_;
    ctlRulemesh other_{otherPlatform_, otherEvents_};
};

TEST_F(TwoControls, DoNotMeet)
{
    OpenRules();
    other_.TargetTable(u"tgtab002");
    other_.MappingObjectXML(std::string("<tgtab002><PREC>other</PREC></tgtab002>"));
    other_.Edit(false);
    other_.ShowControl();

    EXPECT_TRUE(views_.CmdGuess.Enabled());
    EXPECT_FALSE(other_.Views().CmdGuess.Enabled());
    EXPECT_EQ(views_.CmbDump.Entries().size(), 2U);
    EXPECT_EQ(other_.Views().CmbDump.Entries().size(), 0U);
    EXPECT_EQ(views_.Tree.Focused(), &views_.CmbDump);
    EXPECT_EQ(other_.Views().Tree.Focused(), nullptr);
    EXPECT_EQ(other_.Views().MainTab.Tab(), 0);
    EXPECT_EQ(control_.MappingObjectXmlUtf8(), SmallObject);
    EXPECT_EQ(other_.MappingObjectXML(), u"<tgtab002><PREC>other</PREC><SRCTBL/><DUMP No=\"0\" TXT=\"\"/></tgtab002>");
    EXPECT_THAT(otherPlatform_.InMemory.Contents(), testing::SizeIs(1));
    EXPECT_THAT(otherEvents_.Raised, IsEmpty());
}

TEST_F(TwoControls, ShareTheEditFlagOfTheNoteForm)
{
    Open();
    other_.Edit(false);
    bool locked = false;
    platform_.FormActions.push_back([&](ModalForm& form) { locked = static_cast<FrmTxtDoc&>(form).TxtDoc.Locked(); });
    views_.CmdPreDoc.UserClicks();
    EXPECT_TRUE(locked);
    EXPECT_TRUE(control_.State().BoolEdit);
    EXPECT_FALSE(Shared().BoolEditShared);
}

// An editor that is open in one control stops nothing in the other.
TEST_F(TwoControls, KnowOnlyTheirOwnEditor)
{
    Open();
    other_.TargetTable(u"tgtab001");
    other_.MappingObjectXML(std::string(SmallObject));
    other_.Edit(true);
    other_.ShowControl();
    platform_.Editor = [](const Text&) -> int { throw Failure(FailureCode::FileNotFound); };
    views_.CmdMqEditor.UserClicks();
    EXPECT_TRUE(control_.State().BoolEditorOpen);
    EXPECT_FALSE(other_.State().BoolEditorOpen);
    other_.Views().txtMainQuery.Text(u"dump 1 dump 2");
    other_.Views().Tree.UserLeaves();
    EXPECT_THAT(other_.DocumentAsItStands(), HasSubstr(R"(<QUERY ST="srtab001">dump 1 dump 2</QUERY>)"));
    views_.txtMainQuery.Text(u"dump 1 dump 2");
    views_.Tree.UserLeaves();
    EXPECT_EQ(control_.DocumentAsItStands(), SmallObject);
}

} // namespace
} // namespace rulemesh
