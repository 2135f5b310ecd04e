#pragma once

#include "base/text.h"

namespace rulemesh {

/// What a cell holds that no rule ever reached: one blank, not "". A save stores it as it stands, and the "" that is
/// shown of it then removes the record again.
inline constexpr TextView UntouchedRule = u" ";

/// Whether Map and Guess may write over it: blanks cut from both ends and then tabs dropped leave nothing. Blanks
/// between tabs do not count as blank.
[[nodiscard]] bool IsBlankRule(TextView StrRule);

} // namespace rulemesh
