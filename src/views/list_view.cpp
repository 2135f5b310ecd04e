#include "views/list_view.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "base/failure.h"
#include "base/numbers.h"
#include "views/view_tree.h"

namespace rulemesh {

TextView ListView::Row::TextAt(int position) const noexcept
{
    const auto index = static_cast<std::size_t>(position);
    return index < Texts->size() ? TextView((*Texts)[index]) : TextView();
}

ListView::ListView(ViewTree& tree, const ViewDesign& view, Design design)
    : View(tree, ViewKind::List, view), design_(std::move(design))
{
}

void ListView::ColumnWidth(int column, int width)
{
    if (width < 0)
        throw Failure(FailureCode::InvalidPropertyValue,
                      u"A column of " + Text(Name()) + u" can't be " + PlainNumber(width) + u" twips wide");
    design_.Columns.at(static_cast<std::size_t>(column) - 1).Width = width;
    Changed();
}

void ListView::Sort() const
{
    sorting_.resize(rows_.size());
    std::iota(sorting_.begin(), sorting_.end(), 0U);
    const auto text = [&](std::uint32_t index) { return rows_[index].TextAt(design_.SortKey); };
    if (order_ == Order::Ascending)
        std::stable_sort(sorting_.begin(), sorting_.end(), [&](auto a, auto b) { return text(a) < text(b); });
    else
        std::stable_sort(sorting_.begin(), sorting_.end(), [&](auto a, auto b) { return text(b) < text(a); });
    sortingHolds_ = true;
}

void ListView::RaiseNoRow(ListRow row) const
{
    throw Failure(FailureCode::IndexOutOfBounds, Text(Name()) + u" has no row " + PlainNumber(row.Number()) +
                                                     u"; it has " + PlainNumber(Count()) + u", counted from 1");
}

std::size_t ListView::IndexOf(ListRow row) const
{
    if (row < 1 || row > Count())
        RaiseNoRow(row);
    const auto shown = static_cast<std::size_t>(row.Number()) - 1;
    if (!design_.Sorted)
        return shown;
    if (!sortingHolds_)
        Sort();
    return sorting_[shown];
}

ListRow ListView::RowOf(std::size_t index) const
{
    if (!design_.Sorted)
        return static_cast<int>(index) + 1;
    if (!sortingHolds_)
        Sort();
    return static_cast<int>(std::find(sorting_.begin(), sorting_.end(), index) - sorting_.begin()) + 1;
}

const ListView::Row& ListView::At(ListRow row) const { return rows_[IndexOf(row)]; }

Text ListView::TextAt(ListRow row, int position) const { return Text(At(row).TextAt(position)); }

void ListView::RowsChanged()
{
    sortingHolds_ = false;
    ++rowChanges_;
    Changed();
}

void ListView::Clear()
{
    rows_.clear();
    current_.reset();
    anchor_.reset();
    scrollRequest_ = NoListRow;
    RowsChanged();
}

void ListView::Add(std::vector<Text> texts)
{
    rows_.push_back({.Texts = std::make_shared<const std::vector<Text>>(std::move(texts))});
    RowsChanged();
}

void ListView::Insert(ListRow row, std::vector<Text> texts)
{
    if (row < 1 || row > Count() + 1)
        RaiseNoRow(row);
    const auto at = static_cast<std::size_t>(row.Number()) - 1;
    rows_.insert(at, {.Texts = std::make_shared<const std::vector<Text>>(std::move(texts))});
    for (std::optional<std::size_t>* kept : {&current_, &anchor_}) {
        if (*kept >= at)
            ++**kept;
    }
    RowsChanged();
}

void ListView::Remove(ListRow row)
{
    const std::size_t index = IndexOf(row);
    rows_.erase(index);
    for (std::optional<std::size_t>* kept : {&current_, &anchor_}) {
        if (*kept == index)
            kept->reset();
        else if (*kept > index)
            --**kept;
    }
    scrollRequest_ = NoListRow;
    RowsChanged();
}

ListRow ListView::SelectedRow() const
{
    for (ListRow row = 1; row <= Count(); ++row) {
        if (At(row).Selected)
            return row;
    }
    return NoListRow;
}

void ListView::SelectOnly(std::size_t index)
{
    for (std::size_t row = 0; row < rows_.size(); ++row)
        SetSelected(row, row == index);
    current_ = anchor_ = index;
    Changed();
}

// A row that stays as it is goes on being shared.
void ListView::SetSelected(std::size_t index, bool selected)
{
    if (rows_[index].Selected != selected)
        rows_.Change(index).Selected = selected;
}

void ListView::Select(ListRow row, bool selected)
{
    const std::size_t index = IndexOf(row);
    if (selected && design_.Select == Selection::Single)
        SelectOnly(index);
    else
        SetSelected(index, selected);
    Changed();
}

void ListView::Check(ListRow row, bool checked)
{
    const std::size_t index = IndexOf(row);
    if (rows_[index].Checked != checked)
        rows_.Change(index).Checked = checked;
    Changed();
}

void ListView::EnsureVisible(ListRow row)
{
    static_cast<void>(IndexOf(row));
    scrollRequest_ = row;
    Changed();
}

void ListView::Sorted(bool sorted)
{
    design_.Sorted = sorted;
    RowsChanged();
}

void ListView::SortKey(int position)
{
    design_.SortKey = position;
    RowsChanged();
}

void ListView::SortOrder(Order order)
{
    order_ = order;
    RowsChanged();
}

// A list is often filled anew with what it held: such rows are shared with those that were taken before.
std::unique_ptr<ViewValues> ListView::CopyOwnValues() const
{
    const auto share = [](Row& row, const Row& former) {
        if (row.Texts != former.Texts && *row.Texts == *former.Texts)
            row.Texts = former.Texts;
        return row.Texts == former.Texts && row.Selected == former.Selected && row.Checked == former.Checked;
    };
    const auto bytes = [](const Row& row) {
        std::size_t held = 0;
        for (const Text& text : *row.Texts)
            held += sizeof(Text) + text.capacity() * sizeof(char16_t);
        return held;
    };
    const std::size_t alone = rows_.ShareWith(taken_, share, bytes);
    taken_ = rows_;
    return CopyOf(std::tie(rows_, current_, anchor_, order_, design_.Sorted, design_.SortKey), alone);
}

void ListView::PutOwnValuesBack(const ViewValues& values)
{
    PutBack(values, std::tie(rows_, current_, anchor_, order_, design_.Sorted, design_.SortKey));
    RowsChanged();
}

void ListView::BeforeGotFocus()
{
    if (Count() > 0 && SelectedRow() == NoListRow)
        Select(1, true);
}

} // namespace rulemesh
