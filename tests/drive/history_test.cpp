#include <string>

#include <gtest/gtest.h>

#include "drive/json_text.h"
#include "drive/session.h"
#include "engine/shared_form_values.h"

namespace rulemesh {
namespace {

// One dump, 1, of a table with three fields, of which ITEM has a rule, and a second dump that has none.
constexpr const char* Object =
    R"(<tgtab001><SRCTBL>srtab010</SRCTBL><PREC>migrate srtab010</PREC><QUERY ST="srtab010">dump 1 | one
dump 2 | two</QUERY><FUNCTIONS>f</FUNCTIONS><VAR>v</VAR>)"
    R"(<SRCTAB><SRTAB010><ITEM FNo="1" TYPE="S" LENG="20"/></SRTAB010></SRCTAB>)"
    R"(<TARTAB><TGTAB001><ITEM No="1" FNo="1" TYPE="S" LENG="20"/><CODE No="2" FNo="2" TYPE="S"/>)"
    R"(<UNIT No="3" FNo="3" TYPE="S"/></TGTAB001></TARTAB>)"
    R"(<DUMP No="1" TT="tgtab001"><ITEM TEXT="" TYPE="0">one</ITEM></DUMP><DUMP No="2" TT="tgtab001"/></tgtab001>)";

class HistoryTest : public testing::Test {
protected:
    HistoryTest()
    {
        Shared() = {};
        Let("TargetTable", "tgtab001");
        Let("Edit", true);
        Let("MappingObjectXML", Object);
        Call("ShowControl");
        Ask(R"({"do":"resize","width":11700,"height":7755})");
    }

    Json Ask(const std::string& request) { return Json::parse(session_.Answer(request)); }
    Json Let(const std::string& name, const Json& value)
    {
        return Ask(Json{{"do", "let"}, {"name", name}, {"value", value}}.dump());
    }
    Json Call(const std::string& name) { return Ask(R"({"do":"call","name":")" + name + "\"}"); }
    [[nodiscard]] bool Undo() { return Call("Undo").at("value"); }
    [[nodiscard]] bool Redo() { return Call("Redo").at("value"); }
    [[nodiscard]] std::string Get(const std::string& name)
    {
        return Ask(R"({"do":"get","name":")" + name + "\"}").at("value");
    }
    [[nodiscard]] std::string Xml() { return Ask(R"({"do":"xml"})").at("value"); }
    [[nodiscard]] Json Read(const std::string& view, const std::string& what)
    {
        return Ask(R"({"do":"read","view":")" + view + "\"}").at("value").at(what);
    }
    [[nodiscard]] Json State(const std::string& field) { return Ask(R"({"do":"state"})").at("value").at(field); }

    void Type(const std::string& view, const std::string& text)
    {
        Ask(Json{{"do", "type"}, {"view", view}, {"text", text}}.dump());
    }
    void OpenRules() { Ask(R"({"do":"tab","index":1})"); }
    void Press(char character) { Ask(Json{{"do", "press"}, {"view", "RulesGrid"}, {"ascii", int(character)}}.dump()); }
    void Cell(int row) { Ask(Json{{"do", "cell"}, {"view", "RulesGrid"}, {"row", row}, {"col", 1}}.dump()); }

    Session session_;
};

TEST_F(HistoryTest, IsEmptyAtTheStart)
{
    EXPECT_FALSE(Undo());
    EXPECT_FALSE(Redo());
    EXPECT_EQ(Get("UndoText"), "");
    EXPECT_EQ(Get("RedoText"), "");
}

TEST_F(HistoryTest, NamesAStepAsItsCommandWithoutAccessKeyAndDots)
{
    OpenRules();
    Ask(R"({"do":"click","view":"CmdGuess"})");
    EXPECT_EQ(Get("UndoText"), "Guess");
    Ask(R"({"do":"row","view":"lstTargetFields","row":1})");
    Ask(R"({"do":"click","view":"cmdCopyToAllDumps"})");
    EXPECT_EQ(Get("UndoText"), "Copy to all dumps");
    EXPECT_TRUE(Undo());
    EXPECT_EQ(Get("UndoText"), "Guess");
    EXPECT_EQ(Get("RedoText"), "Copy to all dumps");
}

TEST_F(HistoryTest, PutsTheObjectBackByteForByte)
{
    const std::string before = Xml();
    OpenRules();
    const std::string opened = Xml();
    Ask(R"({"do":"click","view":"CmdGuess"})");
    const std::string guessed = Xml();
    ASSERT_NE(guessed, opened);
    EXPECT_TRUE(Undo());
    EXPECT_EQ(Xml(), opened);
    EXPECT_TRUE(Redo());
    EXPECT_EQ(Xml(), guessed);
    EXPECT_EQ(before, opened); // opening the rules of a dump that names its table changes nothing
}

TEST_F(HistoryTest, TakesWhatAMoveStoredWithTheStepBeforeIt)
{
    const std::string before = Xml();
    Type("txtMainQuery", "dump 1 | one\r\ndump 2 | two\r\ndump 3 | three");
    EXPECT_EQ(Xml(), before); // still in the box
    Ask(R"({"do":"focus","view":"txtPreCondition"})");
    ASSERT_NE(Xml(), before); // stored, and dump 3 made
    EXPECT_TRUE(Undo());
    EXPECT_EQ(Xml(), before);
    EXPECT_EQ(State("IntDumpNumbers"), Json({0}));
    EXPECT_FALSE(Undo());
}

TEST_F(HistoryTest, LooksBackToTheViewsOfTheStep)
{
    OpenRules();
    Cell(1);
    Press('x');
    Ask(R"({"do":"tab","index":0})");
    EXPECT_TRUE(Undo());
    EXPECT_EQ(Read("MainTab", "tab"), 1);
    EXPECT_EQ(Read("RulesGrid", "row"), 1);
    EXPECT_EQ(Read("txtgrdline", "visible"), false);
    EXPECT_EQ(Ask(R"({"do":"focused"})").at("value"), "RulesGrid");
}

TEST_F(HistoryTest, CountsEachTypeRequestAsAStep)
{
    Type("txtFunctions", "not reachable");
    Type("txtPreCondition", "migrate srtab010 ");
    Type("txtPreCondition", "migrate srtab010 | a");
    EXPECT_TRUE(Undo());
    EXPECT_EQ(Read("txtPreCondition", "text"), "migrate srtab010 ");
    EXPECT_TRUE(Undo());
    EXPECT_EQ(Read("txtPreCondition", "text"), "migrate srtab010");
    EXPECT_FALSE(Undo());
}

TEST_F(HistoryTest, JoinsCharactersPressedOneAfterTheOther)
{
    OpenRules();
    Cell(1);
    Press('a');
    Ask(R"({"do":"key","code":66,"shift":0})");
    Press('b');
    EXPECT_EQ(Read("txtgrdline", "text"), "b");
    EXPECT_TRUE(Undo());
    EXPECT_EQ(Read("txtgrdline", "visible"), false);
    EXPECT_FALSE(Undo());
}

TEST_F(HistoryTest, BeginsANewStepOfTypingInAnotherCell)
{
    OpenRules();
    Cell(1);
    Press('a');
    Cell(2);
    Press('b');
    EXPECT_TRUE(Undo());
    EXPECT_EQ(Read("RulesGrid", "rows")[1][1], "a");
    EXPECT_EQ(Read("RulesGrid", "row"), 2);
    EXPECT_TRUE(Undo());
    EXPECT_EQ(Read("RulesGrid", "rows")[1][1], "");
}

TEST_F(HistoryTest, CountsNoStepForAKeyThatOnlyOpensTheCell)
{
    OpenRules();
    Cell(0);
    Press(' ');
    EXPECT_EQ(Read("txtgrdline", "text"), "one");
    EXPECT_FALSE(Undo());
}

TEST_F(HistoryTest, CountsNoStepForAChangeThatComesToNothing)
{
    Let("SourceTables", "srtab010");
    Let("PreCondition", "migrate srtab010");
    EXPECT_FALSE(Undo());
}

TEST_F(HistoryTest, CountsAReadOfTheObjectThatChangesItAsASave)
{
    Let("MappingObjectXML", R"(<tgtab001><PREC>dump 1</PREC><DUMP No="7"/></tgtab001>)");
    const std::string before = Xml();
    const std::string saved = Get("MappingObjectXML");
    ASSERT_NE(saved, before);
    EXPECT_EQ(Get("UndoText"), "Save");
    EXPECT_TRUE(Undo());
    EXPECT_EQ(Xml(), before);
    EXPECT_TRUE(Redo());
    EXPECT_EQ(Xml(), saved);
}

TEST_F(HistoryTest, CountsAStepThatEndedInAFailure)
{
    const std::string before = Xml();
    EXPECT_EQ(Let("MainQuery", "dump 40000").at("failure").at("number"), 6);
    ASSERT_NE(Xml(), before);
    EXPECT_TRUE(Undo());
    EXPECT_EQ(Xml(), before);
}

TEST_F(HistoryTest, DropsWhatCouldBeDoneAgainAtANewStepAndNotAtAMove)
{
    Type("txtPreCondition", "migrate srtab010 | a");
    EXPECT_TRUE(Undo());
    Ask(R"({"do":"tab","index":1})");
    EXPECT_EQ(Get("RedoText"), "Typing");
    EXPECT_TRUE(Redo());
    EXPECT_EQ(Read("MainTab", "tab"), 0);
    EXPECT_TRUE(Undo());
    Type("txtPreCondition", "migrate srtab010 | b");
    EXPECT_EQ(Get("RedoText"), "");
    EXPECT_FALSE(Redo());
}

TEST_F(HistoryTest, BeginsAnewWithWhatTheHostSets)
{
    const auto afterTyping = [&] {
        Type("txtPreCondition", "migrate srtab010 | " + std::to_string(Xml().size()));
        Type("txtPreCondition", "migrate srtab010 | again");
        EXPECT_EQ(Get("UndoText"), "Typing");
    };
    afterTyping();
    Call("ShowControl");
    EXPECT_FALSE(Undo());
    afterTyping();
    Let("MappingObjectXML", Object);
    EXPECT_FALSE(Undo());
    afterTyping();
    Let("TargetTable", "tgtab001");
    Let("Edit", true);
    EXPECT_EQ(Get("UndoText"), "Typing"); // the values that they had
    Let("TargetTable", "tgtab002");
    EXPECT_FALSE(Undo());
    Let("TargetTable", "tgtab001");
    afterTyping();
    Let("Edit", false);
    Let("Edit", true);
    EXPECT_FALSE(Undo());
}

TEST_F(HistoryTest, DoesNothingInAReadOnlyControl)
{
    Let("Edit", false);
    Let("MainQuery", "dump 1 dump 2 dump 3");
    const std::string before = Xml();
    EXPECT_FALSE(Undo());
    EXPECT_EQ(Xml(), before);
    EXPECT_EQ(Get("UndoText"), "");
}

TEST_F(HistoryTest, DoesNothingInsideOfAnEvent)
{
    Type("txtPreCondition", "migrate srtab010 | a");
    Ask(R"({"do":"reply","to":"event","name":"ShowSourceTablesPopUp","call":{"name":"Undo","args":[]}})");
    Ask(R"({"do":"click","view":"CmdSelectSource"})");
    EXPECT_EQ(Read("txtPreCondition", "text"), "migrate srtab010 | a");
    EXPECT_TRUE(Undo());
}

TEST_F(HistoryTest, RunsNothingAndTakesNoReply)
{
    OpenRules();
    Ask(R"({"do":"row","view":"lstTargetFields","row":1})");
    Ask(R"({"do":"click","view":"cmdCopyToAllDumps"})");
    Ask(R"({"do":"reply","to":"message","button":"No"})");
    const Json undone = Call("Undo");
    EXPECT_EQ(undone.at("value"), true);
    EXPECT_EQ(undone.at("happened"), Json::array());
    EXPECT_EQ(Call("Redo").at("happened"), Json::array());
    EXPECT_TRUE(Undo());
    Ask(R"({"do":"click","view":"cmdCopyToAllDumps"})");
    EXPECT_FALSE(Undo()); // the No lay ready still
}

TEST_F(HistoryTest, LeavesTheSettingsAndTheFirstFailure)
{
    Type("txtPreCondition", "migrate srtab010 | a");
    Let("Editor", "vi");
    Let("Syntax_Highlight", true);
    Let("MappingObjectXML", Object); // begins anew, and so must come before the step
    Type("txtPreCondition", "migrate srtab010 | b");
    Let("Editor", "ed");
    Let("Syntax_Highlight", false);
    EXPECT_TRUE(Undo());
    EXPECT_EQ(State("StrEditor"), "ed");
    EXPECT_EQ(State("BoolSyntaxHighlight"), false);
    Type("txtPreCondition", std::string(33000, 'x') + " migrate srtab010");
    Ask(R"({"do":"focus","view":"txtMainQuery"})");
    ASSERT_EQ(State("IntErrorCode"), 6);
    EXPECT_TRUE(Undo());
    EXPECT_EQ(State("IntErrorCode"), 6);
}

TEST_F(HistoryTest, LeavesThePlacesOfTheLastLayoutPass)
{
    Type("txtPreCondition", "migrate srtab010 | a");
    Ask(R"({"do":"resize","width":9000,"height":7755})");
    const Json width = Read("txtPreCondition", "width");
    EXPECT_TRUE(Undo());
    EXPECT_EQ(Read("txtPreCondition", "width"), width);
    EXPECT_EQ(Read("MainTab", "width"), 8990);
}

TEST_F(HistoryTest, KeepsAThousandSteps)
{
    for (int step = 0; step < 1000; ++step)
        Type("txtPreCondition", "migrate srtab010 | " + std::to_string(step));
    for (int step = 0; step < 1000; ++step)
        ASSERT_TRUE(Undo()) << step;
    EXPECT_EQ(Read("txtPreCondition", "text"), "migrate srtab010");
}

} // namespace
} // namespace rulemesh
