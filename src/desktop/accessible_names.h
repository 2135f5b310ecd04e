#pragma once

#include <QString>

#include "views/view.h"

namespace rulemesh {

/// What a screen reader calls a view: its caption without the mark of the access key, or a name of its own.
[[nodiscard]] QString AccessibleName(const View& view);

} // namespace rulemesh
