#include "shell/editor_bridge.h"

#include <filesystem>

#include <gmock/gmock.h>

#include "base/failure.h"
#include "base/failure_of.h"
#include "platform/private_folder_files.h"
#include "platform/process_launcher.h"
#include "platform/temporary_folder.h"
#include "shell/designer_bench.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using EditorBridgeTest = DesignerBench;

TEST_F(EditorBridgeTest, AFileThatTheEditorRemovedLeavesTheButtonDisabled)
{
    Open();
    platform_.Editor = [this](const Text&) {
        platform_.InMemory.FailNext(); // the read behind the run
        return 0;
    };
    EXPECT_EQ(FailureOf([&] { views_.CmdPreEditor.UserClicks(); }), FailureCode::PathFileAccess);
    EXPECT_FALSE(views_.CmdPreEditor.Enabled());
    EXPECT_FALSE(control_.State().BoolEditorOpen);
    EXPECT_EQ(control_.DocumentAsItStands(), SmallObject);
}

TEST_F(EditorBridgeTest, AFailedReadLeavesTheSourceTablesCleared)
{
    Open();
    platform_.Editor = [this](const Text&) {
        platform_.InMemory.FailNext();
        return 0;
    };
    EXPECT_EQ(FailureOf([&] { views_.cmdSrcEdit.UserClicks(); }), FailureCode::PathFileAccess);
    EXPECT_EQ(views_.lstSourceTables.Count(), 0);
    EXPECT_FALSE(views_.cmdSrcEdit.Enabled());
}

TEST_F(EditorBridgeTest, AFailedWriteStartsNoEditor)
{
    OpenRules();
    platform_.InMemory.FailNext();
    EXPECT_EQ(FailureOf([&] { views_.CmdEditRule.UserClicks(); }), FailureCode::PathFileAccess);
    EXPECT_THAT(platform_.Commands, IsEmpty());
    EXPECT_FALSE(views_.CmdEditRule.Enabled());
}

TEST_F(EditorBridgeTest, ATextThatTheFileCanNotHoldIsFoundFirst)
{
    OpenRules();
    views_.RulesGrid.TextMatrix(0, 1, u"\u4E2D");
    EXPECT_EQ(FailureOf([&] { views_.CmdEditRule.UserClicks(); }), FailureCode::InvalidProcedureCall);
    EXPECT_TRUE(views_.CmdEditRule.Enabled());
    views_.MainTab.UserClicksTab(0);
    views_.txtPreCondition.Text(u"\u4E2D");
    views_.txtMainQuery.Text(u"\u4E2D");
    EXPECT_EQ(FailureOf([&] { views_.CmdPreEditor.Click(); }), FailureCode::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([&] { views_.CmdMqEditor.Click(); }), FailureCode::InvalidProcedureCall);
    views_.lstSourceTables.Add({u"\u4E2D"});
    EXPECT_EQ(FailureOf([&] { views_.cmdSrcEdit.Click(); }), FailureCode::InvalidProcedureCall);
    EXPECT_EQ(views_.lstSourceTables.Count(), 2);
    views_.txtVariables.Text(u"\u4E2D");
    EXPECT_EQ(FailureOf([&] { views_.CmdFuncEditor.Click(); }), FailureCode::InvalidProcedureCall);
    for (const Button* button : {&views_.CmdPreEditor, &views_.CmdMqEditor, &views_.cmdSrcEdit, &views_.CmdFuncEditor})
        EXPECT_TRUE(button->Enabled());
    EXPECT_THAT(platform_.InMemory.Contents(), IsEmpty());
    EXPECT_THAT(platform_.Commands, IsEmpty());
}

TEST_F(EditorBridgeTest, AStatusPastSixteenBitsIsAnEditorThatDidNotOpen)
{
    Open();
    platform_.Editor = [this](const Text& StrPath) {
        platform_.InMemory.Put(StrPath, "migrate srtab001 | edited");
        return 70000;
    };
    views_.CmdPreEditor.UserClicks();
    ASSERT_EQ(platform_.Messages.size(), 1U);
    EXPECT_EQ(platform_.Messages[0].Text, u"Unable to open editor");
    EXPECT_EQ(platform_.Messages[0].Title, u"");
    EXPECT_THAT(platform_.Messages[0].Buttons, ElementsAre(MessageButton::Ok));
    EXPECT_TRUE(control_.State().BoolEditorOpen);
    EXPECT_EQ(views_.txtPreCondition.Text(), u"migrate srtab001 | edited"); // it counts as a clean exit
}

TEST_F(EditorBridgeTest, TheControlIsFrozenWhileTheEditorRuns)
{
    Open();
    platform_.Editor = [this](const Text&) {
        EXPECT_TRUE(control_.State().BoolEditorOpen);
        EXPECT_FALSE(views_.CmdMqEditor.Enabled());
        views_.txtMainQuery.Text(u"dump 1 dump 2 | in between");
        views_.Tree.UserLeaves();
        EXPECT_EQ(control_.DocumentAsItStands(), SmallObject);
        return 1;
    };
    views_.CmdMqEditor.UserClicks();
    EXPECT_FALSE(control_.State().BoolEditorOpen);
    EXPECT_TRUE(views_.CmdMqEditor.Enabled());
}

TEST_F(EditorBridgeTest, TheCommandIsTheEditorTwoBlanksAndThePath)
{
    Open();
    control_.TargetTable(u"tgt1");
    platform_.Editor = [](const Text&) { return 1; }; // the edit is dropped
    for (const Text editor : {u"", u"   ", u" vi", u"vi -b "}) {
        control_.Editor(editor);
        views_.CmdPreEditor.Click();
    }
    EXPECT_THAT(platform_.Commands,
                ElementsAre(u"notepad C:\\Temp\\tgt1    Pre.bc", u"notepad C:\\Temp\\tgt1    Pre.bc",
                            u" vi  C:\\Temp\\tgt1    Pre.bc", u"vi -b   C:\\Temp\\tgt1    Pre.bc"));
}

// A control on files of the disk, with editors that are programs.
class RealEditor : public testing::Test {
protected:
    class LaunchingPlatform : public RecordingPlatform {
    public:
        using RecordingPlatform::RecordingPlatform;
        int RunEditor(const Text& StrEditor, const Text& StrPath) override { return RunAndWait(StrEditor, StrPath); }
    };

    void Open(CodePage page, const std::string& script)
    {
        Shared() = {};
        files_ = std::make_unique<PrivateFolderFiles>(TextOf(folder_ / "texts/"), page);
        platform_ = std::make_unique<LaunchingPlatform>(*files_);
        control_ = std::make_unique<ctlRulemesh>(*platform_, events_);
        const std::filesystem::path editor = folder_ / "an editor.sh";
        Put(editor, "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(editor, std::filesystem::perms::owner_all);
        control_->Editor(u"\"" + TextOf(editor) + u"\" first");
        control_->TargetTable(u"tgtab001");
        control_->Edit(true);
        control_->MappingObjectXML(std::string(SmallObject));
        control_->ShowControl();
    }

    TemporaryFolder folder_;
    RecordingEvents events_;
    std::unique_ptr<PrivateFolderFiles> files_;
    std::unique_ptr<LaunchingPlatform> platform_;
    std::unique_ptr<ctlRulemesh> control_;
};

TEST_F(RealEditor, ChangesTheFileThatItIsGiven)
{
    Open(CodePage::Windows1252,
         R"sh(test "$1" = first && printf '%s | \351' "$(cat "$2")" > "$2.new" && mv "$2.new" "$2")sh");
    control_->Views().CmdPreEditor.UserClicks();
    EXPECT_EQ(control_->Views().txtPreCondition.Text(), u"migrate srtab001 | \u00E9");
    EXPECT_THAT(control_->DocumentAsItStands(), HasSubstr("<PREC>migrate srtab001 | \xC3\xA9</PREC>"));
    EXPECT_EQ(Contents(folder_ / "texts/tgtab001Pre.bc"), "migrate srtab001 | \xE9");
    EXPECT_THAT(platform_->Messages, IsEmpty());
}

TEST_F(RealEditor, ReadsAndWritesUtf8WhereTheHostSaysSo)
{
    Open(CodePage::Utf8, R"sh(printf '%s\344\270\255' "$(cat "$2")" > "$2.new" && mv "$2.new" "$2")sh");
    control_->Views().txtMainQuery.Text(u"dump 1 dump 2 | \u0416");
    control_->Views().CmdMqEditor.Click();
    EXPECT_EQ(control_->Views().txtMainQuery.Text(), u"dump 1 dump 2 | \u0416\u4E2D");
    static_cast<void>(control_->MappingObjectXML());
    EXPECT_EQ(Contents(folder_ / "texts/tgtab001.xml"), control_->DocumentAsItStands());
}

TEST_F(RealEditor, ThatFailsDropsTheEdit)
{
    Open(CodePage::Windows1252, R"(echo lost > "$2"; exit 3)");
    control_->Views().cmdSrcEdit.UserClicks();
    EXPECT_EQ(control_->Views().lstSourceTables.Count(), 0);
    EXPECT_EQ(control_->SourceTables(), u"srtab001");
    EXPECT_EQ(Contents(folder_ / "texts/tgtab001Src.lst"), "lost\n");
}

TEST_F(RealEditor, ThatRemovesTheFileFailsTheClick)
{
    Open(CodePage::Windows1252, R"(rm "$2")");
    EXPECT_EQ(FailureOf([&] { control_->Views().CmdPreEditor.UserClicks(); }), FailureCode::FileNotFound);
    EXPECT_FALSE(control_->Views().CmdPreEditor.Enabled());
}

TEST_F(RealEditor, ThatSavesNothingEmptiesTheText)
{
    Open(CodePage::Windows1252, R"(: > "$2")");
    control_->Views().MainTab.UserClicksTab(1);
    control_->Views().RulesGrid.UserClicksCell(0, 1, Grid::Clicks::Single);
    control_->Views().CmdEditRule.UserClicks();
    EXPECT_EQ(control_->Views().RulesGrid.TextMatrix(0, 1), u"");
}

TEST_F(RealEditor, ThatIsNotThereIsSaidToTheUser)
{
    Open(CodePage::Windows1252, "");
    control_->Editor(TextOf(folder_ / "none"));
    control_->Views().CmdPreEditor.UserClicks();
    EXPECT_EQ(TextsOf(platform_->Messages), std::vector<Text>{u"Unable to open editor"});
    EXPECT_EQ(control_->Views().txtPreCondition.Text(), u"migrate srtab001");
}

} // namespace
} // namespace rulemesh
