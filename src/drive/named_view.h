#pragma once

#include <string>
#include <vector>

#include "drive/request.h"
#include "shell/ctl_rulemesh.h"

namespace rulemesh {

/// The view that the request names; refused when there is none.
[[nodiscard]] View& ViewOf(ctlRulemesh& control, const Request& request);

/// The names of all views, in the order of the design.
[[nodiscard]] std::vector<std::string> ViewNames(ctlRulemesh& control);

} // namespace rulemesh
