#pragma once

#include <string>
#include <string_view>

namespace rulemesh {

/// How the characters of an XML file are stored.
enum class XmlEncoding { Utf8, Ascii, Latin1, Windows1252, Utf16Le, Utf16Be, Utf32Le, Utf32Be };

/// An XML text out of a file.
struct DecodedXml {
    std::string Text; ///< in UTF-8, declaration and a byte order mark of UTF-8 as they stood there
    XmlEncoding Encoding = XmlEncoding::Utf8;
    bool HasMark = false; ///< of UTF-16 and UTF-32, a byte order mark stood in front
};

/// Reads the bytes by their byte order mark or, without one, by the declaration. Raises FileError for an encoding that
/// isn't known here and for bytes that don't fit the encoding.
[[nodiscard]] DecodedXml DecodeXml(std::string bytes);

/// The bytes of a well-formed text, the way back of DecodeXml. A character that the encoding lacks is written as a
/// character reference; raises FileError where no reference can stand (in a name, comment, instruction or CDATA
/// section).
[[nodiscard]] std::string EncodeXml(DecodedXml xml);

/// A text whose declaration names another encoding, with UTF-8 in its place.
[[nodiscard]] std::string DeclaredAsUtf8(std::string text);

} // namespace rulemesh
