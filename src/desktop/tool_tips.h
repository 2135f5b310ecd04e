#pragma once

class QHelpEvent;
class QString;
class QWidget;

namespace rulemesh {

/// A tool tip that shows a text as it stands, whatever looks like markup in it.
[[nodiscard]] QString PlainToolTip(const QString& text);

/// Shows the tool tip of what is under the pointer, a widget or a row or cell of one, as plain text: whatever looks
/// like markup in it is text of the object. False when there is none.
bool ShowToolTip(const QHelpEvent& event, QWidget& widget);

} // namespace rulemesh
