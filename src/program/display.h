#pragma once

namespace rulemesh {

/// Whether there is a screen that windows come up on.
[[nodiscard]] bool HasDisplay();

/// Whether a window can be made at all: on a display, or on the platform that QT_QPA_PLATFORM names.
[[nodiscard]] bool CanMakeWindows();

} // namespace rulemesh
