#pragma once

#include <string>
#include <vector>

#include "drive/request.h"
#include "shell/ctl_rulemesh.h"

namespace rulemesh {

/// What a host does with the control's members. Each returns the request's value, null for none, and refuses a name
/// that there isn't.
[[nodiscard]] Json LetProperty(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json GetProperty(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json CallMember(ctlRulemesh& control, const Request& request);

/// Refuse a property that can't be set to that value, or a name that can't be called; nothing is done.
void CheckLet(const Request& request);
void CheckCall(const Request& request);

/// The names that can be set, read or called, each once, sorted.
[[nodiscard]] std::vector<std::string> MemberNames();

} // namespace rulemesh
