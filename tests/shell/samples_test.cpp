#include <string>

#include <gmock/gmock.h>

#include "base/utf8.h"
#include "shell/designer_bench.h"
#include "support/samples.h"

// What is opened and looked at comes back byte for byte, but for what the product writes by itself. Each test lists
// those places.

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Samples : public DesignerBench {
protected:
    void OpenSample(const std::string& name, TextView table)
    {
        text_ = Sample(name);
        control_.TargetTable(table);
        control_.Edit(true);
        control_.MappingObjectXML(text_);
        control_.ShowControl();
    }

    /// Every script, both panels, and every note that is no rule's.
    void LookAtTheScripts()
    {
        for (int row = 1; row <= views_.lstMigrateSource.Count(); ++row) {
            views_.lstMigrateSource.UserClicksRow(row);
            views_.CmdMQDoc.UserClicks();
        }
        views_.CmdPreDoc.UserClicks();
        for (Button* panel : {&views_.CmdFunction, &views_.CmdVariables}) {
            panel->UserClicks();
            views_.CmdCancel.UserClicks();
        }
    }

    /// Every dump with the note of its first field.
    void LookAtTheDumps()
    {
        views_.MainTab.UserClicksTab(1);
        for (int index = 0; index < static_cast<int>(views_.CmbDump.Entries().size()); ++index)
            views_.CmbDump.UserChooses(index);
        views_.CmbDump.UserChooses(0);
        views_.CmdDumpText.UserClicks();
        views_.MainTab.UserClicksTab(0);
    }

    /// The sample with one place changed.
    void Change(const std::string& before, const std::string& after)
    {
        const std::size_t place = text_.find(before);
        ASSERT_NE(place, std::string::npos);
        ASSERT_EQ(text_.find(before, place + 1), std::string::npos);
        text_.replace(place, before.size(), after);
    }

    void ExpectReadBack()
    {
        EXPECT_EQ(control_.MappingObjectXmlUtf8(), text_);
        EXPECT_EQ(control_.MappingObjectXmlUtf8(), text_);
        EXPECT_EQ(control_.MappingObjectXML(), FromUtf8(text_));
        EXPECT_THAT(platform_.Messages, IsEmpty());
    }

    std::string text_;
};

TEST_F(Samples, NorthwindComesBackWhenOnlyTheScriptsWereSeen)
{
    OpenSample("northwind.xml", u"salor101");
    LookAtTheScripts();
    ExpectReadBack();
}

TEST_F(Samples, ChinookComesBackWhenOnlyTheScriptsWereSeen)
{
    OpenSample("chinook.xml", u"PARTN101");
    LookAtTheScripts();
    ExpectReadBack();
    EXPECT_THAT(platform_.Forms, testing::Each(testing::Not(u"Choose Target for Dump No:  6")));
}

// Dump 6 has no table: the first visit to the rules asks for one and gives its first field a rule. Nothing else moves.
TEST_F(Samples, ChinookComesBackWithTheTableThatWasChosenForDumpSix)
{
    OpenSample("chinook.xml", u"PARTN101");
    platform_.FormActions.push_back([](ModalForm& form) {
        static_cast<FrmTxtDoc&>(form).CmbTargetTable.UserChooses(3);
        static_cast<FrmTxtDoc&>(form).CmdOk.UserClicks();
    });
    LookAtTheDumps();
    EXPECT_EQ(platform_.Forms.front(), u"Choose Target for Dump No:  6");
    Change(R"(TXT="| invoice lines"/>)", R"(TXT="| invoice lines" TT="SADOL101">)"
                                         R"(<DOCUMENT_NO TEXT="" TYPE="0">default()</DOCUMENT_NO></DUMP>)");
    ExpectReadBack();
}

TEST_F(Samples, ChinookComesBackWithTheFirstTableAfterCancel)
{
    OpenSample("chinook.xml", u"PARTN101");
    LookAtTheDumps();
    Change(R"(TXT="| invoice lines"/>)", R"(TXT="| invoice lines" TT="PARTN101">)"
                                         R"(<PARTNER_ID TEXT="" TYPE="0">default()</PARTNER_ID></DUMP>)");
    ExpectReadBack();
}

TEST_F(Samples, ReadOnlyControlsGiveTheScriptsBackAsWell)
{
    for (const auto& [name, table] :
         std::vector<std::pair<std::string, Text>>{{"northwind.xml", u"salor101"}, {"chinook.xml", u"PARTN101"}}) {
        RecordingPlatform platform;
        RecordingEvents events;
        ctlRulemesh control(platform, events);
        control.TargetTable(table);
        control.MappingObjectXML(Sample(name));
        control.ShowControl();
        EXPECT_EQ(control.MappingObjectXmlUtf8(), Sample(name));
    }
}

class EachSample : public Samples, public testing::WithParamInterface<std::string> {};

// The one place that looking changes is a dump that has no table yet: the first visit to the rules asks for one, takes
// the first after Cancel, and gives the first field a rule.
TEST_P(EachSample, ComesBackWhenEveryDumpWasSeen)
{
    const std::string root = Sample(GetParam()).substr(1, TableCodeLength);
    OpenSample(GetParam(), FromUtf8(root));
    LookAtTheDumps();
    EXPECT_GT(views_.CmbDump.Entries().size(), 1U);
    LookAtTheScripts();
    if (GetParam() == "chinook.xml")
        Change(R"(TXT="| invoice lines"/>)", R"(TXT="| invoice lines" TT="PARTN101">)"
                                             R"(<PARTNER_ID TEXT="" TYPE="0">default()</PARTNER_ID></DUMP>)");
    ExpectReadBack();
}

INSTANTIATE_TEST_SUITE_P(Folder, EachSample, testing::ValuesIn(SampleNames()),
                         [](const auto& sample) { return sample.param.substr(0, sample.param.find('.')); });

TEST_F(Samples, ShowTheirTables)
{
    OpenSample("chinook.xml", u"PARTN101");
    EXPECT_EQ(views_.lstSourceTables.Count(), 9);
    EXPECT_EQ(views_.lstTargetFields.Count(), 15);
    EXPECT_EQ(views_.CmbTargetTable.Entries().size(), 4U);
    EXPECT_THAT(control_.State().StrMigrateTables,
                ElementsAre(u"custm001", u"emply001", u"track001", u"album001", u"invco001", u"invli001"));
}

} // namespace
} // namespace rulemesh
