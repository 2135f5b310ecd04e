#pragma once

#include "drive/request.h"
#include "drive/scripted_platform.h"

namespace rulemesh {

/// Lays an answer ready for a later question; refuses one that no question could take.
[[nodiscard]] Json LayReplyReady(ScriptedPlatform& platform, const Request& request);

} // namespace rulemesh
