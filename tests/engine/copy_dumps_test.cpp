#include "engine/copy_dumps.h"

#include <gmock/gmock.h>

#include "base/failure.h"
#include "base/failure_of.h"
#include "engine/engine_bench.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* Head = R"(<PREC/><TARTAB><TGTAB001><A No="1"/><B__1 No="2"/></TGTAB001></TARTAB>)";

class CopyDumps : public EngineBench {
protected:
    void LoadDumps(const std::string& dumps) { Load(Head + dumps); }
    [[nodiscard]] std::string Dumps() const { return Below().substr(std::string(Head).size()); }

    void Copy(const Text& answer, int selected = 0)
    {
        views_.CmbDump.ListIndex(selected);
        platform_.Inputs.push_back(answer);
        copying_.cmdCopyDump_Click();
    }

    void ExpectMessage(const Text& text, const Text& title, MessageIcon icon) const
    {
        ASSERT_FALSE(platform_.Messages.empty());
        EXPECT_EQ(platform_.Messages.back().Text, text);
        EXPECT_EQ(platform_.Messages.back().Title, title);
        EXPECT_EQ(platform_.Messages.back().Icon, icon);
        EXPECT_THAT(platform_.Messages.back().Buttons, ElementsAre(MessageButton::Ok));
    }
};

TEST_F(CopyDumps, AsksForTheDumpToCopyFrom)
{
    LoadDumps(R"(<DUMP No="12"/>)");
    NameDumps({{12, u""}});
    views_.CmbDump.ListIndex(0);
    copying_.cmdCopyDump_Click();
    EXPECT_THAT(platform_.Prompts,
                ElementsAre(u"Please enter the dump number to be copied from: |Copying rules to dump : 12"));
    EXPECT_THAT(platform_.Messages, IsEmpty());
    EXPECT_EQ(Dumps(), R"(<DUMP No="12"/>)");
}

TEST_F(CopyDumps, RefusesWhatIsNoNumber)
{
    LoadDumps(R"(<DUMP No="1"/>)");
    NameDumps({{1, u""}});
    Copy(u"");
    EXPECT_THAT(platform_.Messages, IsEmpty());
    Copy(u"two");
    ExpectMessage(u"Invalid Dump Number!", u"Copying Dumps", MessageIcon::Critical);
}

TEST_F(CopyDumps, RefusesADumpThatIsNotThere)
{
    LoadDumps(R"(<DUMP No="1"/>)");
    NameDumps({{1, u""}});
    Copy(u"3");
    ExpectMessage(u"The entered dump number does not exists. ", u"Copy Dumps", MessageIcon::Exclamation);
    EXPECT_EQ(FailureOf([&] { Copy(u"40000"); }), FailureCode::Overflow);
}

TEST_F(CopyDumps, ATargetWithoutElementIsMadeAndFails)
{
    LoadDumps(R"(<DUMP No="3" TT="tgtab001"><A>a</A></DUMP>)");
    NameDumps({{1, u"x"}, {3, u""}});
    EXPECT_EQ(FailureOf([&] { Copy(u"3"); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(Dumps(), R"(<DUMP No="3" TT="tgtab001"><A>a</A></DUMP><DUMP No="1" TXT=""/>)");
    state_.DumpInGrid = GridDump(DumpNumber(1));
    Copy(u"3");
    EXPECT_EQ(Dumps(),
              R"(<DUMP No="3" TT="tgtab001"><A>a</A></DUMP><DUMP No="1" TXT="" TT="tgtab001"><A>a</A></DUMP>)");
}

TEST_F(CopyDumps, RefusesADumpOfAnotherTable)
{
    LoadDumps(R"(<DUMP No="1" TT="tgtab002"/><DUMP No="3" TT="tgtab001"><A>a</A></DUMP><DUMP No="4"/>)");
    NameDumps({{1, u""}});
    Copy(u"03");
    ExpectMessage(u"Dump 03  is associated with table: tgtab001. So it is not possible to copy rules.",
                  u"Copying Dumps ", MessageIcon::Exclamation);
    Copy(u"4"); // never shown, so without a table
    ExpectMessage(u"Dump 4  is associated with table: . So it is not possible to copy rules.", u"Copying Dumps ",
                  MessageIcon::Exclamation);
}

TEST_F(CopyDumps, RefusesADumpWithoutRules)
{
    LoadDumps(R"(<DUMP No="1"/><DUMP No="3" TT="TGTAB001"> <!--none--> </DUMP>)");
    NameDumps({{1, u""}});
    Copy(u"3");
    ExpectMessage(u"No rules found for dump 3", u"Copying Dumps ..", MessageIcon::Exclamation);
    EXPECT_EQ(platform_.Messages.size(), 1U);
    // The table has come over all the same.
    EXPECT_EQ(Dumps(), R"(<DUMP No="1" TT="TGTAB001"/><DUMP No="3" TT="TGTAB001"> <!--none--> </DUMP>)");
}

TEST_F(CopyDumps, CancelLeavesTheRules)
{
    LoadDumps(R"(<DUMP No="1" TT="tgtab001"><A>old</A></DUMP><DUMP No="3" TT="TGTAB001"><A>a</A></DUMP>)");
    NameDumps({{1, u""}});
    const std::string before = Dumps();
    platform_.Buttons.push_back(MessageButton::Cancel);
    Copy(u"2.6");
    ASSERT_EQ(platform_.Messages.size(), 1U);
    EXPECT_EQ(platform_.Messages[0].Text, u"Press 'OK' To Copy Dump  3 To Dump :  1");
    EXPECT_EQ(platform_.Messages[0].Title, u"Copy Dumps");
    EXPECT_EQ(platform_.Messages[0].Icon, MessageIcon::Notice);
    EXPECT_THAT(platform_.Messages[0].Buttons, ElementsAre(MessageButton::Ok, MessageButton::Cancel));
    EXPECT_EQ(Dumps(), before);
}

TEST_F(CopyDumps, RecordsComeWholeAndUnsavedEditsGo)
{
    LoadDumps(R"(<DUMP No="1" TXT="one"><A>old</A><B__1>b</B__1></DUMP>)"
              R"(<DUMP No="3" TT="tgtab001" TXT="three"><A TEXT="note" TYPE="1" X="y">a</A><OTHER/></DUMP>)");
    NameDumps({{1, u""}});
    Show(0);
    views_.RulesGrid.TextMatrix(1, 1, u"typed");
    Copy(u"03");
    EXPECT_EQ(Dumps(), R"(<DUMP No="1" TXT="one" TT="tgtab001"><A TEXT="note" TYPE="1" X="y">a</A><OTHER/></DUMP>)"
                       R"(<DUMP No="3" TT="tgtab001" TXT="three"><A TEXT="note" TYPE="1" X="y">a</A><OTHER/></DUMP>)");
    EXPECT_THAT(Rules(), ElementsAre(u"a", u""));
    ExpectMessage(u"Copying Of Dump: '03' To Dump '1'  Was  Successful!!", u"Copy Dumps", MessageIcon::Notice);
    EXPECT_EQ(platform_.Messages.size(), 2U);
}

TEST_F(CopyDumps, ADumpCopiedOntoItselfLosesItsRules)
{
    LoadDumps(R"(<DUMP No="1" TT="tgtab001"><A>a</A></DUMP>)");
    NameDumps({{1, u""}});
    Show(0);
    Copy(u"1");
    EXPECT_EQ(Dumps(), R"(<DUMP No="1" TT="tgtab001"></DUMP>)");
    ExpectMessage(u"Source Dump Not Maintained ", u"Copy Dumps", MessageIcon::Critical);
}

class CopyToAllDumps : public CopyDumps {
protected:
    void Spread(const Text& field)
    {
        views_.lstTargetFields.Clear();
        views_.lstTargetFields.Add({u"", u"", u"001", field});
        views_.lstTargetFields.Select(1, true);
        copying_.cmdCopyToAllDumps_Click();
    }
};

constexpr TextView Title = u"Copy to all dumps...";

TEST_F(CopyToAllDumps, NeedsASelectedField)
{
    LoadDumps(R"(<DUMP No="1"/>)");
    NameDumps({{1, u""}});
    Show(0);
    EXPECT_EQ(FailureOf([&] { copying_.cmdCopyToAllDumps_Click(); }), FailureCode::ObjectVariableNotSet);
}

TEST_F(CopyToAllDumps, NeedsARuleOfTheField)
{
    LoadDumps(R"(<DUMP No="1"><B__1>b</B__1></DUMP><DUMP No="2"/>)");
    NameDumps({{1, u""}});
    Show(0);
    Spread(u"tgtab001.a");
    ExpectMessage(u"The selected field is not populated.", Text(Title), MessageIcon::Notice);
}

TEST_F(CopyToAllDumps, AnIndexedFieldIsNoValidName)
{
    LoadDumps(R"(<DUMP No="1"><B__1>b</B__1></DUMP><DUMP No="2"/>)");
    NameDumps({{1, u""}});
    Show(0);
    EXPECT_EQ(FailureOf([&] { Spread(u"tgtab001.b(1)"); }), FailureCode::InvalidProcedureCall);
}

TEST_F(CopyToAllDumps, NeedsAnotherDump)
{
    LoadDumps(R"(<DUMP No="1"><A>a</A></DUMP>)");
    NameDumps({{1, u""}});
    Show(0);
    Spread(u"tgtab001.a");
    ExpectMessage(u"Only one dump is present in this conversion object", u"", MessageIcon::Notice);
}

TEST_F(CopyToAllDumps, AsksFirst)
{
    LoadDumps(R"(<DUMP No="1"><A>a</A></DUMP><DUMP No="2"/>)");
    NameDumps({{1, u""}});
    Show(0);
    platform_.Buttons.push_back(MessageButton::No);
    Spread(u"tgtab001.a");
    ASSERT_EQ(platform_.Messages.size(), 1U);
    EXPECT_EQ(platform_.Messages[0].Text,
              u"Existing rules for the selected target field will be overwritten in all the "
              u"dumps.\r\nDo you want to continue?");
    EXPECT_EQ(platform_.Messages[0].Title, Title);
    EXPECT_EQ(platform_.Messages[0].Icon, MessageIcon::Question);
    EXPECT_THAT(platform_.Messages[0].Buttons, ElementsAre(MessageButton::Yes, MessageButton::No));
    EXPECT_NE(Dumps().find(R"(<DUMP No="2"/>)"), std::string::npos);
}

TEST_F(CopyToAllDumps, ReachesTheDumpsOfTheTableAtAnyDepth)
{
    LoadDumps(R"(<DUMP No="1" TT="tgtab001"><A>old</A></DUMP>)"
              R"(<DUMP No="2" TT="TGTAB001"><A>x</A><B__1>b</B__1></DUMP>)"
              R"(<DUMP No="3"><B__1>b</B__1></DUMP>)"
              R"(<DUMP No="4" TT=""/>)"
              R"(<DUMP No="5" TT="tgtab002"><A>x</A></DUMP>)"
              R"(<OWN><DUMP No="6"/></OWN>)"
              R"(<DUMP No="01"/>)");
    NameDumps({{1, u""}});
    Show(0);
    views_.RulesGrid.TextMatrix(0, 1, u"typed");
    Spread(u"tgtab001.a");
    const std::string rule = R"(<A TYPE="0">typed</A>)";
    EXPECT_EQ(Dumps(), "<DUMP No=\"1\" TT=\"tgtab001\">" + rule +
                           "</DUMP>" //
                           "<DUMP No=\"2\" TT=\"TGTAB001\">" +
                           rule + "<B__1>b</B__1></DUMP>" + "<DUMP No=\"3\"><B__1>b</B__1>" + rule + "</DUMP>" + //
                           "<DUMP No=\"4\" TT=\"\">" + rule + "</DUMP>" +
                           "<DUMP No=\"5\" TT=\"tgtab002\"><A>x</A></DUMP>" + //
                           "<OWN><DUMP No=\"6\">" + rule + "</DUMP></OWN>" +  //
                           "<DUMP No=\"01\">" + rule + "</DUMP>");
    ExpectMessage(u"Copy to all dumps completed.", Text(Title), MessageIcon::Notice);
}

TEST_F(CopyToAllDumps, TheNameIsCutBehindTheRealLengthOfTheTable)
{
    LoadDumps(R"(<DUMP No="1" TT="tg1"><A>a</A><B001.A>longer</B001.A></DUMP><DUMP No="2" TT="TG1"/>)");
    NameDumps({{1, u""}});
    views_.CmbDump.ListIndex(0);
    state_.DumpInGrid = GridDump(DumpNumber(1));
    views_.RulesGrid.AddItem({u"tgtab001.a", u"a"});
    views_.RulesGrid.AddItem({u"tgtab001.b(1)", u""});
    Spread(u"tgtab001.a"); // cut behind "tgta", the length of "tg1" and one
    EXPECT_NE(Dumps().find(R"(<DUMP No="2" TT="TG1"><B001.A>longer</B001.A></DUMP>)"), std::string::npos);
}

TEST_F(CopyToAllDumps, SavesThePreconditionOnTheWay)
{
    LoadDumps(R"(<DUMP No="1"><A>a</A></DUMP><DUMP No="2"/>)");
    NameDumps({{1, u""}});
    Show(0);
    views_.txtPreCondition.Text(u"| typed");
    Spread(u"tgtab001.a");
    EXPECT_NE(Below().find("<PREC>| typed</PREC>"), std::string::npos);
}

} // namespace
} // namespace rulemesh
