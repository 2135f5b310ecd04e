#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace rulemesh::xml {

/// What a byte may be in UTF-8 text. Bytes from 0x80 on are none of these: they start or continue a longer character.
enum ByteClass : std::uint8_t {
    NameStart = 1,
    NameRest = 2, // every name start is one too
    Space = 4,
    PlainText = 8,  // in text: neither markup, nor a control character, nor ">"
    PlainValue = 16 // in an attribute value, quotes of either kind aside
};

/// The classes of each byte.
extern const std::array<std::uint8_t, 256> ByteClasses;

[[nodiscard]] inline bool Is(ByteClass kind, char byte) noexcept
{
    return (ByteClasses[static_cast<unsigned char>(byte)] & kind) != 0;
}

[[nodiscard]] constexpr bool IsAscii(char byte) noexcept { return static_cast<unsigned char>(byte) < 0x80; }

/// The value of a decimal or hexadecimal digit, negative when it is none.
[[nodiscard]] int DigitValue(char byte, bool hexadecimal) noexcept;

/// Characters of XML 1.0, Fifth Edition.
[[nodiscard]] bool IsCharacter(char32_t point) noexcept;
[[nodiscard]] bool IsNameStart(char32_t point) noexcept;
[[nodiscard]] bool IsNameCharacter(char32_t point) noexcept;

/// One character of UTF-8 text and the number of its bytes; length 0 when no valid character of XML stands there.
struct Character {
    char32_t point = 0;
    std::uint8_t length = 0;
};

/// The character at a byte that is not ASCII. Reads on only while the bytes continue it, so a zero behind the text is
/// enough to stop it there.
[[nodiscard]] Character DecodeCharacter(const char* at) noexcept;

/// Writes a character as UTF-8, up to 4 bytes; returns the place behind it.
char* PutUtf8(char* to, char32_t point) noexcept;

/// Whether the whole text is a name.
[[nodiscard]] bool IsName(std::string_view text);

/// The text without blanks, tabs, carriage returns and line feeds at both ends.
[[nodiscard]] std::string_view TrimSpace(std::string_view text) noexcept;

} // namespace rulemesh::xml
