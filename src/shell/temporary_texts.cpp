#include "shell/temporary_texts.h"

#include "base/failure.h"

namespace rulemesh {

void RequireEncodable(const TextFiles& files, TextView StrText)
{
    if (!CanEncode(files.Page(), StrText))
        throw Failure(FailureCode::InvalidProcedureCall,
                      u"The text holds a character that its temporary file can't hold");
}

void WriteTextFile(TextFiles& files, const Text& StrPath, TextView StrText)
{
    files.Write(StrPath, Encode(files.Page(), StrText));
}

Text ReadTextFile(TextFiles& files, const Text& StrPath) { return Decode(files.Page(), files.Read(StrPath)); }

} // namespace rulemesh
