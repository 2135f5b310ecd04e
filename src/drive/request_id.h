#pragma once

#include "drive/json_text.h"

namespace rulemesh {

/// A request's "id" as it comes back in the answer: the same value, whatever its kind. Refused when its lists and
/// objects are nested deeper than anybody needs.
[[nodiscard]] Json IdForAnswer(const Json& id);

} // namespace rulemesh
