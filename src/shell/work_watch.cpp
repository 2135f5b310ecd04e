#include "shell/work_watch.h"

#include <new>
#include <utility>

namespace rulemesh {

namespace {

// What a move stores, such as the rules of a dump that is left, was work before: it is told without a comparison, which
// would cost as much as the store.
bool LooksAround(const Action& action) noexcept
{
    return action.What == Action::Kind::Move || action.What == Action::Kind::Key;
}

} // namespace

WorkWatch::WorkWatch(XmlDocument& document, DesignerViews& views, Moments& moments, History& history,
                     ControlEvents& events)
    : XmlDocument_(document), moments_(moments), history_(history), events_(events)
{
    XmlDocument_.KeepEdits();
    views.Tree.Acting.Begins = [this](const Action&) { ActionBegins(); };
    views.Tree.Acting.Ends = [this](const Action& action) { ActionEnds(action); };
}

void WorkWatch::ActionBegins()
{
    try {
        history_.KeepAsMoves(XmlDocument_.TakeEdits());
        Begun begun{moments_.Now(), moments_.WorkNow()};
        begun_ = std::move(begun);
    } catch (const std::bad_alloc&) {
        history_.Forget();
    }
}

// Without the memory to remember a change, nothing before it can be put back either.
void WorkWatch::ActionEnds(const Action& action)
{
    bool changed = true;
    try {
        DocumentEdits edits = XmlDocument_.TakeEdits();
        if (action.What == Action::Kind::Begin || !begun_) {
            history_.Forget();
        } else {
            changed = LooksAround(action)
                          ? !edits.IsEmpty()
                          : XmlDocument_.ChangeText(edits) || !moments_.WorkNow().IsSameAs(begun_->WorkBefore);
            history_.ActionEnds(action, changed, std::move(begun_->Before), std::move(edits));
        }
    } catch (const std::bad_alloc&) {
        history_.Forget();
    }
    begun_.reset();
    if (changed)
        events_.WorkChanged();
}

} // namespace rulemesh
