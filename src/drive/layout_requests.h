#pragma once

#include "drive/request.h"
#include "shell/ctl_rulemesh.h"

namespace rulemesh {

/// How a host lays the control out. Each returns the request's value, null for none.
[[nodiscard]] Json ResizeControl(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json SetVisible(ctlRulemesh& control, const Request& request);

} // namespace rulemesh
