#pragma once

#include "base/text.h"

namespace rulemesh {

/// The expression by which a source field becomes a target field: the plain name, a conversion between dates and UTC
/// times, or "" where nothing is assigned by itself. Type words compare exactly.
[[nodiscard]] Text ConvertForTarget(TextView StrSourceName, TextView StrSourceType, TextView StrTargetType);

} // namespace rulemesh
