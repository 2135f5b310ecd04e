#include "base/case_map.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

namespace rulemesh {

namespace {

// The code points first, first + step, ..., last all map to the code point `distance` away.
struct CaseRange {
    char32_t first;
    char32_t last;
    std::uint32_t step;
    std::int32_t distance;
};

#include "base/case_table.inc"

constexpr bool IsHighSurrogate(char16_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool IsLowSurrogate(char16_t unit) noexcept { return unit >= 0xDC00 && unit <= 0xDFFF; }

char32_t MapPoint(std::span<const CaseRange> ranges, char32_t point) noexcept
{
    const auto range = std::ranges::lower_bound(ranges, point, {}, &CaseRange::last);
    if (range == ranges.end() || point < range->first || (point - range->first) % range->step != 0)
        return point;
    return static_cast<char32_t>(static_cast<std::int32_t>(point) + range->distance);
}

// Maps the letters from `firstLetter` to its 26th by flipping the one bit in which the cases of ASCII differ.
Text Map(TextView text, std::span<const CaseRange> ranges, char16_t firstLetter)
{
    Text mapped(text);
    for (std::size_t at = 0; at < mapped.size(); ++at) {
        const char16_t unit = mapped[at];
        if (unit < 0x80) {
            if (unit >= firstLetter && unit < firstLetter + 26)
                mapped[at] = static_cast<char16_t>(unit ^ 0x20);
        } else if (IsHighSurrogate(unit) && at + 1 < mapped.size() && IsLowSurrogate(mapped[at + 1])) {
            const char32_t point = 0x10000 + ((unit & 0x3FFU) << 10) + (mapped[at + 1] & 0x3FFU);
            const char32_t other = MapPoint(ranges, point) - 0x10000;
            mapped[at] = static_cast<char16_t>(0xD800 + (other >> 10));
            mapped[++at] = static_cast<char16_t>(0xDC00 + (other & 0x3FF));
        } else {
            mapped[at] = static_cast<char16_t>(MapPoint(ranges, unit));
        }
    }
    return mapped;
}

} // namespace

Text ToUpper(TextView text) { return Map(text, UpperRanges, u'a'); }

Text ToLower(TextView text) { return Map(text, LowerRanges, u'A'); }

} // namespace rulemesh
