#include "views/view_tree.h"

#include <algorithm>
#include <utility>

namespace rulemesh {

View* ViewTree::Find(TextView name) const noexcept
{
    const auto found =
        std::find_if(views_.begin(), views_.end(), [&](const View* view) { return view->Name() == name; });
    return found == views_.end() ? nullptr : *found;
}

// Each view notes itself once at most, so that there is room for all of them, also where nothing may fail.
void ViewTree::Add(View& view)
{
    views_.push_back(&view);
    changed_.reserve(views_.capacity());
}

void ViewTree::NoteChange(View& view)
{
    changed_.push_back(&view);
    if (changed_.size() == 1)
        Run(ViewsChanged);
}

std::vector<View*> ViewTree::TakeChanged()
{
    std::vector<View*> taken;
    taken.reserve(views_.size());
    taken.swap(changed_);
    for (View* view : taken)
        view->changed_ = false;
    return taken;
}

ViewTree::Moment ViewTree::Now() const
{
    Moment moment;
    moment.Values.reserve(views_.size());
    for (const View* view : views_)
        moment.Values.push_back(view->Values());
    moment.Focused = focused_;
    return moment;
}

void ViewTree::PutBack(const Moment& moment)
{
    for (std::size_t view = 0; view < views_.size(); ++view)
        views_[view]->Values(moment.Values[view]);
    GiveFocusTo(moment.Focused);
}

// The focus is no value of a view's: what was taken of the two holds on.
void ViewTree::GiveFocusTo(View* view)
{
    for (View* touched : {focused_, view}) {
        if (touched != nullptr)
            touched->TellFrontEnd();
    }
    focused_ = view;
}

void ViewTree::TakeFocusFrom(View& view)
{
    GiveFocusTo(nullptr);
    Run(view.LostFocus);
}

bool ViewTree::MoveFocus(View& view)
{
    if (!view.TakesFocus() || !view.CanBeReached())
        return false;
    const unsigned move = ++moves_;
    if (focused_ == &view)
        return true; // runs nothing, and is no action
    const ActionScope action(Acting, {Action::Kind::Move, view.GotFocus.Action});
    if (focused_ != nullptr) {
        TakeFocusFrom(*focused_);
        if (moves_ != move || !view.CanBeReached())
            return false;
    }
    GiveFocusTo(&view);
    view.BeforeGotFocus();
    Run(view.GotFocus);
    return focused_ == &view;
}

void ViewTree::ReleaseUnreachable()
{
    if (focused_ == nullptr || focused_->CanBeReached())
        return;
    // A button that its own click disables keeps the focus until the click has ended.
    const bool kept = focused_ == clicked_ && focused_->Visible() && focused_->ParentsCanBeReached();
    if (!kept)
        TakeFocusFrom(*focused_);
}

void ViewTree::UserLeaves()
{
    const ActionScope action(Acting, {Action::Kind::Move, ExitFocus.Action});
    if (focused_ != nullptr)
        TakeFocusFrom(*focused_);
    if (focused_ == nullptr)
        Run(ExitFocus);
}

bool ViewTree::UserPressesKey(View& view, std::int16_t KeyCode, std::int16_t Shift)
{
    constexpr std::int16_t DeleteKey = 46;
    const bool deletes = KeyCode == DeleteKey && view.Kind() == ViewKind::List;
    const ActionScope action(Acting, {deletes ? Action::Kind::Step : Action::Kind::Key, u"Delete", &view});
    if (!MoveFocus(view))
        return false;
    const std::int16_t pressed = KeyCode;
    Run(KeyDown, KeyCode, Shift);
    Run(view.KeyDown, KeyCode, Shift);
    return KeyCode != pressed;
}

bool ViewTree::UserPressesKey(std::int16_t KeyCode, std::int16_t Shift)
{
    const ActionScope action(Acting, {Action::Kind::Move, KeyDown.Action});
    const std::int16_t pressed = KeyCode;
    Run(KeyDown, KeyCode, Shift);
    return KeyCode != pressed;
}

} // namespace rulemesh
