#include "player/comparison.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace rulemesh::player {

namespace {

std::string Compared(const char* expected, const char* actual)
{
    return DifferenceOfAnswer(nlohmann::json::parse(expected), nlohmann::json::parse(actual));
}

} // namespace

TEST(DifferenceOfAnswer, ReadsAnEmptyExpectationAsDoneInSilence)
{
    EXPECT_EQ(Compared("{}", R"({"ok":true,"happened":[]})"), "");
    EXPECT_EQ(Compared("{}", R"({"ok":true,"happened":[],"value":3})"), "");
    EXPECT_NE(Compared("{}", R"({"ok":false,"happened":[]})"), "");
    EXPECT_NE(Compared("{}", R"({"ok":true,"happened":[{"event":{}}]})"), "");
    EXPECT_NE(Compared("{}", R"({"ok":true})"), "");
}

TEST(DifferenceOfAnswer, AsksForEachFailureAndRefusal)
{
    const char* failed = R"({"ok":false,"happened":[],"failure":{"number":91,"text":"x"}})";
    EXPECT_EQ(Compared(R"({"ok":false,"failure":{"number":91}})", failed), "");
    EXPECT_NE(Compared(R"({"ok":false,"failure":{"number":13}})", failed), "");
    EXPECT_NE(Compared(R"({"ok":false,"failure":{"number":91,"text":"y"}})", failed), "");
    EXPECT_NE(Compared(R"({"ok":false})", failed), "");
    EXPECT_NE(Compared(R"({"failure":{"number":91}})", failed), "");

    const char* refused = R"({"ok":false,"happened":[],"refused":"hidden"})";
    EXPECT_EQ(Compared(R"({"ok":false,"refused":true})", refused), "");
    EXPECT_EQ(Compared(R"({"ok":false,"refused":"hidden"})", refused), "");
    EXPECT_NE(Compared(R"({"ok":false,"refused":"disabled"})", refused), "");
    EXPECT_NE(Compared(R"({"ok":false})", refused), "");
    EXPECT_NE(Compared(R"({"ok":false,"refused":true})", R"({"ok":false,"happened":[]})"), "");
}

TEST(DifferenceOfAnswer, AsksForTheIdWhereThereIsOne)
{
    const char* withId = R"({"id":3,"ok":true,"happened":[]})";
    EXPECT_EQ(Compared(R"({"id":3})", withId), "");
    EXPECT_NE(Compared(R"({"id":4})", withId), "");
    EXPECT_NE(Compared("{}", withId), "");
    EXPECT_NE(Compared(R"({"id":3})", R"({"ok":true,"happened":[]})"), "");
}

TEST(DifferenceOfAnswer, ComparesObjectsByTheNamedMembersAndArraysWhole)
{
    const char* actual = R"({"ok":true,"happened":[],"value":{"a":1,"rows":[["x"],["y"]]}})";
    EXPECT_EQ(Compared(R"({"value":{"a":1}})", actual), "");
    EXPECT_EQ(Compared(R"({"value":{"rows":[["x"],["y"]]}})", actual), "");
    EXPECT_NE(Compared(R"({"value":{"b":1}})", actual), "");
    EXPECT_NE(Compared(R"({"value":{"rows":[["x"]]}})", actual), "");
    EXPECT_NE(Compared(R"({"value":{"rows":[["x"],["y"],["z"]]}})", actual), "");
    EXPECT_NE(Compared(R"({"value":{"rows":[["y"],["x"]]}})", actual), "");
    EXPECT_NE(Compared(R"({"value":{"a":"1"}})", actual), "");
}

TEST(DifferenceOfAnswer, ComparesXmlAsTreesOnlyWhereAsked)
{
    const char* actual = R"({"ok":true,"happened":[],"value":"<a x='1' y='2'/>"})";
    EXPECT_EQ(Compared(R"({"value":{"$xml":"<a y=\"2\" x=\"1\"></a>"}})", actual), "");
    EXPECT_NE(Compared(R"({"value":{"$xml":"<a y=\"2\"></a>"}})", actual), "");
    EXPECT_NE(Compared(R"({"value":"<a y='2' x='1'/>"})", actual), "");
    EXPECT_NE(Compared(R"({"value":{"$xml":"<a/>"}})", R"({"ok":true,"happened":[],"value":"<a>"})"), "");
}

TEST(DifferenceOfAnswer, NamesThePlace)
{
    EXPECT_EQ(Compared(R"({"happened":[{"message":{"text":"a"}}]})",
                       R"({"ok":true,"happened":[{"message":{"text":"b","title":""}}]})"),
              R"(/happened/0/message/text: expected "a", got "b")");
}

TEST(DifferenceOfAnswer, RefusesAMisspeltExpectation)
{
    EXPECT_THROW((void)Compared(R"({"hapened":[]})", R"({"ok":true,"happened":[]})"), std::runtime_error);
}

} // namespace rulemesh::player
