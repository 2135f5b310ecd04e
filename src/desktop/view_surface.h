#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include <QObject>

#include "base/failure.h"
#include "views/view_tree.h"

class QKeyEvent;
class QWidget;

namespace rulemesh {

class ViewWidget;

/// The real widgets of one form: one for each view of a ViewTree. Holds no state of its own: what a view shows is
/// brought to its widget after each action, and input goes to the view's entrances.
///
/// The model owns the focus. No widget takes it by itself when it is clicked or tabbed to; an action moves the model's
/// focus, and Qt's follows.
class ViewSurface : public QObject {
    Q_OBJECT

public:
    /// Builds the widgets under `root`. Both must outlive the surface.
    ViewSurface(ViewTree& tree, QWidget& root);
    ~ViewSurface() override;

    [[nodiscard]] ViewTree& Tree() noexcept { return tree_; }
    [[nodiscard]] QWidget& Root() noexcept { return root_; }

    /// The widget that stands for a view.
    [[nodiscard]] QWidget& WidgetOf(const View& view) const;
    [[nodiscard]] ViewWidget& Of(const View& view) const;

    /// Does what a user or host did, catches a failure, and brings the widgets up to date.
    void Act(const std::function<void()>& action);

    /// What is told of a failure that ended an action.
    std::function<void(const Failure&)> OnFailure;
    std::function<void()> OnActed;

    /// Brings what changed to the widgets. Called by itself before control returns to the event loop.
    void Sync();

    /// Brings everything to the widgets, for a new density or font.
    void SyncAll();

    /// Whole twips of the design in pixels of the screen, and back.
    [[nodiscard]] int Pixels(int twips) const;
    [[nodiscard]] int Twips(int pixels) const;

    /// The user presses a key on a view: true when the designer took it, so that the widget must not.
    bool PressKey(View& view, QKeyEvent& event);

    /// Moves the focus as the tab key does, to the view ahead or back in the order of the design; past the last one
    /// when there is none. False when it left the form.
    bool MoveFocusByTab(bool ahead);

    /// Moves the focus to a view, as a click on it begins with. True when it got there.
    bool FocusFor(View& view);

private:
    void FollowFocus();
    void OnFocusChanged(QWidget* old, QWidget* now);

    ViewTree& tree_;
    QWidget& root_;
    std::map<const View*, std::unique_ptr<ViewWidget>> widgets_;
    int acting_ = 0;
    bool following_ = false;
};

} // namespace rulemesh
