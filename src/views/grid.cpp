#include "views/grid.h"

#include <algorithm>
#include <utility>

#include "base/numbers.h"
#include "views/text_box.h"
#include "views/view_tree.h"

namespace rulemesh {

bool Grid::Has(GridRow row, int col) const noexcept
{
    return row >= 0 && row < Rows() && col >= 0 && col < ColumnCount;
}

void Grid::RaiseNoCell(FailureCode code, GridRow row, int col) const
{
    throw Failure(code, rulemesh::Text(Name()) + u" has no cell in row " + PlainNumber(row.Number()) + u" and column " +
                            PlainNumber(col) + u"; it has " + PlainNumber(Rows()) + u" rows and " +
                            PlainNumber(ColumnCount) + u" columns, counted from 0");
}

void Grid::ClearRows()
{
    rows_.clear();
    row_ = 0;
    topRow_ = 0;
    Changed();
}

void Grid::AddItem(Cells cells)
{
    rows_.push_back(std::move(cells));
    Changed();
}

void Grid::MakeCurrent(GridRow row, int col)
{
    if (row == row_ && col == col_)
        return;
    Run(LeaveCell);
    row_ = row;
    col_ = col;
    Changed();
    Run(EnterCell);
}

void Grid::Row(GridRow row)
{
    if (row == row_)
        return;
    if (!Has(row, 0))
        RaiseNoCell(FailureCode::InvalidPropertyValue, row, col_);
    MakeCurrent(row, col_);
}

void Grid::Col(int col)
{
    if (col < 0 || col >= ColumnCount)
        RaiseNoCell(FailureCode::InvalidPropertyValue, row_, col);
    MakeCurrent(row_, col);
}

const Text& Grid::TextMatrix(GridRow row, int col) const
{
    if (!Has(row, col))
        RaiseNoCell(FailureCode::InvalidPropertyArrayIndex, row, col);
    return rows_[static_cast<std::size_t>(row.Number())][static_cast<std::size_t>(col)];
}

void Grid::TextMatrix(GridRow row, int col, rulemesh::Text text)
{
    if (!Has(row, col))
        RaiseNoCell(FailureCode::InvalidPropertyArrayIndex, row, col);
    rows_.Change(static_cast<std::size_t>(row.Number()))[static_cast<std::size_t>(col)] = std::move(text);
    Changed();
}

// A grid is often filled anew with what it held: such rows are shared with those that were taken before.
std::unique_ptr<ViewValues> Grid::CopyOwnValues() const
{
    const auto same = [](const Cells& cells, const Cells& former) { return cells == former; };
    const auto bytes = [](const Cells& cells) {
        return (cells[0].capacity() + cells[1].capacity()) * sizeof(char16_t);
    };
    const std::size_t alone = rows_.ShareWith(taken_, same, bytes);
    taken_ = rows_;
    return CopyOf(std::tie(rows_, row_, col_, topRow_), alone);
}

GridRow Grid::TopRowFor(GridRow row) const noexcept { return std::clamp<GridRow>(row, 0, std::max(Rows() - 1, 0)); }

void Grid::TopRow(GridRow row)
{
    if (row < 0)
        RaiseNoCell(FailureCode::InvalidPropertyValue, row, 0);
    topRow_ = TopRowFor(row);
    Changed();
}

bool Grid::RowIsVisible(GridRow row) const noexcept { return row < Rows() && Places().Fits(row, Height()); }

void Grid::ColWidth(int col, int width)
{
    if (width < 0)
        throw Failure(FailureCode::InvalidPropertyValue,
                      u"A column of " + rulemesh::Text(Name()) + u" can't be " + PlainNumber(width) + u" twips wide");
    widths_.at(static_cast<std::size_t>(col)) = width;
    Changed();
}

Placement Grid::CurrentCell() const noexcept
{
    return {.Left = col_ == 0 ? 0 : widths_[0],
            .Top = Places().TopOf(row_),
            .Width = widths_[static_cast<std::size_t>(col_)],
            .Height = RowHeight};
}

void Grid::UserClicksCell(GridRow row, int col, Clicks clicks)
{
    const ActionScope action(Tree().Acting, {Action::Kind::Move, Click.Action});
    if (!Tree().MoveFocus(*this) || !RowIsVisible(row))
        return;
    MakeCurrent(row, col);
    if (clicks != Clicks::Second)
        Run(Click);
    if (clicks != Clicks::Single)
        Run(DblClick);
}

Action Grid::ActionOf(std::int16_t KeyAscii, const Grid& grid)
{
    const bool types = KeyAscii < 0 || KeyAscii > u' ';
    return {types ? Action::Kind::Typing : Action::Kind::Key, u"Typing", &grid};
}

void Grid::UserPresses(std::int16_t KeyAscii)
{
    const ActionScope action(Tree().Acting, ActionOf(KeyAscii, *this));
    if (Tree().MoveFocus(*this))
        Run(KeyPress, KeyAscii);
}

void Grid::UserTypes(TextView text)
{
    const ActionScope action(Tree().Acting, {Action::Kind::Typing, u"Typing", this});
    if (text.empty())
        return;
    UserPresses(static_cast<std::int16_t>(text.front()));
    auto* box = dynamic_cast<TextBox*>(Tree().Focused());
    if (text.size() == 1 || box == nullptr)
        return;
    rulemesh::Text whole = box->Text();
    whole.insert(box->SelStart(), text.substr(1));
    box->UserTypes(std::move(whole));
}

void Grid::UserMovesTo(GridRow row, int col)
{
    const ActionScope action(Tree().Acting, {Action::Kind::Move, Click.Action});
    if (!Tree().MoveFocus(*this) || Rows() == 0)
        return;
    MakeCurrent(std::clamp<GridRow>(row, 0, Rows() - 1), col);
    UserScrollsToShow(row_);
}

void Grid::UserScrollsToShow(GridRow row)
{
    if (row < topRow_)
        UserScrolls(row);
    else if (!RowIsVisible(row))
        UserScrolls(row - std::max(Places().CountIn(Height()), 1) + 1);
}

void Grid::UserScrolls(GridRow top)
{
    const ActionScope action(Tree().Acting, {Action::Kind::Move, Scroll.Action});
    const GridRow row = TopRowFor(top);
    if (row == topRow_)
        return;
    topRow_ = row;
    Changed();
    Run(Scroll);
}

} // namespace rulemesh
