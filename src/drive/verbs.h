#pragma once

#include <string>
#include <vector>

#include "drive/desks.h"

namespace rulemesh {

/// Does what the request's verb says and returns the value, null for none. Refuses a verb that there isn't.
[[nodiscard]] Json Do(Desks& desks, const Request& request);

/// The names of all verbs, sorted.
[[nodiscard]] std::vector<std::string> VerbNames();

} // namespace rulemesh
