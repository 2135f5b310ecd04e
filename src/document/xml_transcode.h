#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/text.h"

namespace rulemesh::xml {

/// UTF-16 to UTF-8; nothing when the text holds a lone surrogate.
[[nodiscard]] std::optional<std::string> ToUtf8Exactly(TextView text);

/// UTF-16 to UTF-8, with U+FFFD for every character that XML can't hold.
[[nodiscard]] std::string ToUtf8Replacing(TextView text);

/// UTF-8 that is known to be valid to UTF-16.
[[nodiscard]] Text ToText(std::string_view utf8);

} // namespace rulemesh::xml
