#include "shell/frm_txt_doc.h"

#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/recording_platform.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Place = std::tuple<int, int, int, int>;

Place PlaceOf(const View& view) { return {view.Left(), view.Top(), view.Width(), view.Height()}; }

class FrmTxtDocTest : public testing::Test {
protected:
    FrmTxtDocTest()
    {
        Shared() = {};
        Shared().BoolTextMode = true;
        Shared().BoolEditShared = true;
        Shared().StrDocText = u"before";
    }

    void Choose(const Text& tables, std::int16_t dump = 3)
    {
        Shared().BoolTextMode = false;
        Shared().StrChooserTables = tables;
        Shared().StrChosenTable = u"first001";
        Shared().IntChooserDump = dump;
    }

    RecordingPlatform platform_;
};

TEST_F(FrmTxtDocTest, NoteModeShowsTheBoxAlone)
{
    const FrmTxtDoc form(platform_);
    EXPECT_EQ(form.Height(), 5130);
    EXPECT_EQ(form.Width(), 8490);
    EXPECT_EQ(PlaceOf(form.TxtDoc), Place(0, 0, 8295, 4575));
    EXPECT_TRUE(form.TxtDoc.Visible());
    EXPECT_FALSE(form.LBLTARGET.Visible());
    EXPECT_FALSE(form.CmbTargetTable.Visible());
    EXPECT_EQ(form.CmdOk.Top(), 4560);
    EXPECT_EQ(form.CmdOk.Left(), 0);
    EXPECT_EQ(form.CmdCancel.Top(), 4560);
    EXPECT_EQ(form.CmdCancel.Left(), 1200);
    EXPECT_FALSE(form.TxtDoc.Locked());
    EXPECT_TRUE(form.CmdOk.Enabled());
    EXPECT_TRUE(form.IsOpen());
    EXPECT_FALSE(form.BoolTextChanged);
}

TEST_F(FrmTxtDocTest, CaptionsAreThoseOfTheDesign)
{
    const FrmTxtDoc form(platform_);
    EXPECT_EQ(form.CmdOk.Caption(), u"O&k");
    EXPECT_EQ(form.CmdCancel.Caption(), u"&Cancel");
    EXPECT_EQ(form.LBLTARGET.Caption(), u"Target Table");
}

TEST_F(FrmTxtDocTest, NoteOfAReadOnlyControlIsLocked)
{
    Shared().BoolEditShared = false;
    const FrmTxtDoc form(platform_);
    EXPECT_TRUE(form.TxtDoc.Locked());
    EXPECT_FALSE(form.CmdOk.Enabled());
    EXPECT_TRUE(form.CmdCancel.Enabled());
}

TEST_F(FrmTxtDocTest, ChooserModeShowsTheListAlone)
{
    Choose(u"tgtab001;tgtab002;");
    const FrmTxtDoc form(platform_);
    EXPECT_EQ(form.Height(), 1600);
    EXPECT_EQ(form.Width(), 4350);
    EXPECT_FALSE(form.TxtDoc.Visible());
    EXPECT_TRUE(form.CmbTargetTable.Visible());
    EXPECT_TRUE(form.LBLTARGET.Visible());
    EXPECT_EQ(form.CmdOk.Top(), 700);
    EXPECT_EQ(form.CmdOk.Left(), 840);
    EXPECT_EQ(form.CmdCancel.Top(), 700);
    EXPECT_EQ(form.CmdCancel.Left(), 2040);
    EXPECT_EQ(form.Caption(), u"Choose Target for Dump No:  3");
    ASSERT_EQ(form.CmbTargetTable.Entries().size(), 2U);
    EXPECT_EQ(form.CmbTargetTable.Entries()[1].Text, u"tgtab002");
    EXPECT_EQ(form.CmbTargetTable.ListIndex(), 0);
}

TEST_F(FrmTxtDocTest, ChooserDropsWhatFollowsTheLastSemicolon)
{
    struct Case {
        Text tables;
        std::size_t entries;
    };
    for (const auto& [tables, entries] :
         std::vector<Case>{{u"", 0}, {u"a", 0}, {u"a;b", 1}, {u"a;;", 2}, {u";", 1}, {u"a;b;c;", 3}}) {
        Choose(tables);
        const FrmTxtDoc form(platform_);
        EXPECT_EQ(form.CmbTargetTable.Entries().size(), entries) << testing::PrintToString(tables);
        EXPECT_EQ(form.CmbTargetTable.ListIndex(), entries == 0 ? ComboBox::None : 0);
    }
}

TEST_F(FrmTxtDocTest, ChooserOfADumpBelowZeroHasNoBlank)
{
    Choose(u"", -2);
    EXPECT_EQ(FrmTxtDoc(platform_).Caption(), u"Choose Target for Dump No: -2");
}

TEST_F(FrmTxtDocTest, OkTakesTheNote)
{
    FrmTxtDoc form(platform_);
    form.TxtDoc.UserTypes(u"after");
    form.CmdOk.UserClicks();
    EXPECT_EQ(Shared().StrDocText, u"after");
    EXPECT_FALSE(form.IsOpen());
    EXPECT_THAT(platform_.Messages, IsEmpty());
}

TEST_F(FrmTxtDocTest, CancelTakesNothing)
{
    FrmTxtDoc form(platform_);
    form.TxtDoc.UserTypes(u"after");
    form.CmdCancel.UserClicks();
    EXPECT_EQ(Shared().StrDocText, u"before");
    EXPECT_FALSE(form.IsOpen());
    EXPECT_THAT(platform_.Messages, IsEmpty());
}

TEST_F(FrmTxtDocTest, OkTakesTheChosenTable)
{
    Choose(u"tgtab001;tgtab002;");
    FrmTxtDoc form(platform_);
    form.CmbTargetTable.UserChooses(1);
    form.CmdOk.UserClicks();
    EXPECT_EQ(Shared().StrChosenTable, u"tgtab002");
    EXPECT_EQ(Shared().StrDocText, u"before");
}

TEST_F(FrmTxtDocTest, OkOnAnEmptyListAnswersWithNothing)
{
    Choose(u"");
    FrmTxtDoc form(platform_);
    form.CmdOk.UserClicks();
    EXPECT_EQ(Shared().StrChosenTable, u"");
}

TEST_F(FrmTxtDocTest, CancelKeepsTheDefaultTable)
{
    Choose(u"tgtab001;tgtab002;");
    FrmTxtDoc form(platform_);
    form.CmbTargetTable.UserChooses(1);
    form.CmdCancel.UserClicks();
    EXPECT_EQ(Shared().StrChosenTable, u"first001");
}

TEST_F(FrmTxtDocTest, ClosingFromTheFrameAsksForAChangedNote)
{
    for (const auto& [answer, kept] :
         std::vector<std::pair<MessageButton, Text>>{{MessageButton::Yes, u"after"}, {MessageButton::No, u"before"}}) {
        Shared().StrDocText = u"before";
        platform_.Buttons.push_back(answer);
        FrmTxtDoc form(platform_);
        form.TxtDoc.UserTypes(u"after");
        form.UserCloses();
        EXPECT_EQ(Shared().StrDocText, kept);
        EXPECT_FALSE(form.IsOpen());
        EXPECT_EQ(platform_.Messages.back().Text, u"Save Changes Done ?");
        EXPECT_EQ(platform_.Messages.back().Title, u"");
        EXPECT_EQ(platform_.Messages.back().Icon, MessageIcon::None);
        EXPECT_THAT(platform_.Messages.back().Buttons, ElementsAre(MessageButton::Yes, MessageButton::No));
    }
}

TEST_F(FrmTxtDocTest, ClosingFromTheFrameDoesNotAskWithoutAChange)
{
    FrmTxtDoc typedBack(platform_);
    typedBack.TxtDoc.UserTypes(u"after");
    typedBack.TxtDoc.UserTypes(u"before");
    typedBack.UserCloses();
    FrmTxtDoc differsUnchanged(platform_);
    differsUnchanged.TxtDoc.Text(u"other");
    differsUnchanged.BoolTextChanged = false;
    differsUnchanged.UserCloses();
    EXPECT_THAT(platform_.Messages, IsEmpty());
}

TEST_F(FrmTxtDocTest, ClosingFromTheFrameDoesNotAskInAReadOnlyControl)
{
    Shared().BoolEditShared = false;
    FrmTxtDoc form(platform_);
    form.TxtDoc.Text(u"shown");
    form.UserCloses();
    EXPECT_THAT(platform_.Messages, IsEmpty());
}

TEST_F(FrmTxtDocTest, ClosingTheChooserFromTheFrameIsCancel)
{
    Choose(u"tgtab001;");
    FrmTxtDoc form(platform_);
    form.TxtDoc.Text(u"changed");
    form.UserCloses();
    EXPECT_EQ(Shared().StrChosenTable, u"first001");
    EXPECT_THAT(platform_.Messages, IsEmpty());
}

TEST_F(FrmTxtDocTest, EveryChangeOfTheBoxCounts)
{
    FrmTxtDoc form(platform_);
    form.TxtDoc.Text(u"by the program");
    EXPECT_TRUE(form.BoolTextChanged);
}

TEST_F(FrmTxtDocTest, TheChooserIsShownAsThisForm)
{
    Choose(u"tgtab001;");
    platform_.FormActions.push_back([](ModalForm& form) { static_cast<FrmTxtDoc&>(form).CmdOk.UserClicks(); });
    FormTargetChooser(platform_).ShowChooser();
    EXPECT_THAT(platform_.Forms, ElementsAre(u"Choose Target for Dump No:  3"));
    EXPECT_EQ(Shared().StrChosenTable, u"tgtab001");
}

} // namespace
} // namespace rulemesh
