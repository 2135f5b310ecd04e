#pragma once

#include <string>
#include <string_view>

#include "base/text.h"

namespace rulemesh {

/// UTF-16 to UTF-8. A lone surrogate becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(TextView text);

/// UTF-8 to UTF-16. Each byte that belongs to no valid sequence becomes U+FFFD.
[[nodiscard]] Text FromUtf8(std::string_view bytes);

} // namespace rulemesh
