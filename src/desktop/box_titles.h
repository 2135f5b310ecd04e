#pragma once

#include <QString>

class QWidget;

namespace rulemesh {

/// How wide, in pixels, a window must be for its frame to show the whole title beside its icon and buttons. Frames
/// belong to the window manager, so this is a generous guess by the style of the widgets.
[[nodiscard]] int WidthForTitle(const QWidget& window, const QString& title);

} // namespace rulemesh
