#pragma once

#include <optional>

#include "engine/shown_dump.h"

namespace rulemesh {

/// Editing in RulesGrid. The grid has no editor of its own: one box, txtgrdline, is laid over the current cell, and its
/// being visible is the whole editing state. Leaving the box commits its text to the cell; the document follows at the
/// next save of the dump's rules.
class RulesGridEditing {
public:
    RulesGridEditing(ControlState& state, DesignerViews& views, ShownDump& shownDump)
        : state_(state), views_(views), shownDump_(shownDump)
    {
    }

    /// Opens the box on the current cell: with its text for the codes 0 to 32, or with the one character instead.
    void GridEdit(std::int16_t KeyAscii);

    /// The first row of the grid, and of lstTargetFields, whose key equals the name exactly; none when there is none.
    [[nodiscard]] std::optional<GridRow> RowOf(TextView StrField) const;
    [[nodiscard]] std::optional<ListRow> ListRowOf(TextView StrField) const;

    /// The property FieldMapping: reads as the number of the current row, and is written into the current cell.
    [[nodiscard]] Text FieldMapping() const;
    void FieldMapping(const Text& StrRule);

    /// Puts the grid on the row of a key.
    void SelectGridRow(const Text& StrField);

    void RulesGrid_Click() { ShowRowInList(); }
    void RulesGrid_EnterCell() { ShowRowInList(); }
    void RulesGrid_DblClick();
    void RulesGrid_KeyPress(std::int16_t KeyAscii);
    void RulesGrid_LeaveCell();
    void RulesGrid_GotFocus() { CommitOpenCell(); }
    void RulesGrid_Scroll();
    void txtgrdline_LostFocus() { CommitOpenCell(); }
    void txtgrdline_KeyDown(std::int16_t KeyCode);

private:
    void CommitOpenCell();
    void ShowRowInList();
    void MoveToNextRow();

    ControlState& state_;
    DesignerViews& views_;
    ShownDump& shownDump_;
};

} // namespace rulemesh
