#pragma once

#include "drive/request.h"
#include "shell/ctl_rulemesh.h"

namespace rulemesh {

/// What a user does. Each returns the request's value, null for none, and refuses what the user can't reach.
[[nodiscard]] Json Click(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json ClickTab(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json MoveFocus(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json Leave(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json Type(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json PressKey(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json PressCharacter(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json Choose(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json ClickRow(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json Tick(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json ClickHeader(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json ClickCell(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json Scroll(ctlRulemesh& control, const Request& request);

} // namespace rulemesh
