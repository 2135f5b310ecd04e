#include "shell/tab_flow.h"

#include <gmock/gmock.h>

#include "base/failure.h"
#include "base/failure_of.h"
#include "shell/designer_bench.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Two dumps without a table, in an object of several targets.
constexpr const char* MultiTarget =
    R"(<tgtab001><SRCTBL>srtab001</SRCTBL><PREC>migrate srtab001 dump 7 dump 5</PREC>)"
    R"(<MSCRIPT><TGTAB001/><TGTAB002/></MSCRIPT><SRCTAB><SRTAB001/></SRCTAB>)"
    R"(<TARTAB><TGTAB001><A No="1"/></TGTAB001><TGTAB002><B No="1"/><C No="2"/></TGTAB002></TARTAB></tgtab001>)";

using TabFlowTest = DesignerBench;

TEST_F(TabFlowTest, PendingEventsRunBeforeAnythingElse)
{
    Open();
    views_.txtPreCondition.Text(u"migrate srtab001 | typed");
    std::string stored;
    int tab = -1;
    bool rulesEnabled = true;
    platform_.PendingEvents = [&] {
        stored = control_.DocumentAsItStands();
        tab = views_.MainTab.Tab();
        rulesEnabled = views_.FrmRules.Enabled();
    };
    views_.MainTab.UserClicksTab(1);
    EXPECT_EQ(tab, 1);
    EXPECT_FALSE(rulesEnabled);
    EXPECT_EQ(stored, SmallObject);
    EXPECT_THAT(control_.DocumentAsItStands(), HasSubstr("| typed</PREC>"));
    EXPECT_TRUE(views_.FrmRules.Enabled());
}

TEST_F(TabFlowTest, AHostMayLoadAnotherObjectWhileEventsArePending)
{
    Open();
    platform_.PendingEvents = [&] { Open("<tgtab001><PREC>nothing</PREC></tgtab001>"); };
    views_.MainTab.UserClicksTab(1);
    EXPECT_EQ(TextsOf(platform_.Messages), std::vector<Text>{u"Define Dumps"});
    EXPECT_EQ(views_.MainTab.Tab(), 0);
}

TEST_F(TabFlowTest, TheFirstVisitShowsTheFirstDump)
{
    OpenRules();
    EXPECT_EQ(views_.CmbDump.ListIndex(), 0);
    EXPECT_EQ(control_.State().DumpInGrid.Tag(), u"1");
    EXPECT_EQ(views_.Tree.Focused(), &views_.CmbDump);
    EXPECT_EQ(views_.CmbDump.Entries()[1].Text, u"02--| two");
    EXPECT_EQ(views_.CmbDump.Entries()[1].Data, 2);
}

TEST_F(TabFlowTest, WithoutADumpTheRulesStayShut)
{
    Open("<tgtab001><PREC>| none</PREC></tgtab001>");
    views_.MainTab.UserClicksTab(1);
    ASSERT_EQ(platform_.Messages.size(), 1U);
    EXPECT_EQ(platform_.Messages[0].Text, u"Define Dumps");
    EXPECT_EQ(platform_.Messages[0].Title, u"Mapping Object");
    EXPECT_EQ(platform_.Messages[0].Icon, MessageIcon::Critical);
    EXPECT_THAT(platform_.Messages[0].Buttons, ElementsAre(MessageButton::Ok));
    EXPECT_EQ(views_.MainTab.Tab(), 0);
    EXPECT_TRUE(views_.FrmCondition.Enabled());
    EXPECT_FALSE(views_.FrmRules.Enabled());
    EXPECT_EQ(views_.CmbDump.Entries().size(), 0U);
}

TEST_F(TabFlowTest, EachDumpWithoutATableGetsOneInTheOrderOfTheList)
{
    Open(MultiTarget);
    SharedFormValues given;
    platform_.FormActions.push_back([&](ModalForm&) { given = Shared(); });
    platform_.FormActions.push_back([](ModalForm& form) {
        static_cast<FrmTxtDoc&>(form).CmbTargetTable.UserChooses(1);
        static_cast<FrmTxtDoc&>(form).CmdOk.UserClicks();
    });
    views_.MainTab.UserClicksTab(1);
    EXPECT_THAT(platform_.Forms, ElementsAre(u"Choose Target for Dump No:  7", u"Choose Target for Dump No:  5"));
    EXPECT_EQ(given.StrChooserTables, u"TGTAB001;TGTAB002;");
    EXPECT_EQ(given.StrChosenTable, u"TGTAB001");
    EXPECT_EQ(given.IntChooserDump, 7);
    EXPECT_FALSE(given.BoolTextMode);
    EXPECT_THAT(control_.DocumentAsItStands(), HasSubstr(R"(TT="TGTAB001"><A TEXT="" TYPE="0">default()</A></DUMP>)"));
    EXPECT_THAT(control_.DocumentAsItStands(), HasSubstr(R"(TT="TGTAB002"><B TEXT="" TYPE="0">default()</B></DUMP>)"));
    EXPECT_EQ(control_.State().DumpInGrid.Tag(), u"7");
    EXPECT_EQ(views_.RulesGrid.Rows(), 1);
}

TEST_F(TabFlowTest, ADumpThatIsSelectedMeanwhileIsTheOneShown)
{
    Open(MultiTarget);
    platform_.FormActions.push_back([&](ModalForm&) { views_.CmbDump.ListIndex(1); });
    views_.MainTab.UserClicksTab(1);
    EXPECT_EQ(views_.CmbDump.ListIndex(), 1);
    EXPECT_EQ(control_.State().DumpInGrid.Tag(), u"5");
}

TEST_F(TabFlowTest, AReadOnlyControlChoosesAsWell)
{
    OpenRules(MultiTarget, false);
    EXPECT_EQ(platform_.Forms.size(), 2U);
    EXPECT_THAT(control_.DocumentAsItStands(), HasSubstr(R"(TT="TGTAB001">)"));
}

TEST_F(TabFlowTest, ATableWithoutCatalogueEndsTheVisit)
{
    const std::string xml = R"(<tgtab001><SRCTBL>srtab001</SRCTBL><PREC>migrate srtab001 dump 7</PREC>)"
                            R"(<MSCRIPT><NONE0001/></MSCRIPT><SRCTAB><SRTAB001/></SRCTAB></tgtab001>)";
    Open(xml);
    EXPECT_EQ(FailureOf([&] { views_.MainTab.UserClicksTab(1); }), FailureCode::ObjectVariableNotSet);
    EXPECT_THAT(control_.DocumentAsItStands(), HasSubstr(R"(TT="NONE0001"/>)"));
    EXPECT_EQ(views_.MainTab.Tab(), 1);
}

TEST_F(TabFlowTest, AnObjectWithoutTablesToChooseFails)
{
    Open(R"(<tgtab001><SRCTBL>srtab001</SRCTBL><PREC>migrate srtab001 dump 7</PREC><MSCRIPT/>)"
         R"(<SRCTAB><SRTAB001/></SRCTAB></tgtab001>)");
    EXPECT_EQ(FailureOf([&] { views_.MainTab.UserClicksTab(1); }), FailureCode::ObjectVariableNotSet);
    EXPECT_THAT(control_.DocumentAsItStands(), HasSubstr(R"(TT=""/>)"));
}

TEST_F(TabFlowTest, GoingBackSavesTheRulesOfTheTag)
{
    OpenRules();
    views_.RulesGrid.TextMatrix(1, 1, u"b");
    views_.LBLTargetTableName.Enabled(false);
    views_.MainTab.UserClicksTab(0);
    EXPECT_THAT(control_.DocumentAsItStands(), HasSubstr(R"(<B TEXT="" TYPE="0">b</B>)"));
    EXPECT_TRUE(views_.LBLTargetTableName.Enabled());
    EXPECT_TRUE(views_.FrmCondition.Enabled());
    EXPECT_FALSE(views_.FrmRules.Enabled());
}

TEST_F(TabFlowTest, ComingBackKeepsTheDumpThatWasSelected)
{
    OpenRules();
    views_.CmbDump.UserChooses(1);
    views_.MainTab.UserClicksTab(0);
    views_.MainTab.UserClicksTab(1);
    EXPECT_EQ(views_.CmbDump.ListIndex(), 1);
    EXPECT_EQ(control_.State().DumpInGrid.Tag(), u"2");
    EXPECT_THAT(platform_.Messages, IsEmpty());
}

} // namespace
} // namespace rulemesh
