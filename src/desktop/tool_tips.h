#pragma once

class QHelpEvent;
class QWidget;

namespace rulemesh {

/// Shows the tool tip of what is under the pointer, a widget or a row or cell of one, as plain text: whatever looks
/// like markup in it is text of the object. False when there is none.
bool ShowToolTip(const QHelpEvent& event, QWidget& widget);

} // namespace rulemesh
