#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "document/xml_characters.h"

// The inner loops of the parser: each runs from `at` over bytes of one kind and returns the first that isn't, at most
// `end`. The byte behind `end` must be a zero. They go in blocks of 16 where the processor can: most names and values
// are shorter than that, so one block finds their end without a branch for each byte.

namespace rulemesh::xml {

namespace scan {

#if defined(__SSE2__)

inline __m128i Load(const char* at) noexcept { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at)); }

inline __m128i Equal(__m128i bytes, char byte) noexcept { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(byte)); }

// The bytes between `first` and `first + count - 1`, count at most 127.
inline __m128i Within(__m128i bytes, char first, char count) noexcept
{
    // Moved so that `first` is the least signed byte, one signed comparison does for both ends.
    const __m128i moved = _mm_add_epi8(bytes, _mm_set1_epi8(static_cast<char>(-128 - first)));
    return _mm_cmplt_epi8(moved, _mm_set1_epi8(static_cast<char>(-128 + count)));
}

inline __m128i InName(__m128i bytes) noexcept
{
    const __m128i letters = Within(_mm_or_si128(bytes, _mm_set1_epi8(0x20)), 'a', 26);
    const __m128i digits = Within(bytes, '0', 11); // with ":"
    const __m128i marks = _mm_or_si128(Equal(bytes, '_'), Within(bytes, '-', 2));
    return _mm_or_si128(_mm_or_si128(letters, digits), marks);
}

// The quote, and what needs a closer look.
inline __m128i EndsValue(__m128i bytes, char quote) noexcept
{
    // Signed, the bytes from 0x80 on are below 0x20 like the control characters.
    const __m128i unusual = _mm_cmplt_epi8(bytes, _mm_set1_epi8(0x20));
    const __m128i markup = _mm_or_si128(Equal(bytes, '<'), Equal(bytes, '&'));
    return _mm_or_si128(_mm_or_si128(unusual, markup), Equal(bytes, quote));
}

// Runs in blocks while `stops` marks no byte; false when less than a block is left.
template <typename Stops> bool Blocks(const char*& at, const char* end, Stops stops) noexcept
{
    for (; end - at >= 16; at += 16) {
        const auto found = static_cast<unsigned>(_mm_movemask_epi8(stops(Load(at))));
        if (found != 0) {
            at += std::countr_zero(found);
            return true;
        }
    }
    return false;
}

#endif

} // namespace scan

/// 64 bytes of a start tag at once: bit n of each set tells of byte n. Most attributes lie in such a window with their
/// neighbours, so that the way from one to the next is a shift and not another load.
struct TagWindow {
    static constexpr unsigned Size = 64;

#if defined(__SSE2__)
    static constexpr bool IsFast = true;

    explicit TagWindow(const char* at) noexcept
    {
        for (unsigned block = 0; block < Size; block += 16) {
            const __m128i bytes = scan::Load(at + block);
            names |= Bits(scan::InName(bytes)) << block;
            valueEnds |= Bits(scan::EndsValue(bytes, '"')) << block;
        }
    }
    static std::uint64_t Bits(__m128i bytes) noexcept { return static_cast<unsigned>(_mm_movemask_epi8(bytes)); }
#else
    static constexpr bool IsFast = false; // there are no windows then

    explicit TagWindow(const char*) noexcept {}
#endif

    std::uint64_t names = 0;
    std::uint64_t valueEnds = 0; // in double quotes
};

inline const char* SkipNameBytes(const char* at, [[maybe_unused]] const char* end) noexcept
{
#if defined(__SSE2__)
    const auto stops = [](__m128i bytes) { return _mm_xor_si128(scan::InName(bytes), _mm_set1_epi8(-1)); };
    if (scan::Blocks(at, end, stops))
        return at;
#endif
    while (Is(NameRest, *at))
        ++at;
    return at;
}

/// Stops at `quote` too.
inline const char* SkipPlainValue(const char* at, [[maybe_unused]] const char* end, char quote) noexcept
{
#if defined(__SSE2__)
    const auto stops = [quote](__m128i bytes) { return scan::EndsValue(bytes, quote); };
    while (scan::Blocks(at, end, stops)) {
        if (*at == quote || !Is(PlainValue, *at))
            return at;
        ++at; // a tab or line end
    }
#endif
    while (*at != quote && Is(PlainValue, *at))
        ++at;
    return at;
}

inline const char* SkipPlainText(const char* at, [[maybe_unused]] const char* end) noexcept
{
#if defined(__SSE2__)
    const auto stops = [](__m128i bytes) {
        const __m128i unusual = _mm_cmplt_epi8(bytes, _mm_set1_epi8(0x20));
        const __m128i breaks =
            _mm_or_si128(_mm_or_si128(scan::Equal(bytes, '\n'), scan::Equal(bytes, '\r')), scan::Equal(bytes, '\t'));
        const __m128i markup =
            _mm_or_si128(_mm_or_si128(scan::Equal(bytes, '<'), scan::Equal(bytes, '&')), scan::Equal(bytes, '>'));
        return _mm_or_si128(_mm_andnot_si128(breaks, unusual), markup);
    };
    if (scan::Blocks(at, end, stops))
        return at;
#endif
    while (Is(PlainText, *at))
        ++at;
    return at;
}

/// The name that begins here, in text that is known to be well-formed.
inline std::string_view NameAt(const char* at, const char* end) noexcept
{
    const char* rest = SkipNameBytes(at, end);
    while (!IsAscii(*rest))
        rest = SkipNameBytes(rest + 1, end);
    return {at, static_cast<std::size_t>(rest - at)};
}

/// The end of a tag that is known to be well-formed: the place of its ">".
inline const char* FindTagEnd(const char* at, [[maybe_unused]] const char* end) noexcept
{
    for (;;) {
#if defined(__SSE2__)
        const auto stops = [](__m128i bytes) {
            return _mm_or_si128(_mm_or_si128(scan::Equal(bytes, '"'), scan::Equal(bytes, '\'')),
                                scan::Equal(bytes, '>'));
        };
        if (!scan::Blocks(at, end, stops))
#endif
            while (*at != '>' && *at != '"' && *at != '\'')
                ++at;
        if (*at == '>')
            return at;
        const char quote = *at++;
#if defined(__SSE2__)
        if (!scan::Blocks(at, end, [quote](__m128i bytes) { return scan::Equal(bytes, quote); }))
#endif
            while (*at != quote)
                ++at;
        ++at;
    }
}

inline const char* SkipSpaces(const char* at) noexcept
{
    while (Is(Space, *at))
        ++at;
    return at;
}

} // namespace rulemesh::xml
