#include "document/xml_transcode.h"

#include <algorithm>
#include <array>
#include <cstddef>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "document/xml_characters.h"

// Whole documents pass through here, so runs of ASCII go in blocks, and the result is put together in a buffer that
// stays in the cache: growing a string character by character, or filling it with zeros first, would cost more than
// the conversion.

namespace rulemesh::xml {

namespace {

constexpr std::size_t BufferSize = 16384;
constexpr char32_t Replacement = 0xFFFD;

constexpr bool IsHighSurrogate(char16_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool IsLowSurrogate(char16_t unit) noexcept { return unit >= 0xDC00 && unit <= 0xDFFF; }

// Copies the ASCII characters at the front of the text, as many as there are; returns their number.
std::size_t CopyAscii(const char16_t* from, std::size_t count, char* to) noexcept
{
    std::size_t done = 0;
#if defined(__SSE2__)
    for (; done + 16 <= count; done += 16) {
        const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + done));
        const __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + done + 8));
        const __m128i beyond = _mm_and_si128(_mm_or_si128(low, high), _mm_set1_epi16(static_cast<short>(0xFF80)));
        if (_mm_movemask_epi8(_mm_cmpeq_epi16(beyond, _mm_setzero_si128())) != 0xFFFF)
            break;
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to + done), _mm_packus_epi16(low, high));
    }
#endif
    for (; done < count && from[done] < 0x80; ++done)
        to[done] = static_cast<char>(from[done]);
    return done;
}

std::size_t CopyAscii(const char* from, std::size_t count, char16_t* to) noexcept
{
    std::size_t done = 0;
#if defined(__SSE2__)
    for (; done + 16 <= count; done += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + done));
        if (_mm_movemask_epi8(bytes) != 0)
            break;
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to + done), _mm_unpacklo_epi8(bytes, _mm_setzero_si128()));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to + done + 8), _mm_unpackhi_epi8(bytes, _mm_setzero_si128()));
    }
#endif
    for (; done < count && IsAscii(from[done]); ++done)
        to[done] = static_cast<unsigned char>(from[done]);
    return done;
}

// The character at the front of the text, and in `at` the place behind it; a lone surrogate comes as itself.
char32_t NextPoint(TextView text, std::size_t& at) noexcept
{
    const char16_t unit = text[at++];
    if (!IsHighSurrogate(unit) || at == text.size() || !IsLowSurrogate(text[at]))
        return unit;
    const char32_t high = static_cast<char32_t>(unit) - 0xD800;
    return 0x10000 + (high << 10) + (static_cast<char32_t>(text[at++]) - 0xDC00);
}

std::size_t Utf8Length(TextView text) noexcept
{
    std::size_t length = 0;
    for (const char16_t unit : text) // a surrogate counts 2, so a pair counts 4
        length += 1U + (unit >= 0x80 ? 1U : 0U) + (unit >= 0x800 && (unit < 0xD800 || unit > 0xDFFF) ? 1U : 0U);
    return length;
}

// Converts, asking `check` about each character beyond ASCII for what to write; it may end the work by false.
template <typename Check> bool Convert(TextView text, std::string& result, Check check)
{
    std::array<char, BufferSize> buffer;
    result.reserve(text.size() + text.size() / 16);
    std::size_t at = 0;
    while (at < text.size()) {
        char* to = buffer.data();
        char* const limit = buffer.data() + buffer.size() - 4;
        while (at < text.size() && to < limit) {
            const std::size_t room = std::min(static_cast<std::size_t>(limit - to), text.size() - at);
            const std::size_t ascii = CopyAscii(text.data() + at, room, to);
            at += ascii;
            to += ascii;
            while (at < text.size() && to < limit && text[at] >= 0x80) {
                char32_t point = NextPoint(text, at);
                if (!check(point))
                    return false;
                to = PutUtf8(to, point);
            }
        }
        const auto length = static_cast<std::size_t>(to - buffer.data());
        if (result.size() + length > result.capacity())
            result.reserve(result.size() + length + Utf8Length(text.substr(at)));
        result.append(buffer.data(), length);
    }
    return true;
}

} // namespace

std::optional<std::string> ToUtf8Exactly(TextView text)
{
    std::string result;
    const bool exact = Convert(text, result, [](char32_t& point) { return !(point >= 0xD800 && point <= 0xDFFF); });
    if (!exact)
        return std::nullopt;
    return result;
}

std::string ToUtf8Replacing(TextView text)
{
    std::string result;
    const auto isControl = [](char16_t unit) { return unit < 0x20 && !IsCharacter(unit); };
    const auto replace = [](char32_t& point) {
        if (!IsCharacter(point))
            point = Replacement;
        return true;
    };
    if (std::none_of(text.begin(), text.end(), isControl)) {
        Convert(text, result, replace);
        return result;
    }
    Text clean(text);
    std::replace_if(clean.begin(), clean.end(), isControl, static_cast<char16_t>(Replacement));
    Convert(clean, result, replace);
    return result;
}

Text ToText(std::string_view utf8)
{
    std::array<char16_t, BufferSize> buffer;
    Text result;
    result.reserve(utf8.size());
    std::size_t at = 0;
    while (at < utf8.size()) {
        char16_t* to = buffer.data();
        char16_t* const limit = buffer.data() + buffer.size() - 2;
        while (at < utf8.size() && to < limit) {
            const std::size_t room = std::min(static_cast<std::size_t>(limit - to), utf8.size() - at);
            const std::size_t ascii = CopyAscii(utf8.data() + at, room, to);
            at += ascii;
            to += ascii;
            while (at < utf8.size() && to < limit && !IsAscii(utf8[at])) {
                const Character next = DecodeCharacter(utf8.data() + at);
                at += next.length;
                if (next.point < 0x10000) {
                    *to++ = static_cast<char16_t>(next.point);
                } else {
                    *to++ = static_cast<char16_t>(0xD800 + ((next.point - 0x10000) >> 10));
                    *to++ = static_cast<char16_t>(0xDC00 + ((next.point - 0x10000) & 0x3FF));
                }
            }
        }
        result.append(buffer.data(), static_cast<std::size_t>(to - buffer.data()));
    }
    return result;
}

} // namespace rulemesh::xml
