#include "drive/json_text.h"

#include <charconv>
#include <cstdint>
#include <optional>

#include "base/utf8.h"

namespace rulemesh {

namespace {

constexpr std::uint32_t FirstSurrogate = 0xD800;
constexpr std::uint32_t FirstLowSurrogate = 0xDC00;
constexpr std::uint32_t LastSurrogate = 0xDFFF;
constexpr std::size_t EscapeLength = 6; // \uXXXX

// A lone surrogate U+D800..U+DFFF stands as U+10F800..U+10FFFF, in UTF-16 the high surrogate U+DBFE or U+DBFF with a
// low one.
constexpr std::uint32_t StandIn = 0x10F800;

std::optional<std::uint32_t> EscapedUnit(std::string_view line, std::size_t at)
{
    if (at + EscapeLength > line.size() || line[at] != '\\' || line[at + 1] != 'u')
        return {};
    std::uint32_t unit = 0;
    const char* first = line.data() + at + 2;
    const auto [end, error] = std::from_chars(first, first + 4, unit, 16);
    return error == std::errc() && end == first + 4 ? std::optional(unit) : std::nullopt;
}

bool IsHigh(std::optional<std::uint32_t> unit) { return unit && *unit >= FirstSurrogate && *unit < FirstLowSurrogate; }
bool IsLow(std::optional<std::uint32_t> unit) { return unit && *unit >= FirstLowSurrogate && *unit <= LastSurrogate; }

std::string EscapeOf(std::uint32_t unit)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string escape = "\\u";
    for (int shift = 12; shift >= 0; shift -= 4)
        escape += digits[(unit >> shift) & 0xF];
    return escape;
}

// The line with each escaped lone surrogate replaced by the escaped pair of its stand-in.
std::string WithStandIns(const std::string& line)
{
    std::string result;
    for (std::size_t at = 0; at < line.size();) {
        const std::optional<std::uint32_t> unit = EscapedUnit(line, at);
        if (IsHigh(unit) && IsLow(EscapedUnit(line, at + EscapeLength))) {
            result.append(line, at, 2 * EscapeLength);
            at += 2 * EscapeLength;
        } else if (IsHigh(unit) || IsLow(unit)) {
            const std::uint32_t offset = StandIn + (*unit - FirstSurrogate) - 0x10000;
            result += EscapeOf(FirstSurrogate + (offset >> 10)) + EscapeOf(FirstLowSurrogate + (offset & 0x3FF));
            at += EscapeLength;
        } else {
            const std::size_t length = line[at] == '\\' ? 2 : 1; // an escaped backslash begins no escape
            result.append(line, at, length);
            at += length;
        }
    }
    return result;
}

} // namespace

Json ParseLine(const std::string& line)
{
    return Json::parse(line.find("\\u") == std::string::npos ? line : WithStandIns(line), nullptr, false);
}

Text TextOf(const Json& string)
{
    const Text text = FromUtf8(string.get_ref<const std::string&>());
    Text result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool standsIn = (text[at] == 0xDBFE || text[at] == 0xDBFF) && at + 1 < text.size();
        if (!standsIn) {
            result.push_back(text[at]);
            continue;
        }
        const std::uint32_t point = 0x10000 + ((text[at] - FirstSurrogate) << 10) + (text[at + 1] - FirstLowSurrogate);
        result.push_back(static_cast<char16_t>(point - StandIn + FirstSurrogate));
        ++at;
    }
    return result;
}

Json JsonOf(TextView text) { return ToUtf8(text); }

} // namespace rulemesh
