#include "player/scenario.h"

#include <fstream>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace rulemesh::player {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ScenarioFolder : public ::testing::Test {
protected:
    void SetUp() override
    {
        top_ = std::filesystem::path(::testing::TempDir()) /
               ("rulemesh_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        std::filesystem::remove_all(top_);
        std::filesystem::create_directories(top_ / "area" / "one");
    }
    void TearDown() override { std::filesystem::remove_all(top_); }

    void Write(const char* file, const char* text) const { std::ofstream(One() / file) << text; }
    [[nodiscard]] std::filesystem::path One() const { return top_ / "area" / "one"; }
    [[nodiscard]] std::filesystem::path Top() const { return top_; }

private:
    std::filesystem::path top_;
};

std::string DoneInSilence(const std::string&) { return R"({"ok":true,"happened":[]})"; }

} // namespace

TEST_F(ScenarioFolder, IsFoundByEitherFile)
{
    EXPECT_THAT(FindScenarios(Top()), ElementsAre());
    Write("answers.jsonl", "{}\n");
    EXPECT_THAT(FindScenarios(Top()), ElementsAre(One()));
    EXPECT_THROW((void)LoadScenario(One()), std::runtime_error);
}

TEST_F(ScenarioFolder, MayHoldCommentsAnywhere)
{
    Write("requests.jsonl", "# what is shown\n{\"do\":\"create\"}\n\n{\"do\":\"xml\"}\n");
    Write("answers.jsonl", "{}\n# the text\n{}");
    const Scenario scenario = LoadScenario(One());
    ASSERT_EQ(scenario.requests.size(), 2U);
    EXPECT_EQ(scenario.requests[1].text, "{\"do\":\"xml\"}");
    EXPECT_EQ(scenario.requests[1].number, 4);
    EXPECT_EQ(scenario.answers.size(), 2U);
}

TEST_F(ScenarioFolder, NeedsAnAnswerForEachRequest)
{
    Write("requests.jsonl", "{\"do\":\"create\"}\n{\"do\":\"xml\"}\n");
    Write("answers.jsonl", "{}\n");
    EXPECT_THROW((void)LoadScenario(One()), std::runtime_error);
}

TEST(Play, StopsAtTheFirstWrongAnswer)
{
    const Scenario scenario{{{1, "a"}, {3, "b"}, {4, "c"}}, {{1, "{}"}, {2, R"({"ok":false})"}, {3, "{}"}}};
    int answered = 0;
    const std::string told = Play(scenario, DoneInSilence, [&] { ++answered; });
    EXPECT_EQ(answered, 2);
    EXPECT_THAT(told, HasSubstr("request 2 (requests.jsonl:3) b"));
    EXPECT_THAT(told, HasSubstr("/ok: expected false, got true"));
}

TEST(Play, SaysNothingWhenAllIsWell)
{
    EXPECT_EQ(Play({{{1, "a"}}, {{1, "{}"}}}, DoneInSilence, [] {}), "");
}

TEST(Play, FailsForAnAnswerThatIsNoJson)
{
    EXPECT_NE(Play(
                  {{{1, "a"}}, {{1, "{}"}}}, [](const std::string&) { return std::string("?"); }, [] {}),
              "");
}

TEST(Play, FailsForAMalformedExpectation)
{
    EXPECT_THAT(Play({{{1, "a"}}, {{1, R"({"hapened":[]})"}}}, DoneInSilence, [] {}), HasSubstr("malformed"));
    EXPECT_THROW((void)Play({{{1, "a"}}, {{1, "{"}}}, DoneInSilence, [] {}), std::runtime_error);
}

} // namespace rulemesh::player
