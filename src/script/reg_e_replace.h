#pragma once

#include "base/text.h"

namespace rulemesh {

/// Replaces what matches a regular expression: the first match, or with BoolGlobal every one, from front to back and as
/// long as can be. Case counts. Of the language of regular expressions a pattern may hold literal characters, `\s` for
/// one blank, tab, line feed, carriage return, form feed or vertical tab, and behind one of these the counts `{0,}` and
/// `{1,}`; the replacement is taken as it stands. Raises InvalidProcedureCall for any other pattern, and for one that
/// nothing at all would match.
[[nodiscard]] Text RegE_Replace(TextView StrText, TextView StrPattern, TextView StrReplacement, bool BoolGlobal);

} // namespace rulemesh
