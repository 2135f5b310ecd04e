#pragma once

#include <vector>

#include "views/actions.h"
#include "views/view.h"

namespace rulemesh {

class Button;

/// All views of one form, and the focus that one of them may have. Every habit of the focus lives here:
///
/// - moving it runs the old view's lost-focus handler and then the new view's got-focus handler;
/// - while a lost-focus handler runs, no view has the focus;
/// - a move made inside a lost-focus handler wins over the move that set it off;
/// - a view that can't be reached any more loses the focus to none.
class ViewTree {
public:
    ViewTree() = default;
    ViewTree(const ViewTree&) = delete;
    ViewTree& operator=(const ViewTree&) = delete;

    [[nodiscard]] const std::vector<View*>& Views() const noexcept { return views_; }

    /// The view of that name, or none.
    [[nodiscard]] View* Find(TextView name) const noexcept;

    /// The view that has the focus, or none.
    [[nodiscard]] View* Focused() const noexcept { return focused_; }

    /// Moves the focus to a view that can be reached; false when this move did not bring the focus there.
    bool MoveFocus(View& view);

    /// Takes the focus from a view that was hidden or disabled, itself or through a parent or the tab.
    void ReleaseUnreachable();

    /// The user takes the focus out of the form as a whole.
    void UserLeaves();

    /// A key goes down on a view: the form's handler sees it first. True when a handler cancelled it.
    bool UserPressesKey(View& view, std::int16_t KeyCode, std::int16_t Shift);

    /// A key goes down in the form while no view has the focus: only the form's handler sees it. True when it cancelled
    /// the key.
    bool UserPressesKey(std::int16_t KeyCode, std::int16_t Shift);

    /// What all views show and know, and which has the focus. Costs a pointer for each view that did not change.
    struct Moment {
        std::vector<std::shared_ptr<const ViewValues>> Values;
        View* Focused = nullptr;

        friend bool operator==(const Moment&, const Moment&) = default;
    };
    [[nodiscard]] Moment Now() const;

    /// Puts everything back as it was, without running a handler.
    void PutBack(const Moment& moment);

    /// What the user does to the views, from its beginning to its end.
    Actions Acting;

    KeySlot KeyDown;
    Slot ExitFocus;

    /// Run when a view changes, or the focus moves, for the first time since the front end looked.
    Slot ViewsChanged;

    /// The views that changed since the last call.
    [[nodiscard]] std::vector<View*> TakeChanged();

private:
    friend class View;
    friend class Button;

    void Add(View& view);
    void NoteChange(View& view);
    void GiveFocusTo(View* view);
    void TakeFocusFrom(View& view);

    std::vector<View*> views_;
    std::vector<View*> changed_;
    View* focused_ = nullptr;
    const View* clicked_ = nullptr; // the button whose click is running
    unsigned moves_ = 0;            // counts the moves that reached a view, to tell when another one won
};

} // namespace rulemesh
