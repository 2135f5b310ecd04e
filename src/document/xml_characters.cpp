#include "document/xml_characters.h"

#include <algorithm>
#include <string>

namespace rulemesh::xml {

namespace {

constexpr std::array<std::uint8_t, 256> MakeByteClasses()
{
    std::array<std::uint8_t, 256> classes{};
    const auto add = [&](unsigned from, unsigned to, int kind) {
        for (unsigned byte = from; byte <= to; ++byte)
            classes[byte] = static_cast<std::uint8_t>(classes[byte] | kind);
    };
    add('A', 'Z', NameStart | NameRest);
    add('a', 'z', NameStart | NameRest);
    add('_', '_', NameStart | NameRest);
    add(':', ':', NameStart | NameRest);
    add('0', '9', NameRest);
    add('-', '.', NameRest);
    for (const unsigned space : {0x20U, 0x09U, 0x0AU, 0x0DU})
        add(space, space, Space | PlainText | PlainValue);
    add(0x21, 0x7F, PlainText | PlainValue);
    for (const unsigned markup : {0x3CU, 0x26U}) // "<" and "&"
        classes[markup] = static_cast<std::uint8_t>(classes[markup] & ~(PlainText | PlainValue));
    classes['>'] = static_cast<std::uint8_t>(classes['>'] & ~PlainText);
    return classes;
}

struct Range {
    char32_t first;
    char32_t last;
};

// Names, from U+0080 on.
constexpr std::array<Range, 12> NameStarts = {{{0xC0, 0xD6},
                                               {0xD8, 0xF6},
                                               {0xF8, 0x2FF},
                                               {0x370, 0x37D},
                                               {0x37F, 0x1FFF},
                                               {0x200C, 0x200D},
                                               {0x2070, 0x218F},
                                               {0x2C00, 0x2FEF},
                                               {0x3001, 0xD7FF},
                                               {0xF900, 0xFDCF},
                                               {0xFDF0, 0xFFFD},
                                               {0x10000, 0xEFFFF}}};

constexpr std::array<Range, 3> NameRests = {{{0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}}};

template <std::size_t Count> bool IsIn(const std::array<Range, Count>& ranges, char32_t point) noexcept
{
    return std::any_of(ranges.begin(), ranges.end(),
                       [&](const Range& range) { return point >= range.first && point <= range.last; });
}

} // namespace

const std::array<std::uint8_t, 256> ByteClasses = MakeByteClasses();

int DigitValue(char byte, bool hexadecimal) noexcept
{
    if (byte >= '0' && byte <= '9')
        return byte - '0';
    const int letter = (byte | 0x20) - 'a';
    return hexadecimal && letter >= 0 && letter < 6 ? letter + 10 : -1;
}

bool IsCharacter(char32_t point) noexcept
{
    if (point < 0x20)
        return point == 0x09 || point == 0x0A || point == 0x0D;
    return point < 0xD800 || (point >= 0xE000 && point < 0xFFFE) || (point >= 0x10000 && point <= 0x10FFFF);
}

bool IsNameStart(char32_t point) noexcept
{
    return point < 0x80 ? Is(NameStart, static_cast<char>(point)) : IsIn(NameStarts, point);
}

bool IsNameCharacter(char32_t point) noexcept
{
    return point < 0x80 ? Is(NameRest, static_cast<char>(point)) : IsIn(NameStarts, point) || IsIn(NameRests, point);
}

Character DecodeCharacter(const char* at) noexcept
{
    const auto lead = static_cast<unsigned char>(*at);
    const unsigned length = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
    if (length == 0)
        return {};
    char32_t point = lead & (0xFFU >> (length + 1));
    for (unsigned offset = 1; offset < length; ++offset) {
        const auto next = static_cast<unsigned char>(at[offset]);
        if ((next & 0xC0) != 0x80)
            return {};
        point = (point << 6) | (next & 0x3FU);
    }
    const bool overlong = (length == 3 && point < 0x800) || (length == 4 && point < 0x10000);
    if (overlong || !IsCharacter(point))
        return {};
    return {point, static_cast<std::uint8_t>(length)};
}

char* PutUtf8(char* to, char32_t point) noexcept
{
    const auto tail = [&](int shift) { *to++ = static_cast<char>(0x80 | ((point >> shift) & 0x3F)); };
    if (point < 0x80) {
        *to++ = static_cast<char>(point);
    } else if (point < 0x800) {
        *to++ = static_cast<char>(0xC0 | (point >> 6));
        tail(0);
    } else if (point < 0x10000) {
        *to++ = static_cast<char>(0xE0 | (point >> 12));
        tail(6);
        tail(0);
    } else {
        *to++ = static_cast<char>(0xF0 | (point >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
    return to;
}

bool IsName(std::string_view text)
{
    const std::string name(text); // ends in a zero, as decoding wants it
    std::size_t at = 0;
    while (at < name.size()) {
        const Character next =
            IsAscii(name[at]) ? Character{static_cast<unsigned char>(name[at]), 1} : DecodeCharacter(&name[at]);
        if (next.length == 0 || !(at == 0 ? IsNameStart(next.point) : IsNameCharacter(next.point)))
            return false;
        at += next.length;
    }
    return !name.empty();
}

std::string_view TrimSpace(std::string_view text) noexcept
{
    while (!text.empty() && Is(Space, text.front()))
        text.remove_prefix(1);
    while (!text.empty() && Is(Space, text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace rulemesh::xml
