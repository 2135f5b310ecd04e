#include "views/button.h"

#include <utility>

#include "views/view_tree.h"

namespace rulemesh {

void Button::UserClicks()
{
    const ActionScope action(Tree().Acting, {LooksAround() ? Action::Kind::Move : Action::Kind::Step, Click.Action});
    if (!Tree().MoveFocus(*this))
        return;

    class ClickGuard {
    public:
        ClickGuard(ViewTree& tree, const Button& button) : tree_(tree), outer_(std::exchange(tree.clicked_, &button)) {}
        ClickGuard(const ClickGuard&) = delete;
        ClickGuard& operator=(const ClickGuard&) = delete;
        ~ClickGuard()
        {
            const View* button = std::exchange(tree_.clicked_, outer_);
            if (tree_.focused_ == button && !button->CanBeReached())
                tree_.GiveFocusTo(nullptr); // a button has no lost-focus handler to run
        }

    private:
        ViewTree& tree_;
        const View* outer_;
    };
    const ClickGuard guard(Tree(), *this);
    Run(Click);
}

void PictureButton::UserClicks()
{
    const ActionScope action(Tree().Acting, {Action::Kind::Move, Click.Action});
    Run(Click);
}

} // namespace rulemesh
