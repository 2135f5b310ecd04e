#include "views/view.h"

#include <utility>

#include "base/failure.h"
#include "base/numbers.h"
#include "views/view_tree.h"

namespace rulemesh {

namespace {

int CheckedLength(int length, TextView view, TextView what)
{
    if (length < 0)
        throw Failure(FailureCode::InvalidPropertyValue,
                      Text(what) + u" of " + Text(view) + u" can't be " + PlainNumber(length) + u" twips");
    return length;
}

} // namespace

View::View(ViewTree& tree, ViewKind kind, const ViewDesign& design)
    : tree_(tree), kind_(kind), name_(design.Name), parent_(design.Parent), place_(design.Place),
      visible_(design.Visible), floats_(design.Floats), looksAround_(design.LooksAround), toolTip_(design.ToolTip),
      font_(design.Type)
{
    tree_.Add(*this);
}

void View::Visible(bool visible)
{
    visible_ = visible;
    Changed();
    tree_.ReleaseUnreachable();
}

void View::Enabled(bool enabled)
{
    enabled_ = enabled;
    Changed();
    tree_.ReleaseUnreachable();
}

void View::Left(int left)
{
    place_.Left = left;
    Changed();
}

void View::Top(int top)
{
    place_.Top = top;
    Changed();
}

void View::Width(int width)
{
    place_.Width = CheckedLength(width, name_, u"The width");
    Changed();
}

void View::Height(int height)
{
    place_.Height = CheckedLength(height, name_, u"The height");
    Changed();
}

void View::ToolTip(Text text)
{
    toolTip_ = std::move(text);
    Changed();
}

void View::Type(const Font& font)
{
    font_ = font;
    Changed();
}

void View::Changed()
{
    ChangedUnseen();
    TellFrontEnd();
}

void View::TellFrontEnd()
{
    if (!std::exchange(changed_, true))
        tree_.NoteChange(*this);
}

namespace {

// The values that all views have, with those of the kind.
struct WholeValues : ViewValues {
    Placement Place;
    bool Visible = false;
    bool Enabled = false;
    Text ToolTip;
    Font Type;
    std::unique_ptr<ViewValues> Own;

    [[nodiscard]] std::size_t Bytes() const noexcept override
    {
        return sizeof *this + ToolTip.capacity() * sizeof(char16_t) + Own->Bytes();
    }
};

} // namespace

std::shared_ptr<const ViewValues> View::Values() const
{
    if (!values_) {
        auto values = std::make_shared<WholeValues>();
        values->Place = place_;
        values->Visible = visible_;
        values->Enabled = enabled_;
        values->ToolTip = toolTip_;
        values->Type = font_;
        values->Own = CopyOwnValues();
        values_ = std::move(values);
    }
    return values_;
}

void View::Values(const std::shared_ptr<const ViewValues>& values)
{
    if (values == values_)
        return;
    const auto& whole = static_cast<const WholeValues&>(*values);
    if (floats_)
        place_ = whole.Place;
    place_.Top = whole.Place.Top;
    if (kind_ != ViewKind::Tab && kind_ != ViewKind::Frame)
        place_.Height = whole.Place.Height;
    visible_ = whole.Visible;
    enabled_ = whole.Enabled;
    toolTip_ = whole.ToolTip;
    font_ = whole.Type;
    PutOwnValuesBack(*whole.Own);
    Changed();
    values_ = values;
}

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
