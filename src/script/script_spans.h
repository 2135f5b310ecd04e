#pragma once

#include <vector>

#include "base/text.h"
#include "script/statements.h"

namespace rulemesh {

/// A stretch of a script that is coloured as one thing. Positions are offsets from 0.
struct ScriptSpan {
    enum class Kind { Comment, Migrate, Dump };

    std::size_t Position = 0;
    std::size_t Length = 0;
    Kind What = Kind::Comment;

    friend bool operator==(const ScriptSpan&, const ScriptSpan&) = default;
};

/// The statements in force, keyword and word each, and the comments of a script, in order and without overlap. A
/// statement in force behind a bar shows as a statement, one that the bar takes out of force as part of the comment.
[[nodiscard]] std::vector<ScriptSpan> ScriptSpans(TextView StrScript, ScannedFor scanned);

} // namespace rulemesh
