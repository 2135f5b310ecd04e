#pragma once

#include "drive/json_text.h"
#include "engine/check.h"

namespace rulemesh {

/// A finding with the keys kind, severity, dump, table, field, line and text.
[[nodiscard]] Json JsonOf(const Finding& finding);

} // namespace rulemesh
