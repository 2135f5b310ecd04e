#include "base/utf8.h"

#include <gtest/gtest.h>

namespace rulemesh {
namespace {

struct Pair {
    TextView text;
    std::string_view bytes;
};

// The first and the last character of each length.
constexpr Pair Valid[] = {
    {u"", ""},
    {u"plain", "plain"},
    {u"\u007F", "\x7F"},
    {u"\u0080", "\xC2\x80"},
    {u"\u07FF", "\xDF\xBF"},
    {u"\u0800", "\xE0\xA0\x80"},
    {u"\uD7FF", "\xED\x9F\xBF"},
    {u"\uE000", "\xEE\x80\x80"},
    {u"\uFFFF", "\xEF\xBF\xBF"},
    {u"\U00010000", "\xF0\x90\x80\x80"},
    {u"\U0010FFFF", "\xF4\x8F\xBF\xBF"},
    {u"a\u20ACb\U0001F600c", "a\xE2\x82\xAC"
                             "b\xF0\x9F\x98\x80"
                             "c"},
    {TextView(u"\0x", 2), std::string_view("\0x", 2)},
    {u"\uFEFFx", "\xEF\xBB\xBFx"},
};

TEST(ToUtf8, WritesEveryLength)
{
    for (const auto& [text, bytes] : Valid)
        EXPECT_EQ(ToUtf8(text), bytes);
}

TEST(ToUtf8, WritesALoneSurrogateAsReplacement)
{
    struct Case {
        Text given;
        std::string_view expected;
    };
    const Case cases[] = {
        {{0xD800}, "\xEF\xBF\xBD"},
        {{0xDFFF}, "\xEF\xBF\xBD"},
        {{0xDBFF, u'x'}, "\xEF\xBF\xBDx"},
        {{0xDC00, 0xD800}, "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {{0xD83D, 0xD83D, 0xDE00}, "\xEF\xBF\xBD\xF0\x9F\x98\x80"},
        {{u'x', 0xD83D}, "x\xEF\xBF\xBD"},
    };
    for (const auto& [given, expected] : cases)
        EXPECT_EQ(ToUtf8(given), expected);
}

TEST(FromUtf8, ReadsEveryLength)
{
    for (const auto& [text, bytes] : Valid)
        EXPECT_EQ(FromUtf8(bytes), text);
}

TEST(FromUtf8, ReadsEachByteOfNoValidSequenceAsReplacement)
{
    struct Case {
        std::string_view given;
        TextView expected;
    };
    const Case cases[] = {
        {"\x80", u"\uFFFD"},
        {"x\xBFy", u"x\uFFFDy"},
        {"\xC2", u"\uFFFD"},
        {"\xC2x", u"\uFFFDx"},
        {"\xE2\x82", u"\uFFFD\uFFFD"},
        {"\xE2\x82x", u"\uFFFD\uFFFDx"},
        {"\xE2\xC2\x80", u"\uFFFD\u0080"},
        {"\xF0\x9F\x98", u"\uFFFD\uFFFD\uFFFD"},
        {"\xC0\x80", u"\uFFFD\uFFFD"},
        {"\xC1\xBF", u"\uFFFD\uFFFD"},
        {"\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD"},
        {"\xF0\x8F\xBF\xBF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"\xED\xBF\xBF", u"\uFFFD\uFFFD\uFFFD"},
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xF5\x80", u"\uFFFD\uFFFD"},
        {"\xFF\xFE", u"\uFFFD\uFFFD"},
    };
    for (const auto& [given, expected] : cases)
        EXPECT_EQ(FromUtf8(given), expected);
}

TEST(FromUtf8, RestoresEveryCodePoint)
{
    Text all;
    for (char32_t point = 0; point <= 0x10FFFF; ++point) {
        if (point >= 0x10000) {
            all.push_back(static_cast<char16_t>(0xD7C0 + (point >> 10)));
            all.push_back(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
        } else if (point < 0xD800 || point > 0xDFFF) {
            all.push_back(static_cast<char16_t>(point));
        }
    }
    EXPECT_TRUE(FromUtf8(ToUtf8(all)) == all);
}

} // namespace
} // namespace rulemesh
