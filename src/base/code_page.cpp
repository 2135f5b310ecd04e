#include "base/code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "base/failure.h"
#include "base/utf8.h"

namespace rulemesh {

namespace {

constexpr char32_t Replacement = 0xFFFD;
constexpr std::size_t FirstSpecial = 0x80;

// What windows-1252 has at the bytes 80 to 9F. All its other bytes are the characters of the same code; so are the
// five undefined ones among these, so that what was read can be written again.
constexpr std::array<char16_t, 32> Specials{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr bool IsHighSurrogate(char16_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool IsLowSurrogate(char16_t unit) noexcept { return unit >= 0xDC00 && unit <= 0xDFFF; }

// One character of a text: a surrogate pair counts as one, a lone surrogate is none that could be stored.
struct Character {
    char32_t point;
    std::size_t length;
    bool isLoneSurrogate;
};

Character CharacterAt(TextView text, std::size_t at) noexcept
{
    const char16_t unit = text[at];
    if (IsHighSurrogate(unit) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]))
        return {0x10000 + ((unit & 0x3FFU) << 10) + (text[at + 1] & 0x3FFU), 2, false};
    return {unit, 1, IsHighSurrogate(unit) || IsLowSurrogate(unit)};
}

std::optional<char> Windows1252Byte(char32_t point) noexcept
{
    if (point < FirstSpecial || (point >= 0xA0 && point <= 0xFF))
        return static_cast<char>(point);
    const auto special = std::find(Specials.begin(), Specials.end(), point);
    if (special == Specials.end())
        return std::nullopt;
    return static_cast<char>(FirstSpecial + static_cast<std::size_t>(special - Specials.begin()));
}

// The first offset at or behind `from` where a character stands that the code page lacks; the text's end without one.
std::size_t FindMissing(CodePage page, TextView text, std::size_t from) noexcept
{
    while (from < text.size()) {
        const Character character = CharacterAt(text, from);
        const bool stored =
            !character.isLoneSurrogate && (page == CodePage::Utf8 || Windows1252Byte(character.point).has_value());
        if (!stored)
            return from;
        from += character.length;
    }
    return text.size();
}

std::string EncodeStored(CodePage page, TextView text)
{
    if (page == CodePage::Utf8)
        return ToUtf8(text);
    std::string bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(), [](char16_t unit) { return *Windows1252Byte(unit); });
    return bytes;
}

} // namespace

bool CanEncode(CodePage page, TextView text) noexcept { return FindMissing(page, text, 0) == text.size(); }

void RequireEncodable(CodePage page, TextView text)
{
    const std::size_t missing = FindMissing(page, text, 0);
    if (missing == text.size())
        return;
    const Character character = CharacterAt(text, missing);
    const Text shown =
        character.isLoneSurrogate ? u"half of a character" : Quoted(text.substr(missing, character.length));
    const auto line = std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(missing), u'\n') + 1;
    throw Failure(FailureCode::InvalidProcedureCall, u"The text can't be stored in a file: its line " +
                                                         FromUtf8(std::to_string(line)) + u" holds " + shown +
                                                         u", which the code page of the files lacks");
}

std::string Encode(CodePage page, TextView text)
{
    RequireEncodable(page, text);
    return EncodeStored(page, text);
}

std::string EncodeWithReferences(CodePage page, TextView text)
{
    std::size_t missing = FindMissing(page, text, 0);
    std::string bytes = EncodeStored(page, text.substr(0, missing));
    while (missing < text.size()) {
        const Character character = CharacterAt(text, missing);
        const char32_t point = character.isLoneSurrogate ? Replacement : character.point;
        bytes += "&#" + std::to_string(static_cast<std::uint32_t>(point)) + ";";
        const std::size_t from = missing + character.length;
        missing = FindMissing(page, text, from);
        bytes += EncodeStored(page, text.substr(from, missing - from));
    }
    return bytes;
}

Text Decode(CodePage page, std::string_view bytes)
{
    if (page == CodePage::Utf8)
        return FromUtf8(bytes);
    Text text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char byte) {
        const auto code = static_cast<unsigned char>(byte);
        const bool special = code >= FirstSpecial && code < FirstSpecial + Specials.size();
        return special ? Specials[code - FirstSpecial] : static_cast<char16_t>(code);
    });
    return text;
}

} // namespace rulemesh
