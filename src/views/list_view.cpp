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
    return index < Texts.size() ? TextView(Texts[index]) : TextView();
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

void ListView::RaiseNoRow(int row) const
{
    throw Failure(FailureCode::IndexOutOfBounds, Text(Name()) + u" has no row " + PlainNumber(row) + u"; it has " +
                                                     PlainNumber(Count()) + u", counted from 1");
}

std::size_t ListView::IndexOf(int row) const
{
    if (row < 1 || row > Count())
        RaiseNoRow(row);
    const auto shown = static_cast<std::size_t>(row) - 1;
    if (!design_.Sorted)
        return shown;
    if (!sortingHolds_)
        Sort();
    return sorting_[shown];
}

int ListView::RowOf(std::size_t index) const
{
    if (!design_.Sorted)
        return static_cast<int>(index) + 1;
    if (!sortingHolds_)
        Sort();
    return static_cast<int>(std::find(sorting_.begin(), sorting_.end(), index) - sorting_.begin()) + 1;
}

const ListView::Row& ListView::At(int row) const { return rows_[IndexOf(row)]; }

Text ListView::TextAt(int row, int position) const { return Text(At(row).TextAt(position)); }

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
    scrollRequest_ = 0;
    RowsChanged();
}

void ListView::Add(std::vector<Text> texts)
{
    rows_.push_back({.Texts = std::move(texts)});
    RowsChanged();
}

void ListView::Insert(int row, std::vector<Text> texts)
{
    if (row < 1 || row > Count() + 1)
        RaiseNoRow(row);
    const auto at = static_cast<std::size_t>(row) - 1;
    rows_.insert(rows_.begin() + (row - 1), {.Texts = std::move(texts)});
    for (std::optional<std::size_t>* kept : {&current_, &anchor_}) {
        if (*kept >= at)
            ++**kept;
    }
    RowsChanged();
}

void ListView::Remove(int row)
{
    const std::size_t index = IndexOf(row);
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(index));
    for (std::optional<std::size_t>* kept : {&current_, &anchor_}) {
        if (*kept == index)
            kept->reset();
        else if (*kept > index)
            --**kept;
    }
    scrollRequest_ = 0;
    RowsChanged();
}

int ListView::SelectedRow() const
{
    for (int row = 1; row <= Count(); ++row) {
        if (At(row).Selected)
            return row;
    }
    return 0;
}

void ListView::SelectOnly(std::size_t index)
{
    for (Row& row : rows_)
        row.Selected = false;
    rows_[index].Selected = true;
    current_ = anchor_ = index;
    Changed();
}

void ListView::Select(int row, bool selected)
{
    const std::size_t index = IndexOf(row);
    if (selected && design_.Select == Selection::Single)
        SelectOnly(index);
    else
        rows_[index].Selected = selected;
    Changed();
}

void ListView::Check(int row, bool checked)
{
    rows_[IndexOf(row)].Checked = checked;
    Changed();
}

void ListView::EnsureVisible(int row)
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

void ListView::BeforeGotFocus()
{
    if (Count() > 0 && SelectedRow() == 0)
        Select(1, true);
}

} // namespace rulemesh
