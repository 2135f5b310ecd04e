#pragma once

#include <string>
#include <string_view>

#include "base/text.h"

namespace rulemesh {

/// How the texts of temporary files are stored: windows-1252, or UTF-8 where a host chooses so.
enum class CodePage { Windows1252, Utf8 };

/// Whether every character of the text can be stored in the code page.
[[nodiscard]] bool CanEncode(CodePage page, TextView text) noexcept;

/// Raises InvalidProcedureCall, which names the character and its line, for a text that can't be encoded.
void RequireEncodable(CodePage page, TextView text);

/// The text as bytes. Raises InvalidProcedureCall for a character that the code page lacks.
[[nodiscard]] std::string Encode(CodePage page, TextView text);

/// The text as bytes, with each character that the code page lacks written as a decimal XML character reference;
/// a lone surrogate becomes the reference of U+FFFD.
[[nodiscard]] std::string EncodeWithReferences(CodePage page, TextView text);

/// The bytes as text. A byte that windows-1252 leaves undefined reads as the control character of the same code.
[[nodiscard]] Text Decode(CodePage page, std::string_view bytes);

} // namespace rulemesh
