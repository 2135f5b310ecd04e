#include "engine/retarget.h"

#include <functional>

#include <gmock/gmock.h>

#include "base/failure.h"
#include "base/failure_of.h"
#include "engine/engine_bench.h"
#include "engine/shared_form_values.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StubChooser : public TargetChooser {
public:
    std::function<void()> User;
    void ShowChooser() override { User(); }
};

constexpr const char* Head = R"(<TARTAB><TGTAB001><A No="1"/><B No="2"/></TGTAB001><TGTAB002><C__1 No="1"/></TGTAB002>)"
                             R"(<TGTAB003/></TARTAB>)";

class Retarget : public EngineBench {
protected:
    Retarget() { OfferTables({u"TGTAB001", u"TGTAB002", u"TGTAB003", u"NONE0001"}); }

    void LoadDumps(const std::string& dumps)
    {
        Load(Head + dumps);
        NameDumps({{12, u"| twelve"}});
        Show(0);
    }
    [[nodiscard]] std::string Dumps() const { return Below().substr(std::string(Head).size()); }

    void Choose(const Text& table)
    {
        chooser_.User = [table] { Shared().StrChosenTable = table; };
        retargeting_.CmdChange_Click();
    }

    StubChooser chooser_;
    DumpRetargeting retargeting_{object_, views_, platform_, lookup_, shownDump_, chooser_};
};

// After a choice of a dump that failed, the dump in the tag is not the selected one.
TEST_F(Retarget, TheLabelTakesTheTableAlsoWhenTheShownDumpHasNoFields)
{
    Load(std::string(Head) + R"(<DUMP No="1" TT="NONE0001"/><DUMP No="2" TT="TGTAB001"/>)");
    NameDumps({{1, u""}, {2, u""}});
    views_.CmbDump.ListIndex(1);
    state_.DumpInGrid = GridDump(DumpNumber(1));
    Choose(u"TGTAB002");
    EXPECT_EQ(Dumps(), R"(<DUMP No="1" TT="NONE0001"/>)"
                       R"(<DUMP No="2" TT="TGTAB002"><C__1 TEXT="" TYPE="0">default()</C__1></DUMP>)");
    EXPECT_EQ(views_.LBLTargetTableName.Caption(), u"TGTAB002");
}

TEST_F(Retarget, TheChooserIsGivenTablesDefaultAndDump)
{
    LoadDumps(R"(<DUMP No="12" TT="TGTAB002"/>)");
    Shared().BoolTextMode = true;
    SharedFormValues given;
    chooser_.User = [&] { given = Shared(); };
    retargeting_.CmdChange_Click();
    EXPECT_FALSE(given.BoolTextMode);
    EXPECT_EQ(given.StrChooserTables, u"TGTAB001;TGTAB002;TGTAB003;NONE0001;");
    EXPECT_EQ(given.StrChosenTable, u"TGTAB002");
    EXPECT_EQ(given.IntChooserDump, 12);
    EXPECT_EQ(Dumps(), R"(<DUMP No="12" TT="TGTAB002"/>)"); // the user cancelled
    EXPECT_THAT(platform_.Messages, IsEmpty());
}

TEST_F(Retarget, TheSameTableInAnotherCaseChangesNothing)
{
    LoadDumps(R"(<DUMP No="12" TT="TGTAB001"><A>a</A></DUMP>)");
    views_.RulesGrid.TextMatrix(0, 1, u"typed");
    Choose(u"tgtab001");
    EXPECT_EQ(Dumps(), R"(<DUMP No="12" TT="TGTAB001"><A>a</A></DUMP>)");
    EXPECT_THAT(Rules(), ElementsAre(u"a", u"")); // the fields are shown anew
    EXPECT_THAT(platform_.Messages, IsEmpty());
}

TEST_F(Retarget, ADumpWithoutRulesIsNotAskedFor)
{
    LoadDumps(R"(<DUMP No="12" TT="TGTAB001" TT_DESC="old" TXT="x"><A TEXT="" TYPE="0"> </A></DUMP>)");
    Choose(u"tgTAB002");
    EXPECT_THAT(platform_.Messages, IsEmpty());
    EXPECT_EQ(Dumps(), R"(<DUMP No="12" TT="tgTAB002" TT_DESC="old" TXT="x">)"
                       R"(<C__1 TEXT="" TYPE="0">default()</C__1></DUMP>)");
    EXPECT_THAT(Keys(), ElementsAre(u"tgtab002.c(1)"));
    EXPECT_THAT(Rules(), ElementsAre(u"default()"));
    EXPECT_EQ(views_.LBLTargetTableName.Caption(), u"tgTAB002");
    EXPECT_EQ(views_.lblTargetTableDescription.Caption(), u"old");
}

TEST_F(Retarget, TheQuestionQuotesTheOldTableTwice)
{
    LoadDumps(R"(<DUMP No="12" TT="TGTAB001"><B TEXT="note"/></DUMP>)");
    platform_.Buttons.push_back(MessageButton::Yes);
    Choose(u"TGTAB002");
    ASSERT_EQ(platform_.Messages.size(), 1U);
    EXPECT_EQ(platform_.Messages[0].Text,
              u"You are changing the association of dump 12 from table : TGTAB001 to TGTAB002\r\n"
              u"You lose the maintained rules of dump 12 for target table TGTAB001\r\n"
              u" Press 'Yes' to Proceed; 'No' to Cancel the Action");
    EXPECT_EQ(platform_.Messages[0].Title, u"");
    EXPECT_EQ(platform_.Messages[0].Icon, MessageIcon::Critical);
    EXPECT_THAT(platform_.Messages[0].Buttons, ElementsAre(MessageButton::Yes, MessageButton::No));
    EXPECT_EQ(Dumps(), R"(<DUMP No="12" TT="TGTAB002"><C__1 TEXT="" TYPE="0">default()</C__1></DUMP>)");
}

TEST_F(Retarget, NoLeavesEverything)
{
    LoadDumps(R"(<DUMP No="12" TT="TGTAB001"><A>a</A></DUMP>)");
    views_.RulesGrid.TextMatrix(0, 1, u"typed");
    platform_.Buttons.push_back(MessageButton::No);
    Choose(u"TGTAB002");
    EXPECT_EQ(Dumps(), R"(<DUMP No="12" TT="TGTAB001"><A>a</A></DUMP>)");
    EXPECT_THAT(Rules(), ElementsAre(u"typed", u""));
    EXPECT_EQ(views_.LBLTargetTableName.Caption(), u"TGTAB001");
}

TEST_F(Retarget, ATableWithoutFieldsLeavesTheDumpEmpty)
{
    LoadDumps(R"(<DUMP No="12" TT="TGTAB001"/>)");
    Choose(u"TGTAB003");
    EXPECT_EQ(Dumps(), R"(<DUMP No="12" TT="TGTAB003"/>)");
    EXPECT_EQ(views_.RulesGrid.Rows(), 0);
}

TEST_F(Retarget, ATableWithoutCatalogueFailsWhenTheRulesHaveGone)
{
    LoadDumps(R"(<DUMP No="12" TT="TGTAB001"><A>a</A></DUMP>)");
    EXPECT_EQ(FailureOf([&] { Choose(u"NONE0001"); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(Dumps(), R"(<DUMP No="12" TT="NONE0001"></DUMP>)");
    EXPECT_EQ(views_.LBLTargetTableName.Caption(), u"TGTAB001");
}

TEST_F(Retarget, NoTableAtAllFailsInTheSameWay)
{
    LoadDumps(R"(<DUMP No="12" TT="TGTAB001"/>)");
    EXPECT_EQ(FailureOf([&] { Choose(u""); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(Dumps(), R"(<DUMP No="12" TT=""/>)");
}

} // namespace
} // namespace rulemesh
