#pragma once

#include "base/text.h"

namespace rulemesh {

/// Upper and lower case by Unicode's simple one-to-one mappings, the same on every machine whatever the locale.
/// A surrogate pair is mapped as the one code point that it stands for; the length never changes.
[[nodiscard]] Text ToUpper(TextView text);
[[nodiscard]] Text ToLower(TextView text);

} // namespace rulemesh
