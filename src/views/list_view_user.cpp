#include <algorithm>

#include "base/case_map.h"
#include "views/list_view.h"
#include "views/view_tree.h"

namespace rulemesh {

ListRow ListView::CurrentRow() const { return current_ ? RowOf(*current_) : SelectedRow(); }

void ListView::UserClicksRow(ListRow row)
{
    const ActionScope action(Tree().Acting, {Action::Kind::Move, ItemClick.Action});
    if (!Tree().MoveFocus(*this) || row > Count())
        return;
    SelectOnly(IndexOf(row));
    Run(ItemClick, row);
}

void ListView::UserTicks(ListRow row, bool checked)
{
    const ActionScope action(Tree().Acting, {Action::Kind::Move, ItemCheck.Action});
    if (!Tree().MoveFocus(*this) || row > Count() || At(row).Checked == checked)
        return;
    current_ = anchor_ = IndexOf(row);
    Check(row, checked);
    Run(ItemCheck);
}

// What the user does to one of several rows; in a list of single selection a plain click.
template <typename Change> void ListView::ChangeSelection(ListRow row, Change change)
{
    const ActionScope action(Tree().Acting, {Action::Kind::Move, ItemClick.Action});
    if (!TakesSeveral())
        UserClicksRow(row);
    else if (Tree().MoveFocus(*this) && row <= Count())
        change(IndexOf(row));
}

void ListView::UserTogglesRow(ListRow row)
{
    ChangeSelection(row, [&](std::size_t index) {
        SetSelected(index, !rows_[index].Selected);
        current_ = anchor_ = index;
        Changed();
        Run(ItemClick, row);
    });
}

void ListView::UserExtendsTo(ListRow row)
{
    ChangeSelection(row, [&](std::size_t index) {
        if (!anchor_)
            anchor_ = CurrentRow() == NoListRow ? index : IndexOf(CurrentRow());
        const ListRow anchor = RowOf(*anchor_);
        const ListRow first = std::min(anchor, row);
        const ListRow last = std::max(anchor, row);
        for (ListRow each = 1; each <= Count(); ++each)
            SetSelected(IndexOf(each), each >= first && each <= last);
        current_ = index;
        Changed();
        Run(ItemClick, row);
    });
}

void ListView::UserMovesTo(ListRow row)
{
    ChangeSelection(row, [&](std::size_t index) {
        current_ = index;
        Changed();
    });
}

void ListView::UserClicksHeader(int column)
{
    const ActionScope action(Tree().Acting, {Action::Kind::Move, ColumnClick.Action});
    Run(ColumnClick, column);
}

ListRow ListView::RowBeginningWith(TextView typed, ListRow row) const
{
    const Text sought = ToUpper(typed);
    const auto begins = [&](TextView text) { return ToUpper(text.substr(0, sought.size())) == sought; };
    for (int step = 1; step <= Count(); ++step) {
        const ListRow candidate = (row.Number() + step - 1) % Count() + 1;
        const TextView text = At(candidate).TextAt(design_.SearchPosition);
        const std::size_t point = text.find(u'.');
        if (begins(text) || (point != TextView::npos && begins(text.substr(point + 1))))
            return candidate;
    }
    return NoListRow;
}

} // namespace rulemesh
