#include "base/numbers.h"

#include <cfenv>
#include <clocale>
#include <limits>
#include <locale>
#include <string>

#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "base/utf8.h"

namespace rulemesh {
namespace {

// What a host in a country with a decimal comma sets for its whole program.
class CommaLocale {
public:
    CommaLocale() : previous_(std::locale::global(std::locale(std::locale::classic(), new Comma)))
    {
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8"}) {
            if (std::setlocale(LC_NUMERIC, name) != nullptr)
                break;
        }
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
    ~CommaLocale()
    {
        std::setlocale(LC_NUMERIC, "C");
        std::locale::global(previous_);
    }

private:
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    std::locale previous_;
};

TEST(IsNumeric, AcceptsSignDigitsPointAndExponent)
{
    for (const TextView given : {u"0",
                                 u"7",
                                 u"007",
                                 u"+7",
                                 u"-7",
                                 u"123456789012345678901234567890",
                                 u"1.5",
                                 u".5",
                                 u"5.",
                                 u"-.5",
                                 u"+5.",
                                 u"1e2",
                                 u"1E2",
                                 u"1e+2",
                                 u"1E-2",
                                 u".5e1",
                                 u"5.e1",
                                 u"-1.25e-03",
                                 u"1e999999999999999999999",
                                 u"0e0"})
        EXPECT_TRUE(IsNumeric(given)) << ToUtf8(given);
}

TEST(IsNumeric, RefusesEverythingElse)
{
    for (const TextView given :
         {u"",      u" ",   u"-",     u"+",     u".",      u"-.",     u"e",        u"e5",     u".e5",
          u" 5",    u"5 ",  u"5\r\n", u"\t5",   u"5 5",    u"- 5",    u"--5",      u"+-5",    u"5-",
          u"1,000", u"1,5", u"1.2.3", u"0x10",  u"&H10",   u"1e",     u"1e+",      u"1e-",    u"1e2.5",
          u"1e 2",  u"1d2", u"five",  u"nan",   u"inf",    u"-inf",   u"infinity", u"5f",     u"1_000",
          u"$5",    u"(5)", u"5%",    u"1'000", u"\u0665", u"\uFF15", u"\u22125",  u"\u00BD", u"1e2e3"})
        EXPECT_FALSE(IsNumeric(given)) << ToUtf8(given);
}

TEST(IsNumeric, RefusesATextCutByNul)
{
    EXPECT_FALSE(IsNumeric(TextView(u"5\0", 2)));
    EXPECT_FALSE(IsNumeric(TextView(u"5\0"
                                    u"5",
                                    3)));
}

TEST(ToInt16, GoesToTheNearestWholeNumberAndHalvesToTheEvenOne)
{
    struct Case {
        TextView given;
        int expected;
    };
    const Case cases[] = {
        {u"0", 0},
        {u"-0", 0},
        {u"+12", 12},
        {u"00000000000000000000012", 12},
        {u"999", 999},
        {u".5", 0},
        {u"0.5", 0},
        {u"1.5", 2},
        {u"2.5", 2},
        {u"3.5", 4},
        {u"-.5", 0},
        {u"-1.5", -2},
        {u"-2.5", -2},
        {u"2.4", 2},
        {u"2.6", 3},
        {u"2.51", 3},
        {u"2.500", 2},
        {u"5.", 5},
        {u".6", 1},
        {u"0.05", 0},
        {u"0.09e1", 1},
        {u"0.49999999999999999999", 0},
        {u"1.49999999999999999999", 1},
        {u"2.50000000000000000001", 3},
        {u"1e2", 100},
        {u"1E+2", 100},
        {u"2.5e0", 2},
        {u".25e1", 2},
        {u"25e-1", 2},
        {u"35e-1", 4},
        {u"5e-1", 0},
        {u"51e-2", 1},
        {u"0.00001e6", 10},
        {u"1000000e-4", 100},
        {u"1e-999999999999999999999", 0},
        {u"0e999999999999999999999", 0},
        {u"32767", 32767},
        {u"32767.4999", 32767},
        {u"32767.49999999999999999999", 32767},
        {u"-32768", -32768},
        {u"-32768.5", -32768},
        {u"3.2767e4", 32767},
    };
    for (const auto& [given, expected] : cases)
        EXPECT_EQ(ToInt16(given), expected) << ToUtf8(given);
}

TEST(ToInt16, RaisesOverflowPastSixteenBits)
{
    for (const TextView given :
         {u"32768", u"32767.5", u"32767.6", u"-32769", u"-32768.51", u"-32768.50000000000000000001", u"99999", u"1e5",
          u"-1e5", u"65536", u"4294967296", u"18446744073709551616", u"1e18", u"1e308", u"1e309", u"-1e999",
          u"1e999999999999999999999"})
        EXPECT_EQ(FailureOf([&] { (void)ToInt16(given); }), FailureCode::Overflow) << ToUtf8(given);
}

TEST(ToInt16, RaisesTypeMismatchForWhatIsNotNumeric)
{
    for (const TextView given : {u"", u" 5", u"5 ", u"0x10", u"1,000", u"1,5", u"e5", u"03--| orders", u"orders"})
        EXPECT_EQ(FailureOf([&] { (void)ToInt16(given); }), FailureCode::TypeMismatch) << ToUtf8(given);
}

TEST(ToInt16, IsNotLedAstrayByTheHostsRoundingMode)
{
    std::fesetround(FE_UPWARD);
    const int rounded = ToInt16(u"2.1");
    std::fesetround(FE_TONEAREST);
    EXPECT_EQ(rounded, 2);
}

TEST(ToInt16, NarrowsWholeNumbersInRange)
{
    EXPECT_EQ(ToInt16(std::int64_t{-32768}), -32768);
    EXPECT_EQ(ToInt16(std::int64_t{0}), 0);
    EXPECT_EQ(ToInt16(std::int64_t{32767}), 32767);
    for (const std::int64_t given :
         {std::int64_t{32768}, std::int64_t{-32769}, std::int64_t{65536}, std::numeric_limits<std::int64_t>::max()})
        EXPECT_EQ(FailureOf([&] { (void)ToInt16(given); }), FailureCode::Overflow) << given;
}

TEST(ToDouble, GivesTheValue)
{
    struct Case {
        TextView given;
        double expected;
    };
    const Case cases[] = {
        {u"0", 0.0},       {u"-2.5", -2.5}, {u".5", 0.5},    {u"5.", 5.0},
        {u"+7", 7.0},      {u"1e2", 100},   {u"1E-2", 0.01}, {u"123456.789", 123456.789},
        {u"1e300", 1e300},
    };
    for (const auto& [given, expected] : cases)
        EXPECT_EQ(ToDouble(given), expected) << ToUtf8(given);
}

TEST(ToDouble, HoldsAHugeValueAtItsEnd)
{
    EXPECT_GE(ToDouble(u"1e999"), std::numeric_limits<double>::max());
    EXPECT_LE(ToDouble(u"-1e999"), std::numeric_limits<double>::lowest());
    EXPECT_EQ(ToDouble(u"1e-999"), 0.0);
}

TEST(ToDouble, RaisesTypeMismatchForWhatIsNotNumeric)
{
    for (const TextView given : {u"", u" 5", u"1,5", u"0x10", u"inf", u"nan"})
        EXPECT_EQ(FailureOf([&] { (void)ToDouble(given); }), FailureCode::TypeMismatch) << ToUtf8(given);
}

TEST(LeadingNumber, TakesTheLongestNumericBeginning)
{
    struct Case {
        TextView given;
        int expected;
    };
    const Case cases[] = {
        {u"", 0},    {u"orders", 0},     {u"03--| orders", 3}, {u"120--| x", 120}, {u"-02--|", -2},
        {u"+4x", 4}, {u" 5", 0},         {u"5 6", 5},          {u"-", 0},          {u".", 0},
        {u".x", 0},  {u"1.5.5", 2},      {u"2.x", 2},          {u"1e2x", 100},     {u"3e", 3},
        {u"3e+", 3}, {u"3e-x", 3},       {u"0x10", 0},         {u"1,000", 1},      {u"7-8", 7},
        {u"--3", 0}, {u"2.5 apples", 2},
    };
    for (const auto& [given, expected] : cases)
        EXPECT_EQ(LeadingNumber(given), expected) << ToUtf8(given);
}

TEST(LeadingNumber, RaisesOverflowPastSixteenBits)
{
    EXPECT_EQ(FailureOf([] { (void)LeadingNumber(u"40000--| orders"); }), FailureCode::Overflow);
}

TEST(PlainNumber, HasNoBlankInFront)
{
    EXPECT_EQ(PlainNumber(3), u"3");
    EXPECT_EQ(PlainNumber(0), u"0");
    EXPECT_EQ(PlainNumber(-2), u"-2");
    EXPECT_EQ(PlainNumber(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

TEST(PrintedNumber, HasABlankInFrontUnlessNegative)
{
    EXPECT_EQ(PrintedNumber(3), u" 3");
    EXPECT_EQ(PrintedNumber(0), u" 0");
    EXPECT_EQ(PrintedNumber(-2), u"-2");
}

TEST(TwoDigitNumber, FillsWithOneZero)
{
    struct Case {
        std::int64_t given;
        TextView expected;
    };
    const Case cases[] = {
        {0, u"00"},    {3, u"03"},      {10, u"10"},
        {99, u"99"},   {120, u"120"},   {-2, u"-02"},
        {-12, u"-12"}, {-120, u"-120"}, {std::numeric_limits<std::int64_t>::min(), u"-9223372036854775808"},
    };
    for (const auto& [given, expected] : cases)
        EXPECT_EQ(TwoDigitNumber(given), expected);
}

TEST(Numbers, DoNotDependOnTheHostsLocale)
{
    const CommaLocale comma;
    EXPECT_TRUE(IsNumeric(u"1.5"));
    EXPECT_FALSE(IsNumeric(u"1,5"));
    EXPECT_EQ(ToInt16(u"1.5"), 2);
    EXPECT_EQ(ToDouble(u"1.25"), 1.25);
    EXPECT_EQ(ToDouble(u"1234.5"), 1234.5);
    EXPECT_EQ(LeadingNumber(u"2.9x"), 3);
    EXPECT_EQ(PlainNumber(1234567), u"1234567");
    EXPECT_EQ(PrintedNumber(1234567), u" 1234567");
    EXPECT_EQ(TwoDigitNumber(1234567), u"1234567");
}

} // namespace
} // namespace rulemesh
