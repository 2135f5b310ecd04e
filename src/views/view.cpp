#include "views/view.h"

#include "base/failure.h"
#include "views/view_tree.h"

namespace rulemesh {

namespace {

int CheckedLength(int length)
{
    if (length < 0)
        throw Failure(FailureCode::InvalidPropertyValue);
    return length;
}

} // namespace

View::View(ViewTree& tree, ViewKind kind, const ViewDesign& design)
    : tree_(tree), kind_(kind), name_(design.Name), parent_(design.Parent), place_(design.Place),
      visible_(design.Visible), toolTip_(design.ToolTip), font_(design.Type)
{
    tree_.Add(*this);
}

void View::Visible(bool visible)
{
    visible_ = visible;
    tree_.ReleaseUnreachable();
}

void View::Enabled(bool enabled)
{
    enabled_ = enabled;
    tree_.ReleaseUnreachable();
}

void View::Width(int width) { place_.Width = CheckedLength(width); }

void View::Height(int height) { place_.Height = CheckedLength(height); }

bool View::ParentsCanBeReached() const noexcept
{
    for (const View* view = this; view->parent_ != nullptr; view = view->parent_) {
        const View& parent = *view->parent_;
        if (!parent.visible_ || !parent.enabled_ || !parent.Shows(*view))
            return false;
    }
    return true;
}

bool View::CanBeReached() const noexcept { return visible_ && enabled_ && ParentsCanBeReached(); }

bool View::HasFocus() const noexcept { return tree_.Focused() == this; }

void View::SetFocus() { tree_.MoveFocus(*this); }

bool View::TakesFocus() const noexcept
{
    return kind_ != ViewKind::Label && kind_ != ViewKind::Frame && kind_ != ViewKind::Picture;
}

} // namespace rulemesh
