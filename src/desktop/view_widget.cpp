#include "desktop/view_widget.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QShortcutEvent>

#include "desktop/access_keys.h"
#include "desktop/accessible_names.h"
#include "desktop/button_widgets.h"
#include "desktop/combo_widget.h"
#include "desktop/grid_widget.h"
#include "desktop/list_widget.h"
#include "desktop/qt_text.h"
#include "desktop/tab_widget.h"
#include "desktop/text_box_widget.h"
#include "desktop/tool_tips.h"

namespace rulemesh {

void ViewWidget::Adopt(QWidget& widget, QWidget* input)
{
    widget.setObjectName(ToQt(view_.Name()));
    widget.setAccessibleName(AccessibleName(view_));
    widget.setFocusPolicy(view_.TakesFocus() ? Qt::TabFocus : Qt::NoFocus);
    widget.installEventFilter(this);
    if (input != nullptr)
        input->installEventFilter(this);
}

void ViewWidget::Sync()
{
    QWidget& widget = Widget();
    const int left = surface_.Pixels(view_.Left());
    const int top = surface_.Pixels(view_.Top());
    widget.setGeometry(left, top, surface_.Pixels(view_.Right()) - left, surface_.Pixels(view_.Bottom()) - top);
    widget.setEnabled(view_.Enabled());
    widget.setVisible(view_.IsShown());
    widget.setToolTip(ToQt(view_.ToolTip()));
}

bool ViewWidget::HandleKey(QKeyEvent& /*event*/) { return false; }

bool ViewWidget::HandleMousePress(QMouseEvent& /*event*/, bool /*twice*/) { return false; }

// A shortcut, an assistive tool or the tab key of the window around brought the focus here past the model. A window
// that becomes active only gives back what was left of it here while it wasn't: the model's focus holds then.
void ViewWidget::TakeOverFocus(Qt::FocusReason reason)
{
    const bool tabbed = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
    if (tabbed && surface_.Tree().Focused() == nullptr)
        surface_.MoveFocusByTab(reason == Qt::TabFocusReason);
    else if (tabbed || reason == Qt::ShortcutFocusReason || reason == Qt::OtherFocusReason)
        surface_.FocusFor(view_);
    else
        surface_.FollowFocus();
}

bool ViewWidget::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (surface_.OnKey) {
            event->accept(); // the key is the designer's, whatever access keys there are
            return true;
        }
        break;
    case QEvent::KeyPress: {
        auto& key = static_cast<QKeyEvent&>(*event);
        if (watched != &Widget())
            break; // the viewport of a widget hands its keys on
        if (surface_.PressKey(view_, key) || HandleKey(key))
            return true;
        break;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        if (!view_.TakesFocus())
            break;
        auto& mouse = static_cast<QMouseEvent&>(*event);
        if (mouse.button() == Qt::LeftButton && HandleMousePress(mouse, event->type() == QEvent::MouseButtonDblClick))
            return true;
        break;
    }
    case QEvent::ToolTip:
        if (ShowToolTip(static_cast<QHelpEvent&>(*event), Widget()))
            return true;
        break;
    case QEvent::Shortcut:
        if (watched != &Widget())
            break;
        PressAccessKey(surface_, static_cast<QShortcutEvent&>(*event).key()[0].key());
        return true;
    case QEvent::FocusIn: {
        if (watched == &Widget() && !view_.HasFocus())
            TakeOverFocus(static_cast<QFocusEvent*>(event)->reason());
        break;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool IsOfMouse(const QEvent& event)
{
    return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonRelease ||
           event.type() == QEvent::MouseButtonDblClick || event.type() == QEvent::MouseMove;
}

std::unique_ptr<ViewWidget> MakeViewWidget(ViewSurface& surface, View& view, QWidget& parent)
{
    switch (view.Kind()) {
    case ViewKind::Button:
        return std::make_unique<ButtonWidget>(surface, dynamic_cast<Button&>(view), parent);
    case ViewKind::Label:
        return std::make_unique<LabelWidget>(surface, dynamic_cast<Label&>(view), parent);
    case ViewKind::Frame:
        return std::make_unique<FrameWidget>(surface, dynamic_cast<Frame&>(view), parent);
    case ViewKind::Picture:
        return std::make_unique<PictureWidget>(surface, dynamic_cast<PictureButton&>(view), parent);
    case ViewKind::Text:
    case ViewKind::Syntax:
        return std::make_unique<TextBoxWidget>(surface, dynamic_cast<TextBox&>(view), parent);
    case ViewKind::List:
        return std::make_unique<ListWidget>(surface, dynamic_cast<ListView&>(view), parent);
    case ViewKind::Combo:
        return std::make_unique<ComboWidget>(surface, dynamic_cast<ComboBox&>(view), parent);
    case ViewKind::Grid:
        return std::make_unique<GridWidget>(surface, dynamic_cast<Grid&>(view), parent);
    case ViewKind::Tab:
        break;
    }
    return std::make_unique<TabWidget>(surface, dynamic_cast<TabControl&>(view), parent);
}

} // namespace rulemesh
