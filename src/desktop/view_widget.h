#pragma once

#include <memory>

#include <QObject>
#include <QWidget>

#include "desktop/view_surface.h"
#include "views/view.h"

namespace rulemesh {

/// One view on the screen: the widget that draws it, and the road of its input.
class ViewWidget : public QObject {
public:
    ~ViewWidget() override = default;

    [[nodiscard]] virtual QWidget& Widget() = 0;

    /// Where the views that name this one as their parent stand.
    [[nodiscard]] virtual QWidget& Pane() { return Widget(); }

    /// Brings the view's state to the widget. A widget's own part adds to it.
    virtual void Sync();

protected:
    ViewWidget(ViewSurface& surface, View& view) : surface_(surface), view_(view) {}

    [[nodiscard]] ViewSurface& Surface() const noexcept { return surface_; }

    /// Names the widget, keeps it from taking the focus by a click, and listens to its input; `input` is the widget
    /// that gets the mouse, where it is another one.
    void Adopt(QWidget& widget, QWidget* input = nullptr);

    /// A key that the designer did not take: true when the widget must not get it either.
    virtual bool HandleKey(QKeyEvent& event);

    /// A press of the mouse on the widget; the focus has been brought here. True when the widget must not get it.
    virtual bool HandleMousePress(QMouseEvent& event, bool twice);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void TakeOverFocus(Qt::FocusReason reason);

    ViewSurface& surface_;
    View& view_;
};

/// Whether an event is a press, a release or a move of the mouse, with whatever button.
[[nodiscard]] bool IsOfMouse(const QEvent& event);

/// Makes the widget for a view as a child of `parent`.
[[nodiscard]] std::unique_ptr<ViewWidget> MakeViewWidget(ViewSurface& surface, View& view, QWidget& parent);

} // namespace rulemesh
