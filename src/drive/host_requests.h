#pragma once

#include "drive/request.h"
#include "drive/scripted_platform.h"
#include "shell/ctl_rulemesh.h"

namespace rulemesh {

/// What a host does. Each returns the request's value, null for none.
[[nodiscard]] Json LetProperty(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json GetProperty(ctlRulemesh& control, const Request& request);
/// What the host does from inside of an event: sets a property, calls a member.
void ActInEvent(ctlRulemesh& control, const Request& reply);

[[nodiscard]] Json CallMember(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json ResizeControl(ctlRulemesh& control, const Request& request);
[[nodiscard]] Json SetVisible(ctlRulemesh& control, const Request& request);

/// Lays an answer ready for a later question.
[[nodiscard]] Json LayReplyReady(ScriptedPlatform& platform, const Request& request);

/// The view that the request names.
[[nodiscard]] View& ViewOf(ctlRulemesh& control, const Request& request);

} // namespace rulemesh
