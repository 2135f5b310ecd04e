#include "window/window_stage.h"

#include <gtest/gtest.h>

#include "drive/json_text.h"
#include "drive/session.h"
#include "window/random_user.h"

namespace rulemesh {

namespace {

std::vector<Json> Requests(std::initializer_list<const char*> lines)
{
    std::vector<Json> requests;
    for (const char* line : lines)
        requests.push_back(Json::parse(line));
    return requests;
}

} // namespace

TEST(WindowStage, RunsNoLayoutPassBeforeTheHostAsks)
{
    Session windowless;
    Session inWindow([] { return std::make_unique<WindowStage>(); });
    for (const char* view : {"MainTab", "FrmRules", "txtPreCondition", "CmdOk", "RulesGrid"}) {
        const std::string request = R"({"do":"read","view":")" + std::string(view) + R"("})";
        EXPECT_EQ(inWindow.Answer(request), windowless.Answer(request));
    }
}

TEST(WindowStage, AnswersWithTheFailureThatEndedAnEvent)
{
    Session session([] { return std::make_unique<WindowStage>(); });
    static_cast<void>(session.Answer(R"({"do":"reply","to":"file","fail":true})"));
    const Json answer = Json::parse(session.Answer(R"({"do":"click","view":"CmdPreEditor"})"));
    EXPECT_EQ(answer.at("failure").at("number"), 75);
    EXPECT_EQ(session.Answer(R"({"do":"focused"})"), R"({"ok":true,"value":null,"happened":[]})");
}

// The box over an empty grid can't be committed; the key that runs into this types nothing any more.
TEST(WindowStage, KeyThatEndsInAFailureGoesNoFurther)
{
    EXPECT_EQ(DifferenceWithAWindow(Requests({
                  R"({"do":"let","name":"Edit","value":true})",
                  R"({"do":"tab","index":1})",
                  R"({"do":"press","view":"RulesGrid","ascii":97})",
                  R"({"do":"set","view":"Command1","visible":true})",
                  R"({"do":"click","view":"Command1"})",
                  R"({"do":"press","view":"RulesGrid","ascii":97})",
                  R"({"do":"tab","index":0})",
              })),
              "");
}

TEST(WindowStage, AnswersRandomUsersAsWithoutAWindow)
{
    for (unsigned seed = 1; seed <= 30; ++seed)
        EXPECT_EQ(DifferenceWithAWindow(RandomSession(seed, 60)), "") << "seed " << seed;
}

} // namespace rulemesh
