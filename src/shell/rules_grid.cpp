#include "shell/rules_grid.h"

#include "base/numbers.h"
#include "views/field_columns.h"

namespace rulemesh {

namespace {

constexpr std::int16_t TabKey = 9;
constexpr std::int16_t EscapeKey = 27;
constexpr std::int16_t Blank = 32;
constexpr std::size_t EndOfAnyText = 1000;
constexpr ListRow RowOutsideOfList = -1; // selecting it fails, as the row of a field that the list lacks must

} // namespace

void RulesGridEditing::GridEdit(std::int16_t KeyAscii)
{
    const Grid& grid = views_.RulesGrid;
    TextBox& box = views_.txtgrdline;
    box.Type(grid.Type());
    const bool keepsText = (KeyAscii >= 0 && KeyAscii <= Blank) || !state_.BoolEdit;
    if (keepsText) {
        box.Text(grid.Text());
        box.SelStart(EndOfAnyText);
    } else {
        box.Text(Text(1, static_cast<char16_t>(KeyAscii)));
        box.SelStart(1);
    }
    const Placement cell = grid.CurrentCell();
    box.Left(cell.Left + grid.Left());
    box.Top(cell.Top + grid.Top());
    box.Width(cell.Width - 70);
    box.Height(cell.Height);
    box.Visible(true);
    box.SetFocus();
}

void RulesGridEditing::RulesGrid_DblClick()
{
    if (views_.RulesGrid.Col() == 0)
        views_.RulesGrid.Col(1);
    GridEdit(Blank);
}

void RulesGridEditing::RulesGrid_KeyPress(std::int16_t KeyAscii)
{
    if (views_.RulesGrid.Col() == 0)
        views_.RulesGrid.Col(1);
    if (KeyAscii == TabKey)
        MoveToNextRow();
    else
        GridEdit(KeyAscii);
}

// In the grid Tab wraps from the last row to the first and scrolls; in the box it does neither.
void RulesGridEditing::MoveToNextRow()
{
    Grid& grid = views_.RulesGrid;
    grid.Row(grid.Row() < grid.Rows() - 1 ? grid.Row() + 1 : GridRow(0));
    if (!grid.RowIsVisible(grid.Row()))
        grid.TopRow(grid.Row());
    grid.SetFocus();
}

void RulesGridEditing::txtgrdline_KeyDown(std::int16_t KeyCode)
{
    Grid& grid = views_.RulesGrid;
    if (KeyCode == EscapeKey) {
        views_.txtgrdline.Visible(false);
        grid.SetFocus();
    } else if (KeyCode == TabKey) {
        grid.SetFocus();
        if (grid.Row() + 1 < grid.Rows())
            grid.Row(grid.Row() + 1);
    }
}

void RulesGridEditing::CommitOpenCell()
{
    if (!views_.txtgrdline.Visible())
        return;
    views_.RulesGrid.Text(views_.txtgrdline.Text());
    views_.txtgrdline.Visible(false);
}

void RulesGridEditing::RulesGrid_LeaveCell()
{
    if (!views_.txtgrdline.Visible())
        return;
    views_.RulesGrid.Text(views_.txtgrdline.Text());
    shownDump_.SaveShownRules();
    views_.txtgrdline.Visible(false);
}

void RulesGridEditing::RulesGrid_Scroll()
{
    if (views_.txtgrdline.Visible())
        RulesGrid_LeaveCell();
}

void RulesGridEditing::ShowRowInList()
{
    ListView& list = views_.lstTargetFields;
    if (list.Count() == 0)
        return;
    const ListRow row = ListRowOf(views_.RulesGrid.TextMatrix(views_.RulesGrid.Row(), 0)).value_or(RowOutsideOfList);
    list.EnsureVisible(row);
    list.Select(row, true);
}

void RulesGridEditing::SelectGridRow(const Text& StrField)
{
    Grid& grid = views_.RulesGrid;
    const std::optional<GridRow> row = RowOf(StrField);
    if (!row) {
        grid.TopRow(1);
        return;
    }
    if (!grid.RowIsVisible(*row))
        grid.TopRow(*row);
    grid.Row(*row);
}

std::optional<GridRow> RulesGridEditing::RowOf(TextView StrField) const
{
    for (GridRow row = 0; row < views_.RulesGrid.Rows(); ++row) {
        if (views_.RulesGrid.TextMatrix(row, 0) == StrField)
            return row;
    }
    return std::nullopt;
}

std::optional<ListRow> RulesGridEditing::ListRowOf(TextView StrField) const
{
    for (ListRow row = 1; row <= views_.lstTargetFields.Count(); ++row) {
        if (views_.lstTargetFields.At(row).TextAt(TargetField::Name) == StrField)
            return row;
    }
    return std::nullopt;
}

Text RulesGridEditing::FieldMapping() const { return PlainNumber(views_.RulesGrid.Row().Number()); }

void RulesGridEditing::FieldMapping(const Text& StrRule)
{
    views_.RulesGrid.Text(StrRule);
    views_.CmdFuncBuild.Enabled(true);
}

} // namespace rulemesh
