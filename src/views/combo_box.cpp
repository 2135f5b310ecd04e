#include "views/combo_box.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "views/view_tree.h"

namespace rulemesh {

void ComboBox::Clear()
{
    entries_.clear();
    index_ = None;
    Changed();
}

void ComboBox::AddItem(rulemesh::Text text, std::int32_t data)
{
    entries_.push_back({std::move(text), data});
    Changed();
}

void ComboBox::ListIndex(int index)
{
    if (index < None || index >= static_cast<int>(entries_.size()))
        throw Failure(FailureCode::InvalidPropertyValue,
                      rulemesh::Text(Name()) + u" has no entry " + PlainNumber(index) + u"; it has " +
                          PlainNumber(static_cast<std::int64_t>(entries_.size())) + u", counted from 0");
    if (index == index_)
        return;
    index_ = index;
    Changed();
    if (HasSelection())
        Run(Click);
}

const ComboBox::Entry& ComboBox::Selected() const
{
    if (!HasSelection())
        throw Failure(FailureCode::ObjectVariableNotSet, u"No entry of " + rulemesh::Text(Name()) + u" is selected");
    return entries_[static_cast<std::size_t>(index_)];
}

void ComboBox::UserChooses(int index)
{
    const ActionScope action(Tree().Acting, {Action::Kind::Move, Click.Action});
    if (!Tree().MoveFocus(*this) || index >= static_cast<int>(entries_.size()))
        return;
    index_ = index;
    Changed();
    Run(Click);
}

} // namespace rulemesh
