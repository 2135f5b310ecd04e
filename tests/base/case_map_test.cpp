#include "base/case_map.h"

#include <locale>
#include <string>

#include <gtest/gtest.h>

#include "base/utf8.h"

namespace rulemesh {
namespace {

struct Case {
    TextView given;
    TextView expected;
};

// A host's locale that upper-cases as no sensible one does.
class OddLocale {
public:
    OddLocale() : previous_(std::locale::global(std::locale(std::locale::classic(), new Odd))) {}
    OddLocale(const OddLocale&) = delete;
    OddLocale& operator=(const OddLocale&) = delete;
    ~OddLocale() { std::locale::global(previous_); }

private:
    struct Odd : std::ctype<wchar_t> {
        wchar_t do_toupper(wchar_t /*character*/) const override { return L'?'; }
        wchar_t do_tolower(wchar_t /*character*/) const override { return L'?'; }
    };

    std::locale previous_;
};

TEST(ToUpper, MapsTheLettersOfAscii)
{
    EXPECT_EQ(ToUpper(u"abcdefghijklmnopqrstuvwxyz"), u"ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    EXPECT_EQ(ToUpper(u"ABC 019 @[`{~\x7F"), u"ABC 019 @[`{~\x7F");
    EXPECT_EQ(ToUpper(u"tgtab001.price(1)"), u"TGTAB001.PRICE(1)");
    EXPECT_EQ(ToUpper(u""), u"");
}

TEST(ToLower, MapsTheLettersOfAscii)
{
    EXPECT_EQ(ToLower(u"ABCDEFGHIJKLMNOPQRSTUVWXYZ"), u"abcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(ToLower(u"abc 019 @[`{~\x7F"), u"abc 019 @[`{~\x7F");
    EXPECT_EQ(ToLower(u"FIELD__3"), u"field__3");
}

TEST(ToUpper, FollowsUnicode)
{
    const Case cases[] = {
        {u"\u00E4\u00F6\u00FC", u"\u00C4\u00D6\u00DC"}, // a, o, u with diaeresis
        {u"\u00F7", u"\u00F7"},                         // the division sign among the letters
        {u"\u00FF", u"\u0178"},                         // y with diaeresis leaves Latin-1
        {u"\u00B5", u"\u039C"},                         // the micro sign becomes a Greek letter
        {u"\u0101\u0102", u"\u0100\u0102"},             // cases that alternate
        {u"\u0131", u"I"},                              // dotless i
        {u"\u017F", u"S"},                              // long s
        {u"\u01C6\u01C5", u"\u01C4\u01C4"},             // dz with caron, small and title case
        {u"\u03C2\u03C3", u"\u03A3\u03A3"},             // both small sigmas
        {u"\u0444", u"\u0424"},                         // Cyrillic
        {u"\u0561", u"\u0531"},                         // Armenian
        {u"\u10D0", u"\u1C90"},                         // Georgian
        {u"\uAB70", u"\u13A0"},                         // Cherokee
        {u"\u24D0", u"\u24B6"},                         // a circled letter
        {u"\uFF41", u"\uFF21"},                         // a letter of full width
        {u"\u2170", u"\u2160"},                         // a Roman numeral
    };
    for (const auto& [given, expected] : cases)
        EXPECT_EQ(ToUpper(given), expected) << ToUtf8(given);
}

TEST(ToLower, FollowsUnicode)
{
    const Case cases[] = {
        {u"\u00C4\u00D6\u00DC", u"\u00E4\u00F6\u00FC"},
        {u"\u00D7", u"\u00D7"}, // the multiplication sign among the letters
        {u"\u0178", u"\u00FF"},
        {u"\u0130", u"i"}, // dotted I
        {u"\u01C4\u01C5", u"\u01C6\u01C6"},
        {u"\u03A3", u"\u03C3"},
        {u"\u1E9E", u"\u00DF"}, // capital sharp s
        {u"\u212A", u"k"},      // the Kelvin sign
        {u"\u2126", u"\u03C9"}, // the Ohm sign
        {u"\u13A0", u"\uAB70"},
        {u"\u1C90", u"\u10D0"},
    };
    for (const auto& [given, expected] : cases)
        EXPECT_EQ(ToLower(given), expected) << ToUtf8(given);
}

TEST(ToUpper, LeavesWhatHasNoSingleUpperCase)
{
    for (const TextView given : {u"\u00DF", u"\u0149", u"\uFB01", u"\u0390", u"\u5B57", u"\u0627", u"\u00AA"})
        EXPECT_EQ(ToUpper(given), given) << ToUtf8(given);
}

TEST(ToUpper, MapsASurrogatePairAsOneCodePoint)
{
    EXPECT_EQ(ToUpper(u"a\U00010428b"), u"A\U00010400B");
    EXPECT_EQ(ToUpper(u"\U0001E943"), u"\U0001E921");
    EXPECT_EQ(ToUpper(u"\U0001F600"), u"\U0001F600");
}

TEST(ToLower, MapsASurrogatePairAsOneCodePoint)
{
    EXPECT_EQ(ToLower(u"A\U00010400B"), u"a\U00010428b");
    EXPECT_EQ(ToLower(u"\U0001E921"), u"\U0001E943");
}

TEST(CaseMap, LeavesLoneSurrogates)
{
    const Text given{0xD801, u'a', 0xDC28, 0xDC28, 0xD801};
    EXPECT_EQ(ToUpper(given), (Text{0xD801, u'A', 0xDC28, 0xDC28, 0xD801}));
    EXPECT_EQ(ToLower(given), given);
}

TEST(CaseMap, NeverChangesTheLength)
{
    for (char32_t point = 0; point <= 0x10FFFF; ++point) {
        const Text given = point < 0x10000 ? Text{static_cast<char16_t>(point)}
                                           : Text{static_cast<char16_t>(0xD7C0 + (point >> 10)),
                                                  static_cast<char16_t>(0xDC00 + (point & 0x3FF))};
        ASSERT_EQ(ToUpper(given).size(), given.size()) << std::hex << static_cast<std::uint32_t>(point);
        ASSERT_EQ(ToLower(given).size(), given.size()) << std::hex << static_cast<std::uint32_t>(point);
    }
}

TEST(CaseMap, IsStableWhenRepeated)
{
    Text all;
    for (char32_t point = 0x80; point < 0xD800; ++point)
        all.push_back(static_cast<char16_t>(point));
    EXPECT_EQ(ToUpper(ToUpper(all)), ToUpper(all));
    EXPECT_EQ(ToLower(ToLower(all)), ToLower(all));
}

TEST(CaseMap, DoesNotDependOnTheHostsLocale)
{
    const OddLocale odd;
    EXPECT_EQ(ToUpper(u"title \u00E4"), u"TITLE \u00C4");
    EXPECT_EQ(ToLower(u"TITLE \u00C4"), u"title \u00E4");
}

} // namespace
} // namespace rulemesh
