#include "base/utf8.h"

namespace rulemesh {

namespace {

constexpr char16_t Replacement = 0xFFFD;

constexpr bool IsHighSurrogate(char16_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool IsLowSurrogate(char16_t unit) noexcept { return unit >= 0xDC00 && unit <= 0xDFFF; }

void AppendUtf8(std::string& bytes, char32_t point)
{
    const auto tail = [&](int shift) { bytes.push_back(static_cast<char>(0x80 | ((point >> shift) & 0x3F))); };
    if (point < 0x80) {
        bytes.push_back(static_cast<char>(point));
    } else if (point < 0x800) {
        bytes.push_back(static_cast<char>(0xC0 | (point >> 6)));
        tail(0);
    } else if (point < 0x10000) {
        bytes.push_back(static_cast<char>(0xE0 | (point >> 12)));
        tail(6);
        tail(0);
    } else {
        bytes.push_back(static_cast<char>(0xF0 | (point >> 18)));
        tail(12);
        tail(6);
        tail(0);
    }
}

// The code point that starts at `bytes[at]` and its length, or length 0 when no valid sequence starts there.
struct Decoded {
    char32_t point = 0;
    std::size_t length = 0;
};

Decoded DecodeAt(std::string_view bytes, std::size_t at) noexcept
{
    const auto byte = [&](std::size_t offset) { return static_cast<unsigned char>(bytes[at + offset]); };
    const unsigned char lead = byte(0);
    const std::size_t length = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
    if (length == 0 || at + length > bytes.size())
        return {};
    char32_t point = lead & (0xFFU >> (length + 1));
    for (std::size_t offset = 1; offset < length; ++offset) {
        if ((byte(offset) & 0xC0) != 0x80)
            return {};
        point = (point << 6) | (byte(offset) & 0x3FU);
    }
    const bool overlong = (length == 3 && point < 0x800) || (length == 4 && point < 0x10000);
    const bool surrogate = point >= 0xD800 && point <= 0xDFFF;
    if (overlong || surrogate || point > 0x10FFFF)
        return {};
    return {point, length};
}

} // namespace

std::string ToUtf8(TextView text)
{
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 8);
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (IsHighSurrogate(unit) && at + 1 < text.size() && IsLowSurrogate(text[at + 1])) {
            ++at;
            AppendUtf8(bytes, 0x10000 + ((static_cast<char32_t>(unit) - 0xD800) << 10) +
                                  (static_cast<char32_t>(text[at]) - 0xDC00));
        } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
            AppendUtf8(bytes, Replacement);
        } else {
            AppendUtf8(bytes, unit);
        }
    }
    return bytes;
}

Text FromUtf8(std::string_view bytes)
{
    Text text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[at]);
        if (lead < 0x80) {
            text.push_back(lead);
            ++at;
            continue;
        }
        const Decoded decoded = DecodeAt(bytes, at);
        if (decoded.length == 0) {
            text.push_back(Replacement);
            ++at;
        } else if (decoded.point < 0x10000) {
            text.push_back(static_cast<char16_t>(decoded.point));
            at += decoded.length;
        } else {
            text.push_back(static_cast<char16_t>(0xD800 + ((decoded.point - 0x10000) >> 10)));
            text.push_back(static_cast<char16_t>(0xDC00 + ((decoded.point - 0x10000) & 0x3FF)));
            at += decoded.length;
        }
    }
    return text;
}

} // namespace rulemesh
