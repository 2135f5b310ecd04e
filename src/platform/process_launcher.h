#pragma once

#include "base/text.h"

namespace rulemesh {

/// Runs an editor on a file and waits for its end. No shell is involved: the editor's part is split into words at
/// blanks and tabs, double quotes hold a word with blanks together, and the path is handed over as one argument behind
/// them. Returns the exit status, 128 and the signal's number when the program was killed. Raises FileNotFound when
/// the editor names no program or the program can't be started.
[[nodiscard]] int RunAndWait(TextView StrEditor, TextView StrPath);

/// The command of the first known editor that is installed, with a blank behind it; "" when none is.
[[nodiscard]] Text FallbackEditor();

} // namespace rulemesh
