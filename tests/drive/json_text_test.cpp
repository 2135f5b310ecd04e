#include "drive/json_text.h"

#include <vector>

#include <gtest/gtest.h>

namespace rulemesh {
namespace {

Text Units(std::initializer_list<char16_t> units) { return Text(units); }

TEST(ParseLine, GivesEveryTextItsCodeUnits)
{
    struct Case {
        std::string line;
        Text text;
    };
    const std::vector<Case> cases = {
        {R"("")", u""},
        {R"("a\u00e9\r\n")", u"a\u00E9\r\n"},
        {"\"\xC3\xA9\xE4\xB8\xAD\"", u"\u00E9\u4E2D"},
        {R"("\ud83d\ude00")", u"\U0001F600"},
        {"\"\xF0\x9F\x98\x80\"", u"\U0001F600"},
        {R"("a\ud800b")", u"a" + Units({0xD800}) + u"b"},
        {R"("\uDFFF")", Units({0xDFFF})},
        {R"("\udbff")", Units({0xDBFF})},
        {R"("\udc00\ud800")", Units({0xDC00, 0xD800})},
        {R"("\ud800\ud800\udc00")", Units({0xD800, 0xD800, 0xDC00})},
        {R"("\ud800\udc00\udc00")", Units({0xD800, 0xDC00, 0xDC00})},
        {R"("\ud800x\udc00")", Units({0xD800, u'x', 0xDC00})},
        {R"("\\ud800")", u"\\ud800"},
        {R"("\\\ud800")", u"\\" + Units({0xD800})},
        {R"("\ud800\\udc00")", Units({0xD800}) + u"\\udc00"},
        {R"("\u0000")", Units({0})},
    };
    for (const auto& [line, text] : cases) {
        const Json json = ParseLine(line);
        ASSERT_TRUE(json.is_string()) << line;
        EXPECT_EQ(TextOf(json), text) << line;
    }
}

TEST(ParseLine, KeepsTheLastPrivatePlane)
{
    for (const Text& text : {Text(u"\U0010F800"), Text(u"\U0010FFFD"), Text(u"x\U0010FFFFy")}) {
        EXPECT_EQ(TextOf(JsonOf(text)), text);
        EXPECT_EQ(TextOf(ParseLine(JsonOf(text).dump())), text);
    }
    EXPECT_EQ(TextOf(ParseLine(R"("\udbff\udfff\ud800")")), u"\U0010FFFF" + Units({0xD800}));
}

TEST(ParseLine, DiscardsWhatIsNoJson)
{
    for (const std::string line : {"", "{", "{\"do\":}", "nonsense", R"({"a":"\u12"})", R"({"a":"\ud80"})",
                                   R"({"a":"\ud800)", "{} {}", "\"\xFF\""})
        EXPECT_TRUE(ParseLine(line).is_discarded()) << line;
}

TEST(ParseLine, KeepsTheOrderOfMembers) { EXPECT_EQ(ParseLine(R"({"b":1,"a":"\ud800"})").begin().key(), "b"); }

TEST(JsonOf, SendsALoneSurrogateAsTheReplacement)
{
    EXPECT_EQ(JsonOf(u"a" + Units({0xD800})).get<std::string>(), "a\xEF\xBF\xBD");
    EXPECT_EQ(JsonOf(Units({0xDC00, 0xD800})).get<std::string>(), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(JsonOf(u"\U0001F600\r\n").get<std::string>(), "\xF0\x9F\x98\x80\r\n");
}

} // namespace
} // namespace rulemesh
