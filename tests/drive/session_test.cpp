#include "drive/session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drive/json_text.h"
#include "engine/shared_form_values.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class SessionTest : public testing::Test {
protected:
    SessionTest() { Shared() = {}; }

    [[nodiscard]] Json Answer(const std::string& line) { return Json::parse(session_.Answer(line)); }

    void Do(const std::string& line)
    {
        const Json answer = Answer(line);
        ASSERT_EQ(answer.at("ok"), true) << line << answer;
    }

    void Open(const std::string& below)
    {
        Do(R"({"do":"let","name":"TargetTable","value":"tgtab001"})");
        Do(R"({"do":"let","name":"Edit","value":true})");
        Do(R"({"do":"let","name":"MappingObjectXML","value":"<tgtab001>)" + below + "</tgtab001>\"}");
        Do(R"({"do":"call","name":"ShowControl","args":[]})");
    }

    [[nodiscard]] std::string Xml() { return Answer(R"({"do":"xml"})").at("value").get<std::string>(); }

    Session session_;
};

TEST_F(SessionTest, AnAnswerIsOneLineOfOneObject)
{
    EXPECT_EQ(session_.Answer(R"({"do":"let","name":"Editor","value":"a\nb"})"), R"({"ok":true,"happened":[]})");
    EXPECT_EQ(session_.Answer(R"({"do":"get","name":"MainQuery"})"), R"({"ok":true,"value":"","happened":[]})");
    EXPECT_EQ(session_.Answer(R"({"do":"state"})").find('\n'), std::string::npos);
}

TEST_F(SessionTest, ALineThatIsNoObjectIsRefused)
{
    for (const std::string line : {"", " ", "42", "\"do\"", "[1]", "null", "true", "{", "nonsense", "{} {}", "\xFF"}) {
        const Json answer = Answer(line);
        EXPECT_EQ(answer.at("ok"), false) << line;
        EXPECT_TRUE(answer.at("refused").is_string()) << line;
        EXPECT_EQ(answer.at("happened"), Json::array()) << line;
        EXPECT_FALSE(answer.contains("failure")) << line;
    }
    EXPECT_EQ(Answer(R"({"do":"focused"})").at("ok"), true); // and reading goes on
}

TEST_F(SessionTest, HelloListsWhatTheSessionTakes)
{
    const Json hello = Answer(R"({"do":"hello"})").at("value");
    EXPECT_EQ(hello.at("program"), "rulemesh");
    EXPECT_TRUE(hello.at("version").is_string());
    EXPECT_TRUE(hello.at("protocol").is_number_integer());
    for (const Json& verb : hello.at("verbs"))
        EXPECT_THAT(session_.Answer(Json({{"do", verb}}).dump()), Not(HasSubstr("there is no verb"))) << verb;
    EXPECT_THAT(hello.at("verbs"), testing::IsSupersetOf({"hello", "create", "let", "get", "call", "click", "xml"}));
    EXPECT_THAT(hello.at("members"), testing::IsSupersetOf({"MappingObjectXML", "UndoText", "ShowControl", "Editor"}));
    for (const Json& view : hello.at("views"))
        EXPECT_EQ(Answer(Json({{"do", "read"}, {"view", view}}).dump()).at("ok"), true) << view;
    EXPECT_THAT(hello.at("views"), testing::IsSupersetOf({"MainTab", "RulesGrid", "txtgrdline"}));
}

TEST_F(SessionTest, AnIdStandsBeforeTheRestOfTheAnswer)
{
    EXPECT_EQ(session_.Answer(R"({"do":"focused","id":"a"})"), R"({"id":"a","ok":true,"value":null,"happened":[]})");
    EXPECT_THAT(session_.Answer(R"({"do":"nonsense","id":1})"), testing::StartsWith(R"({"id":1,"ok":false,)"));
}

TEST_F(SessionTest, KnowsWhetherTheLastRequestWasDone)
{
    static_cast<void>(session_.Answer(R"({"do":"focused"})"));
    EXPECT_TRUE(session_.WasDone());
    for (const char* line : {"nonsense", R"({"do":"nonsense"})", R"({"do":"get","name":"MappingObjectXML"})"}) {
        static_cast<void>(session_.Answer(line));
        EXPECT_FALSE(session_.WasDone()) << line;
    }
    static_cast<void>(session_.Answer(R"({"do":"focused"})"));
    EXPECT_TRUE(session_.WasDone());
}

TEST_F(SessionTest, WhatCanNotBeMadeIsRefusedAndChangesNothing)
{
    Open("<PREC>p</PREC>");
    const std::string before = Answer(R"({"do":"state"})").dump() + Xml();
    for (const std::string line : {
             R"({})",
             R"({"do":7})",
             R"({"do":"nonsense"})",
             R"({"do":"let"})",
             R"({"do":"let","name":"nonsense","value":""})",
             R"({"do":"let","name":"Edit","value":"true"})",
             R"({"do":"let","name":"Edit"})",
             R"({"do":"get","name":"Edit"})",
             R"({"do":"call","name":"ShowControl","args":7})",
             R"({"do":"call","name":"ShowControl","args":[1]})",
             R"({"do":"call","name":"GridEdit","args":[40000]})",
             R"({"do":"read","view":"nonsense"})",
             R"({"do":"click","view":"txtPreCondition"})",
             R"({"do":"click","view":"CmdGuess"})",
             R"({"do":"tab","index":2})",
             R"({"do":"type","view":"txtPreCondition","text":7})",
             R"({"do":"key","code":65})",
             R"({"do":"focus","view":"lblPreCondition"})",
             R"({"do":"reply","to":"nonsense"})",
             R"({"do":"reply","to":"form","steps":[{"do":"nonsense","view":"CmdOk"}]})",
             R"({"do":"reply","to":"event","name":"nonsense","let":{"name":"MainQuery","value":""}})",
         }) {
        const Json answer = Answer(line);
        EXPECT_EQ(answer.at("ok"), false) << line;
        EXPECT_TRUE(answer.contains("refused")) << line;
        EXPECT_FALSE(answer.contains("value")) << line;
    }
    EXPECT_EQ(Answer(R"({"do":"state"})").dump() + Xml(), before);
}

TEST_F(SessionTest, TheReasonIsOneLine)
{
    const std::string reason = Answer(R"({"do":"a\nb"})").at("refused").get<std::string>();
    EXPECT_THAT(reason, Not(HasSubstr("\n")));
}

TEST_F(SessionTest, NoFocusIsANull)
{
    const Json answer = Answer(R"({"do":"focused"})");
    ASSERT_TRUE(answer.contains("value"));
    EXPECT_TRUE(answer.at("value").is_null());
}

TEST_F(SessionTest, AFailureIsANumberAndAText)
{
    const Json answer = Answer(R"({"do":"get","name":"MappingObjectXML"})");
    EXPECT_EQ(answer.at("ok"), false);
    EXPECT_EQ(answer.at("failure").at("number"), 91);
    EXPECT_TRUE(answer.at("failure").at("text").is_string());
    EXPECT_FALSE(answer.contains("value"));
}

TEST_F(SessionTest, AFailureOfAHostThatAnswersAnEventComesOut)
{
    Open("<PREC/>");
    Do(R"({"do":"reply","to":"event","name":"ShowSourceTablesPopUp","let":{"name":"FieldMapping","value":"x"}})");
    const Json answer = Answer(R"({"do":"click","view":"CmdSelectSource"})");
    EXPECT_EQ(answer.at("failure").at("number"), 381);
    EXPECT_EQ(answer.at("happened").size(), 1U);
}

TEST_F(SessionTest, ALoneSurrogateIsNoXml)
{
    Open("<PREC>\\ud800</PREC>");
    EXPECT_EQ(Answer(R"({"do":"state"})").at("value").at("IntErrorCode"), 1);
    EXPECT_EQ(Xml(), "");
}

TEST_F(SessionTest, ALoneSurrogateIsOneCharacterOfABox)
{
    Open("<PREC/>");
    Do(R"({"do":"type","view":"txtPreCondition","text":"a\udc00b"})");
    EXPECT_EQ(Answer(R"({"do":"read","view":"txtPreCondition"})").at("value").at("text"), "a\xEF\xBF\xBD"
                                                                                          "b");
    Do(R"({"do":"leave"})");
    EXPECT_THAT(Xml(), HasSubstr("<PREC>a\xEF\xBF\xBD"
                                 "b</PREC>"));
}

TEST_F(SessionTest, LineEndsArriveAsTheyAreHeld)
{
    Open("<PREC>a\\nb</PREC>");
    EXPECT_EQ(Answer(R"({"do":"read","view":"txtPreCondition"})").at("value").at("text"), "a\r\nb");
    EXPECT_THAT(Xml(), HasSubstr("<PREC>a\nb</PREC>"));
}

TEST_F(SessionTest, ANewControlKeepsRepliesAndSharedValues)
{
    Open("<PREC TEXT='n'/>");
    Do(R"({"do":"reply","to":"form","steps":[{"do":"type","view":"TxtDoc","text":"typed"},{"do":"click","view":"CmdOk"}]})");
    Do(R"({"do":"create"})");
    EXPECT_EQ(Xml(), "");
    Do(R"({"do":"let","name":"TargetTable","value":"tgtab001"})");
    Do(R"({"do":"let","name":"MappingObjectXML","value":"<tgtab001><PREC TEXT='n'/></tgtab001>"})");
    Do(R"({"do":"call","name":"ShowControl","args":[]})");
    const Json form = Answer(R"({"do":"click","view":"CmdPreDoc"})").at("happened").at(0).at("form");
    EXPECT_EQ(form.at("mode"), "note");
    EXPECT_EQ(form.at("locked"), false); // the flag of the control that is gone
    EXPECT_THAT(Xml(), HasSubstr(R"(TEXT="typed")"));
}

TEST_F(SessionTest, SessionsHaveControlsOfTheirOwn)
{
    Open("<PREC>p</PREC>");
    Session other;
    EXPECT_EQ(Json::parse(other.Answer(R"({"do":"xml"})")).at("value"), "");
}

} // namespace
} // namespace rulemesh
