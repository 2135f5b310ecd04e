#pragma once

#include <chrono>
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

    /// Does what a user or host did, catches a failure, and brings the widgets up to date. False when a failure ended
    /// the action: what the same input would have gone on to do does not happen.
    bool Act(const std::function<void()>& action);

    /// What is told of a failure that ended an action.
    std::function<void(const Failure&)> OnFailure;
    std::function<void()> OnActed;

    /// The history of what the form works on, where it has one: the boxes' own commands go there then.
    class StepHistory {
    public:
        virtual ~StepHistory() = default;
        virtual void Undo() = 0;
        virtual void Redo() = 0;
        [[nodiscard]] virtual bool CanUndo() const = 0;
        [[nodiscard]] virtual bool CanRedo() const = 0;
    };
    StepHistory* History = nullptr; // borrowed

    /// Brings what an undo or redo put back to the widgets: the carets go to where texts changed.
    void GoBack(const std::function<void()>& action);
    [[nodiscard]] bool IsGoingBack() const noexcept { return goingBack_; }

    /// For automation: where this is set, keys end at the designer's own handlers, and it is told whether one of them
    /// cancelled the key; what a widget makes of a key by itself does not happen.
    std::function<void(bool cancelled)> OnKey;

    /// Brings what changed to the widgets. Called by itself before control returns to the event loop.
    void Sync();

    [[nodiscard]] bool IsSyncing() const noexcept { return following_; }

    /// Brings everything to the widgets, for a new density or font.
    void SyncAll();

    /// Whole twips of the design in pixels of the screen, and back.
    [[nodiscard]] int Pixels(int twips) const;
    [[nodiscard]] int Twips(int pixels) const;

    /// The user presses a key on a view: true when the designer took it, so that the widget must not.
    bool PressKey(View& view, QKeyEvent& event);

    /// Moves the focus as the tab key does, to the view ahead or back in the order of the design. False at the end of a
    /// form that is to be left there.
    enum class AtTheEnd { Leave, GoRound };
    bool MoveFocusByTab(bool ahead, AtTheEnd atTheEnd = AtTheEnd::Leave);

    /// Moves the focus to a view, as a click on it begins with. True when it got there.
    bool FocusFor(View& view);

    /// Brings Qt's focus to where the model has it.
    void FollowFocus();

    /// A key goes down while no view has the focus: the form's own handler sees it. True when that took it.
    bool PressKey(const QKeyEvent& event);

    /// When the focus was in the form last; the beginning of the clock for one that it never was in.
    [[nodiscard]] std::chrono::steady_clock::time_point FocusedAt() const;

private:
    void OnFocusChanged(QWidget* old, QWidget* now);
    void ParkFocus();

    ViewTree& tree_;
    QWidget& root_;
    std::map<const View*, std::unique_ptr<ViewWidget>> widgets_;
    int acting_ = 0;
    bool following_ = false;
    bool goingBack_ = false;
    bool focusInside_ = false;                        // when the window's focus was told of last
    std::chrono::steady_clock::time_point focusLeft_; // when the focus was last seen to go
};

} // namespace rulemesh
