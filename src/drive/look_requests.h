#pragma once

#include "drive/request.h"
#include "shell/ctl_rulemesh.h"

namespace rulemesh {

/// Looking, without changing anything.
[[nodiscard]] Json ReadView(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json ReadFocused(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json ReadState(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json ReadXml(ctlRulemesh& control, const Request& request);

} // namespace rulemesh
