#include "shell/temporary_texts.h"

namespace rulemesh {

void RequireEncodable(const TextFiles& files, TextView StrText) { RequireEncodable(files.Page(), StrText); }

void WriteTextFile(TextFiles& files, const Text& StrPath, TextView StrText)
{
    files.Write(StrPath, Encode(files.Page(), StrText));
}

Text ReadTextFile(TextFiles& files, const Text& StrPath) { return Decode(files.Page(), files.Read(StrPath)); }

} // namespace rulemesh
