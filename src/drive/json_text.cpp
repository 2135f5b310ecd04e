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

// A lone surrogate stands as the mark U+10FFFF and a character of the private-use area; a mark of the line's own is
// doubled.
constexpr std::string_view MarkBytes = "\xF4\x8F\xBF\xBF";
constexpr TextView Mark = u"\U0010FFFF";
constexpr std::uint32_t FirstStandIn = 0xE000;
constexpr std::uint32_t LastStandIn = FirstStandIn + LastSurrogate - FirstSurrogate;

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

// The line with each escaped lone surrogate replaced by its stand-in.
std::string WithStandIns(std::string_view line)
{
    std::string result;
    for (std::size_t at = 0; at < line.size();) {
        const std::optional<std::uint32_t> unit = EscapedUnit(line, at);
        const std::optional<std::uint32_t> next = EscapedUnit(line, at + EscapeLength);
        std::size_t length = 1;
        if (line.substr(at, MarkBytes.size()) == MarkBytes) {
            length = MarkBytes.size();
            result += MarkBytes;
        } else if (IsHigh(unit) && IsLow(next)) {
            length = 2 * EscapeLength;
            if (*unit == Mark[0] && *next == Mark[1])
                result += MarkBytes;
        } else if (IsHigh(unit) || IsLow(unit)) {
            result.append(MarkBytes).append(EscapeOf(FirstStandIn + *unit - FirstSurrogate));
            at += EscapeLength;
            continue;
        } else if (line[at] == '\\') {
            length = 2; // an escaped backslash begins no escape
        }
        result += line.substr(at, length);
        at += length;
    }
    return result;
}

} // namespace

Json ParseLine(const std::string& line)
{
    const bool plain = line.find("\\u") == std::string::npos && line.find(MarkBytes) == std::string::npos;
    return Json::parse(plain ? line : WithStandIns(line), nullptr, false);
}

Text TextOf(const Json& string)
{
    const Text text = FromUtf8(string.get_ref<const std::string&>());
    Text result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const TextView rest = TextView(text).substr(at);
        const char16_t behind = rest.size() > Mark.size() ? rest[Mark.size()] : u' ';
        if (!rest.starts_with(Mark)) {
            result.push_back(text[at]);
        } else if (behind >= FirstStandIn && behind <= LastStandIn) {
            result.push_back(static_cast<char16_t>(behind - FirstStandIn + FirstSurrogate));
            at += Mark.size();
        } else {
            result += Mark;
            at += rest.substr(Mark.size()).starts_with(Mark) ? 2 * Mark.size() - 1 : Mark.size() - 1;
        }
    }
    return result;
}

Json JsonOf(TextView text) { return ToUtf8(text); }

} // namespace rulemesh
