#include "desktop/view_surface.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QWidget>

#include "desktop/key_codes.h"
#include "desktop/view_widget.h"

namespace rulemesh {

namespace {

constexpr int TwipsPerInch = 1440;

bool IsInside(const QWidget* widget, const QWidget& root)
{
    return widget != nullptr && (widget == &root || root.isAncestorOf(widget));
}

} // namespace

ViewSurface::ViewSurface(ViewTree& tree, QWidget& root) : tree_(tree), root_(root)
{
    for (View* view : tree.Views()) {
        QWidget& parent = view->Parent() == nullptr ? root : Of(*view->Parent()).Pane();
        widgets_.emplace(view, MakeViewWidget(*this, *view, parent));
    }
    tree.ViewsChanged = [this] {
        if (acting_ == 0)
            QMetaObject::invokeMethod(this, &ViewSurface::Sync, Qt::QueuedConnection);
    };
    connect(qApp, &QApplication::focusChanged, this, &ViewSurface::OnFocusChanged);
    SyncAll();
}

ViewSurface::~ViewSurface()
{
    tree_.ViewsChanged = nullptr;
    qApp->disconnect(this);
    // Children before their parents, which own them too.
    for (auto view = tree_.Views().rbegin(); view != tree_.Views().rend(); ++view)
        widgets_.erase(*view);
}

ViewWidget& ViewSurface::Of(const View& view) const { return *widgets_.at(&view); }

QWidget& ViewSurface::WidgetOf(const View& view) const { return Of(view).Widget(); }

int ViewSurface::Pixels(int twips) const { return qRound(twips * root_.logicalDpiX() / double(TwipsPerInch)); }

int ViewSurface::Twips(int pixels) const { return qRound(pixels * double(TwipsPerInch) / root_.logicalDpiX()); }

bool ViewSurface::Act(const std::function<void()>& action)
{
    std::optional<Failure> raised;
    {
        const QScopedValueRollback<int> guard(acting_, acting_ + 1);
        try {
            action();
        } catch (const Failure& failure) {
            raised = failure;
        }
    }
    Sync();
    if (raised && OnFailure)
        OnFailure(*raised);
    if (acting_ == 0 && OnActed)
        OnActed();
    return !raised;
}

void ViewSurface::GoBack(const std::function<void()>& action)
{
    const QScopedValueRollback<bool> guard(goingBack_, true);
    Act(action);
}

void ViewSurface::Sync()
{
    ParkFocus();
    const QScopedValueRollback<bool> guard(following_, true);
    for (View* view : tree_.TakeChanged())
        Of(*view).Sync();
    FollowFocus();
}

void ViewSurface::SyncAll()
{
    const QScopedValueRollback<bool> guard(following_, true);
    static_cast<void>(tree_.TakeChanged());
    for (View* view : tree_.Views())
        Of(*view).Sync();
    FollowFocus();
}

// The toolkit moves its focus on from a widget that is hidden or disabled, out of the form at the end. So it goes aside
// before its widget does.
void ViewSurface::ParkFocus()
{
    const QScopedValueRollback<bool> guard(following_, true);
    QWidget* holder = root_.window()->focusWidget();
    if (!IsInside(holder, root_) || holder == &root_)
        return;
    const bool stays = std::any_of(tree_.Views().begin(), tree_.Views().end(), [&](const View* view) {
        return view->CanBeReached() && &WidgetOf(*view) == holder;
    });
    if (!stays)
        root_.setFocus(Qt::OtherFocusReason);
}

void ViewSurface::FollowFocus()
{
    const QScopedValueRollback<bool> guard(following_, true);
    QWidget* holder = root_.window()->focusWidget();
    View* focused = tree_.Focused();
    if (focused != nullptr && focused->CanBeReached()) {
        QWidget& widget = WidgetOf(*focused);
        if (holder != &widget)
            widget.setFocus(Qt::OtherFocusReason);
    } else if (IsInside(holder, root_) && holder != &root_) {
        // Nobody has it, or a button that waits for its own click to end.
        root_.setFocus(Qt::OtherFocusReason);
    }
}

// The focus that goes to another widget of the window has left the form, at once or while the window was not active;
// one that goes to a menu or another window has not.
void ViewSurface::OnFocusChanged(QWidget* old, QWidget* now)
{
    if (IsInside(old, root_))
        focusLeft_ = std::chrono::steady_clock::now();
    if (now == nullptr || now->window() != root_.window() || qobject_cast<QMenuBar*>(now) != nullptr ||
        qobject_cast<QMenu*>(now) != nullptr)
        return;
    const bool wasInside = std::exchange(focusInside_, IsInside(now, root_));
    const bool left = !focusInside_ && (wasInside || tree_.Focused() != nullptr);
    if (left && !following_ && acting_ == 0)
        Act([this] { tree_.UserLeaves(); });
}

bool ViewSurface::PressKey(View& view, QKeyEvent& event)
{
    const std::int16_t code = KeyCodeOf(event);
    if (code == 0)
        return false;
    bool cancelled = false;
    const bool done = Act([&] { cancelled = tree_.UserPressesKey(view, code, ShiftOf(event)); });
    if (OnKey) {
        OnKey(cancelled);
        return true;
    }
    return !done || cancelled || !view.HasFocus();
}

bool ViewSurface::PressKey(const QKeyEvent& event)
{
    const std::int16_t code = KeyCodeOf(event);
    if (code == 0 || tree_.Focused() != nullptr)
        return false;
    bool cancelled = false;
    Act([&] { cancelled = tree_.UserPressesKey(code, ShiftOf(event)); });
    return cancelled || tree_.Focused() != nullptr;
}

std::chrono::steady_clock::time_point ViewSurface::FocusedAt() const
{
    return IsInside(root_.window()->focusWidget(), root_) ? std::chrono::steady_clock::time_point::max() : focusLeft_;
}

bool ViewSurface::FocusFor(View& view)
{
    return Act([&] { tree_.MoveFocus(view); }) && view.HasFocus();
}

bool ViewSurface::MoveFocusByTab(bool ahead, AtTheEnd atTheEnd)
{
    if (following_)
        return false; // a widget that is hidden or disabled passes Qt's focus on; the model's moves by itself
    std::vector<View*> order;
    std::copy_if(tree_.Views().begin(), tree_.Views().end(), std::back_inserter(order),
                 [](const View* view) { return view->TakesFocus() && view->CanBeReached(); });
    if (!ahead)
        std::reverse(order.begin(), order.end());
    auto next = std::find(order.begin(), order.end(), tree_.Focused());
    next = next == order.end() ? order.begin() : next + 1;
    if (next == order.end() && atTheEnd == AtTheEnd::GoRound)
        next = order.begin();
    if (next == order.end())
        return false;
    FocusFor(**next);
    return true;
}

} // namespace rulemesh
