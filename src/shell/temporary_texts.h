#pragma once

#include "base/text.h"
#include "platform/text_files.h"

namespace rulemesh {

/// Raises InvalidProcedureCall when the text holds a character that the files' code page lacks.
void RequireEncodable(const TextFiles& files, TextView StrText);

/// Writes a text to a file of the temporary folder, over any old one.
void WriteTextFile(TextFiles& files, const Text& StrPath, TextView StrText);

/// All of an existing text file.
[[nodiscard]] Text ReadTextFile(TextFiles& files, const Text& StrPath);

} // namespace rulemesh
