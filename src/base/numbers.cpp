#include "base/numbers.h"

#include <algorithm>
#include <charconv>
#include <locale>
#include <sstream>
#include <string>
#include <string_view>

#include "base/failure.h"

namespace rulemesh {

namespace {

constexpr bool IsDigit(char16_t character) noexcept { return character >= u'0' && character <= u'9'; }

std::size_t SkipDigits(TextView text, std::size_t at) noexcept
{
    while (at < text.size() && IsDigit(text[at]))
        ++at;
    return at;
}

std::size_t SkipSign(TextView text, std::size_t at) noexcept
{
    return at < text.size() && (text[at] == u'+' || text[at] == u'-') ? at + 1 : at;
}

// Length of the longest beginning that is a number, 0 when there is none.
std::size_t NumericLength(TextView text) noexcept
{
    const std::size_t whole = SkipSign(text, 0);
    std::size_t end = SkipDigits(text, whole);
    std::size_t digits = end - whole;
    if (end < text.size() && text[end] == u'.') {
        const std::size_t fraction = SkipDigits(text, end + 1);
        digits += fraction - end - 1;
        end = fraction;
    }
    if (digits == 0)
        return 0;
    if (end < text.size() && (text[end] == u'e' || text[end] == u'E')) {
        const std::size_t exponent = SkipSign(text, end + 1);
        const std::size_t exponentEnd = SkipDigits(text, exponent);
        if (exponentEnd > exponent)
            end = exponentEnd;
    }
    return end;
}

// Neither way asks the host's locale, so "." stays the decimal point.
double ValueOf(TextView number)
{
    const std::string text(number.begin() + (number.front() == u'+' ? 1 : 0), number.end());
    double value = 0.0;
    if (std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc())
        return value;
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    stream >> value; // past the range of a double this is its largest value
    return value;
}

// A numeric text taken apart: 0.DIGITS times ten to the power of `scale`, with no zero in front of the digits.
struct Decimal {
    bool negative = false;
    std::string digits;
    std::int64_t scale = 0;
};

// The exponent's value, held at a bound that no text is long enough to make up for with digits.
std::int64_t ExponentOf(TextView exponent)
{
    constexpr std::int64_t Bound = 1'000'000'000'000'000;
    std::int64_t value = 0;
    for (const char16_t digit : exponent.substr(SkipSign(exponent, 0)))
        value = std::min(Bound, value * 10 + (digit - u'0'));
    return exponent.front() == u'-' ? -value : value;
}

Decimal DecimalOf(TextView number)
{
    Decimal decimal;
    decimal.negative = number.front() == u'-';
    bool behindPoint = false;
    for (std::size_t at = SkipSign(number, 0); at < number.size(); ++at) {
        if (number[at] == u'.') {
            behindPoint = true;
        } else if (!IsDigit(number[at])) {
            decimal.scale += ExponentOf(number.substr(at + 1));
            break;
        } else if (number[at] == u'0' && decimal.digits.empty()) {
            decimal.scale -= behindPoint ? 1 : 0;
        } else {
            decimal.digits.push_back(static_cast<char>(number[at]));
            decimal.scale += behindPoint ? 0 : 1;
        }
    }
    return decimal;
}

[[noreturn]] void RaiseOverflow(TextView number)
{
    throw Failure(FailureCode::Overflow, Quoted(number) + u" is outside of the whole numbers from -32768 to 32767");
}

void RequireNumeric(TextView text)
{
    if (!IsNumeric(text))
        throw Failure(FailureCode::TypeMismatch, Quoted(text) + u" is no number");
}

// Worked out on the digits: a double would already have rounded 1.49999999999999999999 to a half.
std::int16_t NearestInt16(TextView number)
{
    const Decimal decimal = DecimalOf(number);
    if (decimal.digits.empty() || decimal.scale < 0)
        return 0;
    if (decimal.scale > 5)
        RaiseOverflow(number);

    const auto wholeDigits = static_cast<std::size_t>(decimal.scale);
    std::int64_t nearest = 0;
    for (std::size_t at = 0; at < wholeDigits; ++at)
        nearest = nearest * 10 + (at < decimal.digits.size() ? decimal.digits[at] - '0' : 0);
    if (decimal.digits.size() > wholeDigits) {
        const std::string_view fraction = std::string_view(decimal.digits).substr(wholeDigits);
        const bool isHalf = fraction.front() == '5' && fraction.find_first_not_of('0', 1) == fraction.npos;
        if (isHalf ? nearest % 2 != 0 : fraction.front() >= '5')
            ++nearest;
    }
    return ToInt16(decimal.negative ? -nearest : nearest);
}

} // namespace

bool IsNumeric(TextView text) noexcept { return !text.empty() && NumericLength(text) == text.size(); }

double ToDouble(TextView text)
{
    RequireNumeric(text);
    return ValueOf(text);
}

std::int16_t ToInt16(TextView text)
{
    RequireNumeric(text);
    return NearestInt16(text);
}

std::int16_t ToInt16(std::int64_t number)
{
    if (number < -32768 || number > 32767)
        RaiseOverflow(PlainNumber(number));
    return static_cast<std::int16_t>(number);
}

std::int16_t LeadingNumber(TextView text)
{
    const std::size_t length = NumericLength(text);
    return length == 0 ? std::int16_t{0} : NearestInt16(text.substr(0, length));
}

Text PlainNumber(std::int64_t number)
{
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

Text PrintedNumber(std::int64_t number) { return number < 0 ? PlainNumber(number) : u" " + PlainNumber(number); }

Text TwoDigitNumber(std::int64_t number)
{
    Text digits = PlainNumber(number);
    const std::size_t sign = number < 0 ? 1 : 0;
    if (digits.size() - sign < 2)
        digits.insert(sign, 1, u'0');
    return digits;
}

} // namespace rulemesh
