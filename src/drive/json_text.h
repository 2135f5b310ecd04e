#pragma once

#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

#include "base/text.h"

namespace rulemesh {

/// The order of members is kept, so that answers read alike.
using Json = nlohmann::ordered_json;

/// One line as JSON; a discarded value when it is none. JSON may escape a lone surrogate, which UTF-8 can't carry:
/// something else stands for it in the result, and TextOf gives it back.
[[nodiscard]] Json ParseLine(const std::string& line);

/// The text of a JSON string.
[[nodiscard]] Text TextOf(const Json& string);

/// A text as a JSON string; a lone surrogate leaves as U+FFFD.
[[nodiscard]] Json JsonOf(TextView text);

} // namespace rulemesh
