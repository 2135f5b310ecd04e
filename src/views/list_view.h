#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "views/view.h"

namespace rulemesh {

/// A report-style list: rows of texts under column headers. Rows and columns count from 1; position 0 of a row is the
/// text in its first column. A sorted list shows its rows in the order of the text in its sort column, code unit by
/// code unit, where rows with equal text keep the order in which they were added.
///
/// Sorting happens when rows are read, once for any number of changes.
class ListView : public View {
public:
    enum class Order { Ascending, Descending };
    enum class Selection { Single, Multiple };

    struct Column {
        TextView Caption;
        int Width = 0; // twips
        bool RightAligned = false;
    };

    struct Design {
        std::vector<Column> Columns;
        Selection Select = Selection::Single;
        bool CheckBoxes = false;
        bool Sorted = false;
        int SortKey = 0;
        int ToolTipPosition = -1; // the position whose text is also its cell's tool tip; -1 for none
    };

    struct Row {
        std::vector<Text> Texts;
        bool Selected = false;
        bool Checked = false;

        /// The text at a position, "" where the row has none.
        [[nodiscard]] TextView TextAt(int position) const noexcept;
    };

    ListView(ViewTree& tree, const ViewDesign& view, Design design);

    [[nodiscard]] const std::vector<Column>& Columns() const noexcept { return design_.Columns; }
    [[nodiscard]] bool HasCheckBoxes() const noexcept { return design_.CheckBoxes; }
    [[nodiscard]] int ToolTipPosition() const noexcept { return design_.ToolTipPosition; }

    /// Raises InvalidPropertyValue for a negative width.
    void ColumnWidth(int column, int width);

    [[nodiscard]] int Count() const noexcept { return static_cast<int>(rows_.size()); }

    /// A row in the current order. Raises IndexOutOfBounds, as every member that takes a row.
    [[nodiscard]] const Row& At(int row) const;

    [[nodiscard]] Text TextAt(int row, int position) const;

    void Clear();
    void Add(std::vector<Text> texts);

    /// Adds a row so that it becomes the row of that number; for a list that isn't sorted.
    void Insert(int row, std::vector<Text> texts);
    void Remove(int row);

    /// The first selected row, 0 for none.
    [[nodiscard]] int SelectedRow() const;

    /// In a list of single selection, selecting a row takes the selection from the others. Runs no click.
    void Select(int row, bool selected);
    void Check(int row, bool checked);

    /// Scrolls the row into view; the front end takes the row that was asked for last, 0 for none.
    void EnsureVisible(int row);
    [[nodiscard]] int TakeScrollRequest() noexcept { return std::exchange(scrollRequest_, 0); }

    /// Counts the changes of the rows' texts and order, so that a front end can tell them from a change of selection.
    [[nodiscard]] unsigned RowChanges() const noexcept { return rowChanges_; }

    [[nodiscard]] bool Sorted() const noexcept { return design_.Sorted; }
    [[nodiscard]] int SortKey() const noexcept { return design_.SortKey; }
    [[nodiscard]] Order SortOrder() const noexcept { return order_; }
    void Sorted(bool sorted);
    void SortKey(int position);
    void SortOrder(Order order);

    /// The user clicks a row: it alone becomes selected and the click handler is run.
    void UserClicksRow(int row);
    void UserTicks(int row, bool checked);

    /// The user clicks a column header; the focus stays.
    void UserClicksHeader(int column) { Run(ColumnClick, column); }

    std::function<void(int row)> ItemClick;
    Slot ItemCheck;
    std::function<void(int column)> ColumnClick;

protected:
    void BeforeGotFocus() override;

private:
    [[nodiscard]] std::size_t IndexOf(int row) const;
    void SelectOnly(std::size_t index);
    void Sort() const;
    void RowsChanged();

    Design design_;
    Order order_ = Order::Ascending;
    std::vector<Row> rows_;                      // as they were added
    mutable std::vector<std::uint32_t> sorting_; // rows_ indexes in the shown order, while sortingHolds_
    mutable bool sortingHolds_ = false;
    int scrollRequest_ = 0;
    unsigned rowChanges_ = 0;
};

} // namespace rulemesh
