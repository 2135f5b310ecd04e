#include "drive/request.h"

#include <functional>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace rulemesh {
namespace {

using testing::HasSubstr;

std::string RefusalOf(const std::function<void(const Request&)>& read)
{
    const Json members =
        ParseLine(R"({"text":"t","flag":true,"number":7,"half":2.5,"big":2147483648,"huge":18446744073709551615,)"
                  R"("low":-2147483649,"small":-32768,"over":32768,"none":null,"list":[1]})");
    try {
        read(Request(members));
    } catch (const Refusal& refusal) {
        return refusal.what();
    }
    return "";
}

TEST(Request, GivesItsMembers)
{
    EXPECT_EQ(RefusalOf([](const Request& request) {
                  EXPECT_TRUE(request.Has("none"));
                  EXPECT_FALSE(request.Has("other"));
                  EXPECT_EQ(request.Word("text"), "t");
                  EXPECT_EQ(request.TextMember("text"), u"t");
                  EXPECT_TRUE(request.Flag("flag"));
                  EXPECT_EQ(request.Number("number"), 7);
                  EXPECT_EQ(request.Number("over"), 32768);
                  EXPECT_EQ(request.SmallNumber("small"), -32768);
                  EXPECT_TRUE(request.Member("none").is_null());
                  EXPECT_EQ(request.All().size(), 11U);
              }),
              "");
}

TEST(Request, RefusesAMissingMemberByItsName)
{
    EXPECT_THAT(RefusalOf([](const Request& request) { static_cast<void>(request.Member("other")); }),
                HasSubstr("\"other\""));
    EXPECT_THAT(RefusalOf([](const Request& request) { static_cast<void>(request.TextMember("other")); }),
                HasSubstr("\"other\""));
}

TEST(Request, RefusesAMemberOfAnotherType)
{
    using Read = std::function<void(const Request&, const char*)>;
    const Read word = [](const Request& request, const char* name) { static_cast<void>(request.Word(name)); };
    const Read text = [](const Request& request, const char* name) { static_cast<void>(request.TextMember(name)); };
    const Read flag = [](const Request& request, const char* name) { static_cast<void>(request.Flag(name)); };
    const Read number = [](const Request& request, const char* name) { static_cast<void>(request.Number(name)); };
    const Read small = [](const Request& request, const char* name) { static_cast<void>(request.SmallNumber(name)); };
    const std::vector<std::pair<Read, std::vector<const char*>>> cases = {
        {word, {"flag", "number", "none", "list"}},
        {text, {"flag", "number", "none", "list"}},
        {flag, {"text", "number", "none"}},
        {number, {"text", "flag", "half", "big", "huge", "low", "none", "list"}},
        {small, {"text", "half", "big", "huge", "low", "over", "none"}},
    };
    for (const auto& [read, names] : cases) {
        for (const char* name : names)
            EXPECT_THAT(RefusalOf([&, &read = read](const Request& request) { read(request, name); }), HasSubstr(name));
    }
}

} // namespace
} // namespace rulemesh
