#include "player/scenario.h"

#include <fstream>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace rulemesh::player {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ScenarioFile : public ::testing::Test {
protected:
    void SetUp() override
    {
        top_ = std::filesystem::path(::testing::TempDir()) /
               ("rulemesh_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        std::filesystem::remove_all(top_);
        std::filesystem::create_directories(top_ / "area");
    }
    void TearDown() override { std::filesystem::remove_all(top_); }

    [[nodiscard]] std::filesystem::path Top() const { return top_; }
    [[nodiscard]] std::filesystem::path Written(const char* text) const
    {
        const std::filesystem::path file = top_ / "area" / "claim.session";
        std::ofstream(file) << text;
        return file;
    }

private:
    std::filesystem::path top_;
};

std::string DoneInSilence(const std::string&) { return R"({"ok":true,"happened":[]})"; }

Exchange Asked(int line, const char* request, const char* answer) { return {{line, request}, {line + 1, answer}}; }

} // namespace

TEST_F(ScenarioFile, IsFoundByItsEnding)
{
    EXPECT_THAT(FindScenarios(Top()), ElementsAre());
    std::ofstream(Top() / "area" / "README.md") << "no scenario\n";
    const std::filesystem::path file = Written("{}\n");
    EXPECT_THAT(FindScenarios(Top()), ElementsAre(file));
    EXPECT_THAT(FindScenarios(file), ElementsAre(file));
}

TEST_F(ScenarioFile, HoldsEachAnswerBelowItsRequest)
{
    const std::vector<Exchange> exchanges = LoadScenario(
        Written("# what is shown\n{\"do\":\"create\"}\n\n{\"do\":\"xml\"}\n# the text\n-> {\"value\":\"\"}\n"));
    ASSERT_EQ(exchanges.size(), 2U);
    EXPECT_EQ(exchanges[0].answer.text, "{}");
    EXPECT_EQ(exchanges[1].request.text, "{\"do\":\"xml\"}");
    EXPECT_EQ(exchanges[1].request.number, 4);
    EXPECT_EQ(exchanges[1].answer.text, "{\"value\":\"\"}");
    EXPECT_EQ(exchanges[1].answer.number, 6);
}

TEST_F(ScenarioFile, HasNoAnswerWithoutARequest)
{
    EXPECT_THROW((void)LoadScenario(Written("-> {}\n{\"do\":\"create\"}\n")), std::runtime_error);
    EXPECT_THROW((void)LoadScenario(Written("{\"do\":\"create\"}\n-> {}\n-> {}\n")), std::runtime_error);
}

TEST_F(ScenarioFile, SaysSomething) { EXPECT_THROW((void)LoadScenario(Written("# nothing\n")), std::runtime_error); }

TEST(Play, StopsAtTheFirstWrongAnswer)
{
    const std::vector<Exchange> scenario{Asked(1, "a", "{}"), Asked(3, "b", R"({"ok":false})"), Asked(5, "c", "{}")};
    int answered = 0;
    const std::string told = Play(scenario, DoneInSilence, [&] { ++answered; });
    EXPECT_EQ(answered, 2);
    EXPECT_THAT(told, HasSubstr("line 3 b"));
    EXPECT_THAT(told, HasSubstr("/ok: expected false, got true"));
}

TEST(Play, SaysNothingWhenAllIsWell)
{
    EXPECT_EQ(Play({Asked(1, "a", "{}")}, DoneInSilence, [] {}), "");
}

TEST(Play, FailsForAnAnswerThatIsNoJson)
{
    EXPECT_NE(Play(
                  {Asked(1, "a", "{}")}, [](const std::string&) { return std::string("?"); }, [] {}),
              "");
}

TEST(Play, FailsForAMalformedExpectation)
{
    EXPECT_THAT(Play({Asked(1, "a", R"({"hapened":[]})")}, DoneInSilence, [] {}), HasSubstr("malformed"));
    EXPECT_THROW((void)Play({Asked(1, "a", "{")}, DoneInSilence, [] {}), std::runtime_error);
}

} // namespace rulemesh::player
