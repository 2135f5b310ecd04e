#include "engine/check.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/numbers.h"
#include "base/utf8.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* Source =
    R"(<SRCTAB><EMPLY001><NAME TYPE="S" LENG="30"/><F__3 TYPE="S" LENG="5"/><BORN TYPE="T"/><CNT TYPE="L"/></EMPLY001>)"
    R"(<SHIPP001><PHONE TYPE="M" LENG="9"/></SHIPP001></SRCTAB>)";
constexpr const char* Target = R"(<TARTAB><TGTAB001><NAME No="1" TYPE="S" LENG="20" MAN="Y"/>)"
                               R"(<F__3 No="2" TYPE="S" LENG="5"/><BORN No="3" TYPE="T"/></TGTAB001></TARTAB>)";

// An object in which nothing is wrong but what a test puts in.
struct Parts {
    std::string SourceTables = "emply001";
    std::string Precondition = "migrate emply001 ";
    std::string Query = "dump 1 ";
    std::string Functions = "";
    std::string Catalogue = std::string(Source) + Target;
    std::string Rules = "<NAME>1</NAME><F__3>1</F__3><BORN>1</BORN>";
    std::string More = "";
};

std::vector<Finding> FindingsFor(const Parts& parts)
{
    XmlDocument document;
    EXPECT_TRUE(document.loadXML("<tgtab001><SRCTBL>" + parts.SourceTables + "</SRCTBL><PREC>" + parts.Precondition +
                                 "</PREC><QUERY ST=\"emply001\">" + parts.Query + "</QUERY><FUNCTIONS>" +
                                 parts.Functions + "</FUNCTIONS>" + parts.Catalogue + "<DUMP No=\"1\">" + parts.Rules +
                                 "</DUMP>" + parts.More + "</tgtab001>"));
    return FindingsOf(ContentOf(document));
}

// Kind, dump, table, field and line of each finding.
std::vector<std::string> Found(const Parts& parts)
{
    std::vector<std::string> told;
    for (const Finding& finding : FindingsFor(parts)) {
        std::string line = ToUtf8(finding.Kind) + " " + std::to_string(finding.Dump) + " " + ToUtf8(finding.Table);
        if (!finding.Field.empty())
            line += "." + ToUtf8(finding.Field);
        if (finding.Line != 0)
            line += ":" + std::to_string(finding.Line);
        told.push_back(std::move(line));
    }
    return told;
}

// The same for the rule of NAME in dump 1.
std::vector<std::string> FoundForRule(const std::string& rule)
{
    return Found({.Rules = "<NAME>" + rule + "</NAME><F__3>1</F__3><BORN>1</BORN>"});
}

TEST(Check, FindsNothingInAnObjectThatIsWhole) { EXPECT_THAT(Found({}), IsEmpty()); }

TEST(Check, FindsNothingInAnEmptyDocument) { EXPECT_THAT(FindingsOf(ObjectContent()), IsEmpty()); }

TEST(Check, FindsFieldsWithoutRule)
{
    const Parts parts = {.Rules = "<F__3> &#9; </F__3>"};
    EXPECT_THAT(Found(parts),
                ElementsAre("no-rule 1 tgtab001.name", "no-rule 1 tgtab001.f(3)", "no-rule 1 tgtab001.born"));
    const std::vector<Finding> findings = FindingsFor(parts);
    EXPECT_EQ(findings[0].How, Finding::Severity::Error); // mandatory
    EXPECT_EQ(findings[1].How, Finding::Severity::Note);
}

TEST(Check, FindsFieldsWithoutRuleInADumpThatHasNoElementYet)
{
    EXPECT_THAT(Found({.Query = "dump 1 dump 2 "}),
                ElementsAre("no-rule 2 tgtab001.name", "no-rule 2 tgtab001.f(3)", "no-rule 2 tgtab001.born"));
}

TEST(Check, FindsTheDefaultOfAMandatoryField)
{
    EXPECT_THAT(FoundForRule("default()"), ElementsAre("default-left 1 tgtab001.name"));
    EXPECT_THAT(FoundForRule("default( )"), IsEmpty());
    EXPECT_THAT(Found({.Rules = "<NAME>1</NAME><F__3>default()</F__3><BORN>1</BORN>"}), IsEmpty());
}

TEST(Check, FindsNamesOfUnknownFields)
{
    EXPECT_THAT(FoundForRule("trim(emply001.nam)"), ElementsAre("unknown-field 1 tgtab001.name"));
    EXPECT_THAT(FoundForRule("trim(nobdy001.name)"), ElementsAre("unknown-field 1 tgtab001.name"));
    EXPECT_THAT(FoundForRule("trim(emply001.f(4))"), ElementsAre("unknown-field 1 tgtab001.name"));
    EXPECT_THAT(FoundForRule("a(EMPLY001.Name)+emply001.f(3)+emply001.f(1,3)+emply001.f+tgtab001.born"), IsEmpty());
    EXPECT_THAT(FoundForRule("\"nobdy001.name\"+'nobdy001.name'"), IsEmpty());
}

TEST(Check, TellsEachRuleAndNameOnce)
{
    EXPECT_THAT(FoundForRule("nobdy001.a+NOBDY001.A+nobdy001.b"),
                ElementsAre("unknown-field 1 tgtab001.name", "unknown-field 1 tgtab001.name"));
}

TEST(Check, FindsNamesOfTablesThatAreNotListed)
{
    EXPECT_THAT(FoundForRule("trim(shipp001.phone)"), ElementsAre("unlisted-table 1 tgtab001.name"));
    EXPECT_THAT(FoundForRule("trim(shipp001.fax)"), ElementsAre("unknown-field 1 tgtab001.name"));
}

TEST(Check, FindsAPlainSourceThatMapWouldConvert)
{
    EXPECT_THAT(Found({.Rules = "<NAME>1</NAME><F__3>emply001.f(3)</F__3><BORN>emply001.born</BORN>"}),
                ElementsAre("type 1 tgtab001.f(3)", "type 1 tgtab001.born"));
    EXPECT_THAT(Found({.Rules = "<NAME>1</NAME><F__3>emply001.f(1,3)</F__3><BORN>utc(emply001.born,0,2)</BORN>"}),
                IsEmpty());
    const std::vector<Finding> findings =
        FindingsFor({.Rules = "<NAME>1</NAME><F__3>1</F__3><BORN>EMPLY001.BORN</BORN>"});
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_THAT(ToUtf8(findings[0].Sentence), HasSubstr("utc(emply001.born,0,2)"));
}

TEST(Check, FindsAPlainSourceWithoutConversion)
{
    EXPECT_THAT(Found({.SourceTables = "emply001,shipp001",
                       .Rules = "<NAME>shipp001.phone</NAME><F__3>1</F__3><BORN>1</BORN>"}),
                ElementsAre("type 1 tgtab001.name"));
}

TEST(Check, FindsAPlainSourceThatIsTooLong)
{
    EXPECT_THAT(FoundForRule("emply001.name"), ElementsAre("length 1 tgtab001.name"));
    EXPECT_THAT(FoundForRule("trim(emply001.name)"), IsEmpty());
    EXPECT_THAT(FoundForRule("emply001.cnt"), IsEmpty());
}

TEST(Check, FindsRulesOfFieldsThatTheTableDoesNotHave)
{
    EXPECT_THAT(Found({.Rules = "<NAME>1</NAME><F__3>1</F__3><BORN>1</BORN><OTHER__2>1</OTHER__2>"}),
                ElementsAre("stray-rule 1 tgtab001.other(2)"));
}

TEST(Check, FindsDumpsWithoutTargetTable)
{
    EXPECT_THAT(Found({.Rules = "", .More = "<MSCRIPT><TGTAB001/></MSCRIPT>"}), ElementsAre("no-target 1 "));
    EXPECT_THAT(Found({.Query = "dump 2 ",
                       .Rules = "",
                       .More = "<MSCRIPT><TGTAB001/></MSCRIPT><DUMP No=\"2\" TT=\"tgtab001\"><NAME>1</NAME>"
                               "<F__3>1</F__3><BORN>1</BORN></DUMP>"}),
                ElementsAre("no-target 1 "));
}

TEST(Check, FindsUnknownTablesOnceEach)
{
    EXPECT_THAT(Found({.SourceTables = "emply001,nobdy001,nobdy001",
                       .Precondition = "migrate emply001 migrate nobdy001 migrate nobdy002 "}),
                ElementsAre("unknown-table 0 nobdy001", "unknown-table 0 nobdy002"));
    EXPECT_THAT(
        Found({.Rules = "", .More = "<MSCRIPT><TGTAB001/><NOTAB001/></MSCRIPT><DUMP No=\"2\" TT=\"notab002\"/>"}),
        ElementsAre("unknown-table 0 NOTAB001", "unknown-table 0 notab002", "no-target 1 "));
}

TEST(Check, FindsDumpsThatNoScriptNames)
{
    EXPECT_THAT(Found({.More = "<DUMP No=\"2\"><NAME>1</NAME></DUMP><DUMP No=\"3\"/>"}),
                ElementsAre("orphan-dump 2 tgtab001"));
    EXPECT_THAT(Found({.Query = "| dump 1 "}), ElementsAre("orphan-dump 1 tgtab001"));
    EXPECT_THAT(Found({.Query = "", .Functions = "dump 1 "}), IsEmpty());
    EXPECT_THAT(Found({.Precondition = "migrate emply001 dump 1 ", .Query = ""}), IsEmpty());
}

TEST(Check, FindsNoDumpsInAMainQueryThatIsNotMigrated)
{
    EXPECT_THAT(Found({.Query = "", .More = "<QUERY ST=\"shipp001\">dump 1 </QUERY>"}),
                ElementsAre("orphan-dump 1 tgtab001"));
}

TEST(Check, FindsSourceTablesThatNothingNames)
{
    EXPECT_THAT(Found({.SourceTables = "emply001,shipp001"}), ElementsAre("unused-table 0 shipp001"));
    EXPECT_THAT(Found({.SourceTables = "emply001,shipp001", .Query = "from SHIPP001 dump 1 "}), IsEmpty());
    EXPECT_THAT(Found({.SourceTables = "emply001,shipp001",
                       .Rules = "<NAME>f(shipp001.phone)</NAME><F__3>1</F__3><BORN>1</BORN>"}),
                IsEmpty());
}

TEST(Check, FindsWordsThatStartNoStatement)
{
    EXPECT_THAT(Found({.Query = "dump 1\n\ndump x\ndump 1000\ndump 40000\ndump\n"}),
                ElementsAre("script-word 0 emply001:3", "script-word 0 emply001:4", "script-word 0 emply001:5",
                            "script-word 0 emply001:6"));
    EXPECT_THAT(Found({.Precondition = "migrate emply001\n| migrate abc\nmigrate abcdefgh "}),
                ElementsAre("script-word 0 :2", "script-word 0 :3"));
    EXPECT_THAT(Found({.Functions = "dump x migrate y "}), ElementsAre("script-word 0 FUNCTIONS:1"));
}

TEST(Check, LeavesWordsOutOfForceAlone)
{
    EXPECT_THAT(Found({.Query = "dump 1 | dump x\nxdump y dumpz migrate "}), IsEmpty());
}

TEST(Check, FindsWhatStandsTwice)
{
    EXPECT_THAT(Found({.More = "<DUMP No=\"1\"/><DUMP No=\"1\"/>"}), ElementsAre("duplicate 1 tgtab001"));
    EXPECT_THAT(Found({.More = "<QUERY ST=\"emply001\"/>"}), ElementsAre("duplicate 0 emply001"));
    EXPECT_THAT(Found({.Rules = "<NAME>1</NAME><F__3>1</F__3><BORN>1</BORN><NAME>2</NAME><NAME>3</NAME>"}),
                ElementsAre("duplicate 1 tgtab001.name"));
}

TEST(Check, FindsFaultyNumbersOfFields)
{
    const auto numbered = [](const std::string& first, const std::string& second) {
        return Found({.Query = "",
                      .Catalogue = std::string(Source) + "<TARTAB><TGTAB001><A No=\"" + first + "\"/><B No=\"" +
                                   second + "\"/></TGTAB001></TARTAB>",
                      .Rules = ""});
    };
    EXPECT_THAT(numbered("1", "2"), IsEmpty());
    for (const auto& [first, second] : {std::pair("1", "1"), {"1", "3"}, {"2", "3"}, {"1", ""}, {"1", "x"}, {"2", "1"}})
        EXPECT_THAT(numbered(first, second), ElementsAre("numbering 0 TGTAB001"));
}

TEST(Check, OrdersByDumpLineFieldAndKind)
{
    EXPECT_THAT(Found({.Query = "dump 1\ndump x ",
                       .Functions = "dump y ",
                       .Rules = "<BORN>nobdy001.x</BORN><NAME>default()</NAME><NAME/>",
                       .More = "<DUMP No=\"2\"><NAME>1</NAME></DUMP>"}),
                ElementsAre("script-word 0 FUNCTIONS:1", "script-word 0 emply001:2", "default-left 1 tgtab001.name",
                            "duplicate 1 tgtab001.name", "no-rule 1 tgtab001.f(3)", "unknown-field 1 tgtab001.born",
                            "orphan-dump 2 tgtab001"));
}

TEST(Check, TellsASentenceForEach)
{
    for (const Finding& finding : FindingsFor({.SourceTables = "emply001,shipp001,nobdy001",
                                  .Query = "dump 1 dump x dump 2 ",
                                  .Rules = "<NAME>emply001.name</NAME><BORN>shipp001.phone</BORN><X/>"})) {
        EXPECT_EQ(finding.Sentence.back(), u'.') << ToUtf8(finding.Sentence);
        EXPECT_GT(finding.Sentence.size(), 20U);
    }
}

} // namespace
} // namespace rulemesh
