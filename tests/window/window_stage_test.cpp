#include "window/window_stage.h"

#include <random>

#include <gtest/gtest.h>

#include "drive/json_text.h"
#include "drive/session.h"
#include "support/samples.h"

namespace rulemesh {

namespace {

// Requests that a user at random might make, told to one session with a window and one without.
class RandomUser {
public:
    explicit RandomUser(unsigned seed) : random_(seed) {}

    std::vector<Json> Begin()
    {
        return {{{"do", "let"}, {"name", "TargetTable"}, {"value", "salor101"}},
                {{"do", "let"}, {"name", "MappingObjectXML"}, {"value", Sample("northwind.xml")}},
                {{"do", "let"}, {"name", "Edit"}, {"value", true}},
                {{"do", "call"}, {"name", "ShowControl"}},
                {{"do", "resize"}, {"width", 11700}, {"height", 7755}}};
    }

    Json Next()
    {
        switch (Below(14)) {
        case 0:
            return {{"do", "tab"}, {"index", Below(2)}};
        case 1:
            return {{"do", "focus"}, {"view", AnyOf(Views())}};
        case 2:
            return {{"do", "type"}, {"view", AnyOf(Boxes())}, {"text", AnyOf(Texts())}};
        case 3:
            return {{"do", "key"},
                    {"code", AnyOf(std::vector{9, 13, 27, 46, 77, 80, 81, 85, 186})},
                    {"shift", AnyOf(std::vector{0, 1, 2, 4, 8})}};
        case 4:
            return {{"do", "press"}, {"view", "RulesGrid"}, {"ascii", AnyOf(std::vector{9, 13, 32, 65, 233, -5})}};
        case 5:
            return {{"do", "choose"}, {"view", "CmbDump"}, {"index", Below(3)}};
        case 6:
            return {{"do", "row"}, {"view", AnyOf(Lists())}, {"row", 1 + Below(20)}};
        case 7:
            return {{"do", "tick"}, {"view", "lstSourceFields"}, {"row", 1 + Below(20)}, {"on", Below(2) == 1}};
        case 8:
            return {{"do", "header"}, {"view", AnyOf(Lists())}, {"column", 1 + Below(8)}};
        case 9:
            return {{"do", "cell"},
                    {"view", "RulesGrid"},
                    {"row", Below(20)},
                    {"col", Below(2)},
                    {"double", Below(2) == 1}};
        case 10:
            return {{"do", "scroll"}, {"view", "RulesGrid"}, {"top", Below(30)}};
        case 11:
            return {{"do", "reply"},
                    {"to", "form"},
                    {"steps", {{{"do", "type"}, {"view", "TxtDoc"}, {"text", AnyOf(Texts())}}, {{"do", "close"}}}}};
        case 12:
            return {{"do", "leave"}};
        default:
            return {{"do", "click"}, {"view", AnyOf(Buttons())}};
        }
    }

private:
    static std::vector<std::string> Boxes()
    {
        return {"txtPreCondition", "txtMainQuery", "txtFunctions", "txtVariables", "txtgrdline"};
    }
    static std::vector<std::string> Lists()
    {
        return {"lstSourceTables", "lstMigrateSource", "lstTargetFields", "lstSourceFields"};
    }
    static std::vector<std::string> Views() { return {"MainTab", "CmdMap", "txtPreCondition", "RulesGrid", "CmbDump"}; }
    static std::vector<std::string> Buttons()
    {
        return {"CmdGuess",  "CmdMap",       "CmdDumpText", "CmdPreDoc",    "CmdFunction",    "CmdOk",
                "CmdCancel", "CmdVariables", "cmdCopyDump", "PicPreResize", "CmdSelectSource"};
    }
    static std::vector<std::string> Texts()
    {
        return {"", "migrate ordrs001\r\n| dump 10", "a\nb\r\nc\rd\r\r\ne", "dump 40000", "\xE2\x80\xA8x\xE2\x80\xA9"};
    }

    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }
    template <typename Value> Value AnyOf(const std::vector<Value>& values)
    {
        return values[static_cast<std::size_t>(Below(static_cast<int>(values.size())))];
    }

    std::mt19937 random_;
};

std::vector<Json> RandomRequests(unsigned seed)
{
    RandomUser user(seed);
    std::vector<Json> requests = user.Begin();
    for (int step = 0; step < 60; ++step) {
        requests.push_back(user.Next());
        requests.push_back({{"do", "focused"}});
    }
    for (const char* view : {"lstTargetFields", "lstSourceFields", "RulesGrid", "txtMainQuery", "txtPreCondition"})
        requests.push_back({{"do", "read"}, {"view", view}});
    requests.push_back({{"do", "xml"}});
    return requests;
}

} // namespace

TEST(WindowStage, RunsNoLayoutPassBeforeTheHostAsks)
{
    Session windowless;
    Session inWindow(std::make_unique<WindowStage>());
    for (const char* view : {"MainTab", "FrmRules", "txtPreCondition", "CmdOk", "RulesGrid"}) {
        const std::string request = R"({"do":"read","view":")" + std::string(view) + R"("})";
        EXPECT_EQ(inWindow.Answer(request), windowless.Answer(request));
    }
}

TEST(WindowStage, AnswersWithTheFailureThatEndedAnEvent)
{
    Session session(std::make_unique<WindowStage>());
    static_cast<void>(session.Answer(R"({"do":"reply","to":"file","fail":true})"));
    const Json answer = Json::parse(session.Answer(R"({"do":"click","view":"CmdPreEditor"})"));
    EXPECT_EQ(answer.at("failure").at("number"), 75);
    EXPECT_EQ(session.Answer(R"({"do":"focused"})"), R"({"ok":true,"value":null,"happened":[]})");
}

TEST(WindowStage, AnswersRandomUsersAsWithoutAWindow)
{
    for (unsigned seed = 1; seed <= 12; ++seed) {
        Session windowless;
        Session inWindow(std::make_unique<WindowStage>());
        for (const Json& request : RandomRequests(seed)) {
            const std::string line = request.dump();
            const std::string expected = windowless.Answer(line);
            ASSERT_EQ(inWindow.Answer(line), expected) << "seed " << seed << ": " << line.substr(0, 200);
        }
    }
}

} // namespace rulemesh
