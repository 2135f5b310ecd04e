#include "base/code_page.h"

#include <gtest/gtest.h>

#include "base/failure_of.h"

namespace rulemesh {
namespace {

constexpr CodePage Windows = CodePage::Windows1252;
constexpr CodePage Utf8 = CodePage::Utf8;

struct Pair {
    TextView text;
    std::string_view bytes;
};

// All characters of windows-1252 that stand at another code than in Unicode.
constexpr Pair Specials[] = {
    {u"\u20AC", "\x80"}, {u"\u201A", "\x82"}, {u"\u0192", "\x83"}, {u"\u201E", "\x84"}, {u"\u2026", "\x85"},
    {u"\u2020", "\x86"}, {u"\u2021", "\x87"}, {u"\u02C6", "\x88"}, {u"\u2030", "\x89"}, {u"\u0160", "\x8A"},
    {u"\u2039", "\x8B"}, {u"\u0152", "\x8C"}, {u"\u017D", "\x8E"}, {u"\u2018", "\x91"}, {u"\u2019", "\x92"},
    {u"\u201C", "\x93"}, {u"\u201D", "\x94"}, {u"\u2022", "\x95"}, {u"\u2013", "\x96"}, {u"\u2014", "\x97"},
    {u"\u02DC", "\x98"}, {u"\u2122", "\x99"}, {u"\u0161", "\x9A"}, {u"\u203A", "\x9B"}, {u"\u0153", "\x9C"},
    {u"\u017E", "\x9E"}, {u"\u0178", "\x9F"},
};

std::string EveryByte()
{
    std::string bytes;
    for (int code = 0; code < 256; ++code)
        bytes.push_back(static_cast<char>(code));
    return bytes;
}

TEST(Decode, ReadsTheSpecialsOfWindows1252)
{
    for (const auto& [text, bytes] : Specials)
        EXPECT_EQ(Decode(Windows, bytes), text);
}

TEST(Decode, ReadsTheOtherBytesAsTheCharactersOfTheSameCode)
{
    EXPECT_EQ(Decode(Windows, std::string_view("\0\t\r\n ~\x7F", 7)), TextView(u"\0\t\r\n ~\x7F", 7));
    EXPECT_EQ(Decode(Windows, "\xA0\xE4\xFF"), u"\u00A0\u00E4\u00FF");
}

TEST(Decode, ReadsUndefinedBytesAsControlCharacters)
{
    EXPECT_EQ(Decode(Windows, "\x81\x8D\x8F\x90\x9D"), (Text{0x81, 0x8D, 0x8F, 0x90, 0x9D}));
}

TEST(Decode, ReadsUtf8WhereTheHostChoseIt)
{
    EXPECT_EQ(Decode(Utf8, "\xE2\x82\xAC\xF0\x9F\x98\x80"), u"\u20AC\U0001F600");
    EXPECT_EQ(Decode(Utf8, "x\xE4"), u"x\uFFFD");
}

TEST(Encode, WritesTheSpecialsOfWindows1252)
{
    for (const auto& [text, bytes] : Specials)
        EXPECT_EQ(Encode(Windows, text), bytes);
}

TEST(Encode, RestoresEveryByteThatWasRead) { EXPECT_EQ(Encode(Windows, Decode(Windows, EveryByte())), EveryByte()); }

TEST(Encode, WritesUtf8WhereTheHostChoseIt)
{
    EXPECT_EQ(Encode(Utf8, u"\u20AC\U0001F600"), "\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(Encode(Utf8, u""), "");
}

TEST(CanEncode, HoldsForExactlyTheCharactersOfThePage)
{
    struct Case {
        CodePage page;
        Text given;
        bool expected;
    };
    const Case cases[] = {
        {Windows, u"", true},
        {Windows, u"plain\r\n", true},
        {Windows, u"\u20AC \u00FC \u201E", true},
        {Windows, u"x\u0100", false},
        {Windows, u"\u0080", false}, // the byte 80 is the euro sign
        {Windows, u"\u0099", false},
        {Windows, u"\u0394", false},
        {Windows, u"\U0001F600", false},
        {Windows, {0xD83D}, false},
        {Utf8, u"", true},
        {Utf8, u"\u0100\u0394\U0001F600\uFFFF", true},
        {Utf8, {u'x', 0xD83D}, false},
        {Utf8, {0xDE00, 0xD83D}, false},
    };
    for (const Case& one : cases) {
        const bool encoded = !FailureOf([&] { (void)Encode(one.page, one.given); });
        EXPECT_EQ(CanEncode(one.page, one.given), one.expected) << testing::PrintToString(one.given);
        EXPECT_EQ(encoded, one.expected) << testing::PrintToString(one.given);
    }
}

TEST(Encode, RaisesInvalidProcedureCallForACharacterThatThePageLacks)
{
    EXPECT_EQ(FailureOf([] { (void)Encode(Windows, u"ok \u0394"); }), FailureCode::InvalidProcedureCall);
    EXPECT_EQ(FailureOf([] { (void)Encode(Utf8, Text{0xDC00}); }), FailureCode::InvalidProcedureCall);
}

TEST(EncodeWithReferences, WritesAMissingCharacterAsDecimalReference)
{
    struct Case {
        CodePage page;
        Text given;
        std::string_view expected;
    };
    const Case cases[] = {
        {Windows, u"", ""},
        {Windows, u"<a>\u20AC</a>", "<a>\x80</a>"},
        {Windows, u"<a>\u0394</a>", "<a>&#916;</a>"},
        {Windows, u"\u0100\u0101x\u0102", "&#256;&#257;x&#258;"},
        {Windows, u"\u0080", "&#128;"},
        {Windows, u"a\U0001F600b", "a&#128512;b"},
        {Windows, u"\U0010FFFF", "&#1114111;"},
        {Windows, {u'a', 0xD83D, u'b'}, "a&#65533;b"},
        {Windows, {0xDE00, 0xD83D}, "&#65533;&#65533;"},
        {Windows, u"&lt;", "&lt;"},
        {Utf8, u"\u0394\U0001F600", "\xCE\x94\xF0\x9F\x98\x80"},
        {Utf8, {0x394, 0xD83D, 0x394}, "\xCE\x94&#65533;\xCE\x94"},
    };
    for (const auto& [page, given, expected] : cases)
        EXPECT_EQ(EncodeWithReferences(page, given), expected);
}

} // namespace
} // namespace rulemesh
