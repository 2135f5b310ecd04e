#pragma once

#include <array>
#include <functional>

#include "base/failure.h"
#include "views/actions.h"
#include "views/row_places.h"
#include "views/shared_rows.h"
#include "views/view.h"

namespace rulemesh {

/// A text-only grid of two columns. Rows and columns count from 0; one cell is current. It starts with no rows and
/// row 0 and column 0 current. Every row is RowHeight high; there are no borders.
class Grid : public View {
public:
    static constexpr int ColumnCount = 2;
    static constexpr int RowHeight = 310;

    using Cells = std::array<rulemesh::Text, ColumnCount>;

    Grid(ViewTree& tree, const ViewDesign& design, std::array<int, ColumnCount> widths)
        : View(tree, ViewKind::Grid, design), widths_(widths)
    {
    }

    [[nodiscard]] int Rows() const noexcept { return static_cast<int>(rows_.size()); }

    /// Takes all rows out, makes row 0 current and puts it on top; runs nothing.
    void ClearRows();
    void AddItem(Cells cells);

    /// The current cell. Making another cell current runs the leave handler on the old one and then the enter handler
    /// on the new one. Raise InvalidPropertyValue outside the grid.
    [[nodiscard]] GridRow Row() const noexcept { return row_; }
    [[nodiscard]] int Col() const noexcept { return col_; }
    void Row(GridRow row);
    void Col(int col);

    /// A cell's text. Raise InvalidPropertyArrayIndex outside the grid.
    [[nodiscard]] const rulemesh::Text& TextMatrix(GridRow row, int col) const;
    void TextMatrix(GridRow row, int col, rulemesh::Text text);

    /// The text of the current cell.
    [[nodiscard]] const rulemesh::Text& Text() const { return TextMatrix(row_, col_); }
    void Text(rulemesh::Text text) { TextMatrix(row_, col_, std::move(text)); }

    /// The first row in sight. Setting it past the last row means the last row, and runs no scroll handler.
    [[nodiscard]] GridRow TopRow() const noexcept { return topRow_; }
    void TopRow(GridRow row);

    /// Whether the row lies wholly inside the grid's height.
    [[nodiscard]] bool RowIsVisible(GridRow row) const noexcept;

    /// Where the rows stand, relative to the grid, in twips.
    [[nodiscard]] RowPlaces Places() const noexcept { return {topRow_, RowHeight}; }

    /// Raises InvalidPropertyValue for a negative width.
    [[nodiscard]] int ColWidth(int col) const { return widths_.at(static_cast<std::size_t>(col)); }
    void ColWidth(int col, int width);

    /// The place of the current cell, relative to the grid, in twips.
    [[nodiscard]] Placement CurrentCell() const noexcept;

    /// The user clicks a cell; lost when the cell is no longer in sight by the time that the focus has got here.
    /// `Second` is what the second press of a double click adds to the first.
    enum class Clicks { Single, Double, Second };
    void UserClicksCell(GridRow row, int col, Clicks clicks);

    /// What the pressing of a key is that opens a cell: of a character typing; a blank and the keys below it open the
    /// cell as it is.
    [[nodiscard]] static Action ActionOf(std::int16_t KeyAscii, const Grid& grid);

    /// A character key in the grid.
    void UserPresses(std::int16_t KeyAscii);

    /// The user types several characters at once, as an input method does: the first is a key in the grid, the others
    /// go to the text box that has the focus by then.
    void UserTypes(TextView text);

    /// The user moves to a cell by keys; the row nearest to it where there is none. It is scrolled into sight.
    void UserMovesTo(GridRow row, int col);

    /// The user scrolls so that this row is on top.
    void UserScrolls(GridRow top);

    /// The user scrolls just as far as brings a row into sight.
    void UserScrollsToShow(GridRow row);

    /// The cells as they are now; a later change leaves them as they are.
    [[nodiscard]] const SharedRows<Cells>& AllCells() const noexcept { return rows_; }

    Slot Click;
    Slot DblClick;
    Slot LeaveCell;
    Slot EnterCell;
    Slot Scroll;
    Event<void(std::int16_t KeyAscii)> KeyPress;

protected:
    [[nodiscard]] std::unique_ptr<ViewValues> CopyOwnValues() const override;
    void PutOwnValuesBack(const ViewValues& values) override { PutBack(values, std::tie(rows_, row_, col_, topRow_)); }

private:
    [[noreturn]] void RaiseNoCell(FailureCode code, GridRow row, int col) const;
    [[nodiscard]] bool Has(GridRow row, int col) const noexcept;
    [[nodiscard]] GridRow TopRowFor(GridRow row) const noexcept;
    void MakeCurrent(GridRow row, int col);

    mutable SharedRows<Cells> rows_;
    mutable SharedRows<Cells> taken_; // as they were when their values were asked for last
    std::array<int, ColumnCount> widths_;
    GridRow row_ = 0;
    int col_ = 0;
    GridRow topRow_ = 0;
};

} // namespace rulemesh
