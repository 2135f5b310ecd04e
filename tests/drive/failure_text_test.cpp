// What a failure says for people: what was meant, where, and which value stood in the way.

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drive/json_text.h"
#include "drive/session.h"
#include "engine/shared_form_values.h"

namespace rulemesh {
namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr const char* Tables = "<SRCTBL>srtab001</SRCTBL><PREC>migrate srtab001</PREC>"
                               "<SRCTAB><SRTAB001><A/></SRTAB001></SRCTAB>"
                               "<TARTAB><TGTAB001><A No='1'/></TGTAB001></TARTAB>";

class FailureText : public testing::Test {
protected:
    FailureText() { Shared() = {}; }

    void Open(const std::string& below, const std::string& table = "tgtab001")
    {
        Do(R"({"do":"let","name":"TargetTable","value":")" + table + "\"}");
        Do(R"({"do":"let","name":"Edit","value":true})");
        Do(R"({"do":"let","name":"MappingObjectXML","value":"<tgtab001>)" + below + "</tgtab001>\"}");
    }
    void Show() { Do(R"({"do":"call","name":"ShowControl","args":[]})"); }
    void Do(const std::string& line) { ASSERT_EQ(Answer(line).at("ok"), true) << line; }

    // Number and text of the failure that the request ends in: "91: ...".
    [[nodiscard]] std::string Failing(const std::string& line)
    {
        const Json answer = Answer(line);
        if (!answer.contains("failure"))
            return answer.dump();
        const Json& failure = answer.at("failure");
        return std::to_string(failure.at("number").get<int>()) + ": " + failure.at("text").get<std::string>();
    }
    [[nodiscard]] std::string Reading() { return Failing(R"({"do":"get","name":"MappingObjectXML"})"); }

private:
    [[nodiscard]] Json Answer(const std::string& line) { return Json::parse(session_.Answer(line)); }

    Session session_;
};

TEST_F(FailureText, NamesATargetTableThatCanStandInNoPath)
{
    Open("<PREC/>", "srtab'10");
    EXPECT_EQ(Failing(R"({"do":"call","name":"ShowControl","args":[]})"),
              "13: The target table \"srtab'10\" can't stand in a path");
}

TEST_F(FailureText, NamesTheElementThatIsMissing)
{
    Open("");
    EXPECT_EQ(Reading(), "91: The object has no element PREC under a root named \"tgtab001\"");
    Do(R"({"do":"let","name":"MappingObjectXML","value":"no xml"})");
    EXPECT_EQ(Failing(R"({"do":"let","name":"SourceTables","value":"a"})"),
              "91: The source tables can't be stored: the object is empty");
    Do(R"({"do":"click","view":"CmdFunction"})");
    EXPECT_EQ(Failing(R"({"do":"click","view":"CmdOk"})"), "91: FUNCTIONS can't be stored: the object is empty");
}

TEST_F(FailureText, NamesTheNumberThatIsNone)
{
    Open(std::string(Tables) + "<QUERY ST='srtab001'>dump 40000</QUERY>");
    Show();
    EXPECT_EQ(Reading(), "6: The number of a dump statement: \"40000\" is outside of the whole numbers from -32768 to "
                         "32767");
    Do(R"({"do":"create"})");
    Open("<PREC/><DUMP No='x'/>");
    EXPECT_EQ(Reading(), "13: The number (No) of an element DUMP: \"x\" is no number");
}

TEST_F(FailureText, NamesTheFieldOfAFaultyNumber)
{
    Open("<SRCTBL>srtab001</SRCTBL><PREC>migrate srtab001</PREC><QUERY ST='srtab001'>dump 1 </QUERY>"
         "<SRCTAB><SRTAB001/></SRCTAB><TARTAB><TGTAB001><AMOUNT No='1x'/></TGTAB001></TARTAB>");
    Show();
    EXPECT_EQ(Failing(R"({"do":"tab","index":1})"), "13: The number (No) of the field AMOUNT: \"1x\" is no number");
}

TEST_F(FailureText, NamesTheQueryWithoutATable)
{
    Open("<PREC/><QUERY>q</QUERY>");
    EXPECT_EQ(Reading(), "91: An element QUERY has no attribute ST, which names its table");
}

TEST_F(FailureText, NamesTheCellThatIsNotThere)
{
    EXPECT_EQ(Failing(R"({"do":"let","name":"FieldMapping","value":"r"})"),
              "381: RulesGrid has no cell in row 0 and column 0; it has 0 rows and 2 columns, counted from 0");
}

TEST_F(FailureText, NamesTheCharacterThatAFileCanNotHold)
{
    Open("<PREC>\\n\\u0416</PREC>");
    Show();
    EXPECT_THAT(Failing(R"({"do":"click","view":"CmdPreEditor"})"),
                AllOf(HasSubstr("5: The text can't be stored in a file"), HasSubstr("\"\u0416\"")));
}

TEST_F(FailureText, NamesTheFileAndTheEditor)
{
    Open("<PREC/>");
    Do(R"({"do":"reply","to":"file","fail":true})");
    EXPECT_EQ(Reading(), "75: Path/File access error: C:\\Temp\\tgtab001.xml");
}

} // namespace
} // namespace rulemesh
