#include "files/object_encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "base/code_page.h"
#include "base/utf8.h"
#include "files/file_error.h"
#include "files/xml_reference_places.h"

namespace rulemesh {

namespace {

// The declaration, and in it the encoding, are plain ASCII in every encoding that is told by its declaration.
constexpr std::size_t LongestDeclaration = 400;
constexpr std::string_view Spaces = " \t\r\n";

// The value between the quotes of the declared encoding.
struct Declared {
    std::size_t Start = 0;
    std::size_t End = 0; // 0 for no declaration of an encoding
};

Declared DeclaredEncoding(std::string_view text)
{
    text = text.substr(0, LongestDeclaration);
    if (!text.starts_with("<?xml") || text.size() < 6 || Spaces.find(text[5]) == std::string_view::npos)
        return {};
    text = text.substr(0, text.find('>'));
    constexpr std::string_view word = "encoding";
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
        std::size_t value = text.find_first_not_of(Spaces, at + word.size());
        if (value == std::string_view::npos || text[value] != '=')
            continue;
        value = text.find_first_not_of(Spaces, value + 1);
        if (value == std::string_view::npos || (text[value] != '"' && text[value] != '\''))
            continue;
        const std::size_t end = text.find(text[value], value + 1);
        if (end != std::string_view::npos)
            return {value + 1, end};
    }
    return {};
}

std::string Lower(std::string_view text)
{
    std::string lower(text);
    for (char& byte : lower)
        byte = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
    return lower;
}

struct Sign {
    std::string_view Bytes;
    XmlEncoding Encoding;
    bool IsMark;
};

using namespace std::string_view_literals;

// What a file of each encoding begins with: its byte order mark, or the "<" of an XML text. Longer ones come first.
constexpr std::array Signs = {
    Sign{"\xFF\xFE\0\0"sv, XmlEncoding::Utf32Le, true}, Sign{"\0\0\xFE\xFF"sv, XmlEncoding::Utf32Be, true},
    Sign{"<\0\0\0"sv, XmlEncoding::Utf32Le, false},     Sign{"\0\0\0<"sv, XmlEncoding::Utf32Be, false},
    Sign{"\xFF\xFE"sv, XmlEncoding::Utf16Le, true},     Sign{"\xFE\xFF"sv, XmlEncoding::Utf16Be, true},
    Sign{"<\0"sv, XmlEncoding::Utf16Le, false},         Sign{"\0<"sv, XmlEncoding::Utf16Be, false},
};

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

// How wide encodings store a number of one or more bytes.
struct Wide {
    const char* Name;
    std::size_t Width; // bytes
    bool BigEnd;
};

std::optional<Wide> WideOf(XmlEncoding encoding)
{
    switch (encoding) {
    case XmlEncoding::Utf16Le:
        return Wide{"UTF-16", 2, false};
    case XmlEncoding::Utf16Be:
        return Wide{"UTF-16", 2, true};
    case XmlEncoding::Utf32Le:
        return Wide{"UTF-32", 4, false};
    case XmlEncoding::Utf32Be:
        return Wide{"UTF-32", 4, true};
    default:
        return {};
    }
}

std::uint32_t NumberAt(std::string_view bytes, std::size_t at, const Wide& wide)
{
    std::uint32_t number = 0;
    for (std::size_t index = 0; index < wide.Width; ++index) {
        const std::size_t place = wide.BigEnd ? index : wide.Width - 1 - index;
        number = number << 8 | static_cast<unsigned char>(bytes[at + place]);
    }
    return number;
}

void PutNumber(std::string& bytes, std::uint32_t number, const Wide& wide)
{
    for (std::size_t index = 0; index < wide.Width; ++index) {
        const std::size_t place = wide.BigEnd ? wide.Width - 1 - index : index;
        bytes.push_back(static_cast<char>(number >> (8 * place) & 0xFF));
    }
}

bool IsHigh(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLow(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

void Append(Text& text, std::uint32_t character)
{
    if (character < 0x10000) {
        text.push_back(static_cast<char16_t>(character));
        return;
    }
    text.push_back(static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
}

// Half of a pair is no character, and would be lost on the way to the designer.
void CheckPairs(TextView text)
{
    std::size_t line = 1;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isPair = IsHigh(text[at]) && at + 1 < text.size() && IsLow(text[at + 1]);
        if (!isPair && (IsHigh(text[at]) || IsLow(text[at])))
            throw FileError("The file is damaged: line " + std::to_string(line) +
                            " holds half of a character (a lone surrogate).");
        at += isPair ? 1 : 0;
        line += text[at] == u'\n' ? 1 : 0;
    }
}

std::string DecodeWide(std::string_view bytes, const Wide& wide)
{
    constexpr std::uint32_t LastCharacter = 0x10FFFF;
    const FileError damage(std::string("The file is damaged: it begins as ") + wide.Name +
                           ", but holds bytes that are none.");
    if (bytes.size() % wide.Width != 0)
        throw damage;
    Text text;
    text.reserve(bytes.size() / wide.Width);
    for (std::size_t at = 0; at < bytes.size(); at += wide.Width) {
        const std::uint32_t number = NumberAt(bytes, at, wide);
        if (number > LastCharacter)
            throw damage;
        Append(text, number);
    }
    CheckPairs(text);
    return ToUtf8(text);
}

std::string CheckedUtf8(std::string bytes)
{
    const std::string clean = ToUtf8(FromUtf8(bytes));
    const auto fault = std::mismatch(bytes.begin(), bytes.end(), clean.begin(), clean.end()).first;
    if (fault == bytes.end())
        return bytes;
    throw FileError("Line " + std::to_string(std::count(bytes.begin(), fault, '\n') + 1) +
                    " holds a character that is not UTF-8. If the file has another encoding, name it in its first "
                    "line, such as <?xml version=\"1.0\" encoding=\"windows-1252\"?>.");
}

std::string DecodeLatin1(std::string_view bytes)
{
    Text text;
    text.reserve(bytes.size());
    for (const char byte : bytes)
        text.push_back(static_cast<unsigned char>(byte));
    return ToUtf8(text);
}

// A character of a single-byte encoding; nothing for one that it lacks.
std::optional<char> ByteFor(XmlEncoding encoding, TextView character)
{
    if (encoding == XmlEncoding::Windows1252) {
        if (!CanEncode(CodePage::Windows1252, character))
            return {};
        return Encode(CodePage::Windows1252, character).front();
    }
    const char16_t last = encoding == XmlEncoding::Ascii ? u'\x7F' : u'\xFF';
    if (character.size() > 1 || character.front() > last)
        return {};
    return static_cast<char>(character.front());
}

std::string Reference(TextView character)
{
    const bool isPair = character.size() > 1;
    const std::uint32_t number =
        isPair ? 0x10000U + ((character[0] - 0xD800U) << 10) + (character[1] - 0xDC00U) : character[0];
    return "&#" + std::to_string(number) + ';';
}

std::size_t LengthOfCharacter(char first)
{
    const auto byte = static_cast<unsigned char>(first);
    return byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

std::string EncodeSingleBytes(std::string_view text, XmlEncoding encoding)
{
    XmlReferencePlaces places(text);
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = LengthOfCharacter(text[at]);
        if (length == 1) {
            bytes.push_back(text[at++]);
            continue;
        }
        const Text character = FromUtf8(text.substr(at, length));
        if (const std::optional<char> byte = ByteFor(encoding, character))
            bytes.push_back(*byte);
        else if (places.Holds(at))
            bytes += Reference(character);
        else
            throw FileError(
                "Line " +
                std::to_string(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n') + 1) +
                " holds the character \"" + std::string(text.substr(at, length)) +
                "\", which the encoding of the file doesn't have, in a name, comment or CDATA section, where "
                "no reference can stand for it.");
        at += length;
    }
    return bytes;
}

std::string EncodeWide(std::string_view utf8, const Wide& wide, bool mark)
{
    const Text text = FromUtf8(utf8);
    std::string bytes;
    bytes.reserve((text.size() + 1) * wide.Width);
    if (mark)
        PutNumber(bytes, 0xFEFF, wide);
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::uint32_t number = text[at];
        if (wide.Width == 4 && IsHigh(text[at])) {
            number = 0x10000U + ((text[at] - 0xD800U) << 10) + (text[at + 1] - 0xDC00U);
            ++at;
        }
        PutNumber(bytes, number, wide);
    }
    return bytes;
}

bool IsAscii(std::string_view text)
{
    return std::none_of(text.begin(), text.end(), [](char byte) { return static_cast<unsigned char>(byte) > 0x7F; });
}

} // namespace

DecodedXml DecodeXml(std::string bytes)
{
    for (const Sign& sign : Signs) {
        if (std::string_view(bytes).starts_with(sign.Bytes)) {
            const std::string_view text = std::string_view(bytes).substr(sign.IsMark ? sign.Bytes.size() : 0);
            return {DecodeWide(text, *WideOf(sign.Encoding)), sign.Encoding, sign.IsMark};
        }
    }
    const Declared declared = DeclaredEncoding(bytes);
    const std::string named = Lower(std::string_view(bytes).substr(declared.Start, declared.End - declared.Start));
    if (named.empty() || named == "utf-8" || bytes.starts_with(Utf8Mark))
        return {CheckedUtf8(std::move(bytes))};
    if (named == "us-ascii" || named == "ascii") {
        const bool isAscii = IsAscii(bytes);
        return {CheckedUtf8(std::move(bytes)), isAscii ? XmlEncoding::Ascii : XmlEncoding::Utf8};
    }
    if (named == "iso-8859-1" || named == "latin1")
        return {DecodeLatin1(bytes), XmlEncoding::Latin1};
    if (named == "windows-1252" || named == "cp1252")
        return {ToUtf8(Decode(CodePage::Windows1252, bytes)), XmlEncoding::Windows1252};
    throw FileError("The file says that its encoding is \"" + named +
                    "\", which can't be read here. Store it as UTF-8 and say so in its first line.");
}

std::string EncodeXml(DecodedXml xml)
{
    if (xml.Encoding == XmlEncoding::Utf8)
        return std::move(xml.Text);
    if (const std::optional<Wide> wide = WideOf(xml.Encoding))
        return EncodeWide(xml.Text, *wide, xml.HasMark);
    return EncodeSingleBytes(xml.Text, xml.Encoding);
}

std::string DeclaredAsUtf8(std::string text)
{
    const Declared declared = DeclaredEncoding(text);
    const std::string_view named = std::string_view(text).substr(declared.Start, declared.End - declared.Start);
    if (!named.empty() && Lower(named) != "utf-8")
        text.replace(declared.Start - 1, declared.End - declared.Start + 2, "\"UTF-8\"");
    return text;
}

} // namespace rulemesh
