#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "views/row_numbers.h"
#include "views/shared_rows.h"
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
        int SearchPosition = 0;   // the position in which typing ahead finds a row
    };

    struct Row {
        std::shared_ptr<const std::vector<Text>> Texts; // never null
        bool Selected = false;
        bool Checked = false;

        /// The text at a position, "" where the row has none.
        [[nodiscard]] TextView TextAt(int position) const noexcept;
    };

    ListView(ViewTree& tree, const ViewDesign& view, Design design);

    [[nodiscard]] const std::vector<Column>& Columns() const noexcept { return design_.Columns; }
    [[nodiscard]] bool HasCheckBoxes() const noexcept { return design_.CheckBoxes; }
    [[nodiscard]] int ToolTipPosition() const noexcept { return design_.ToolTipPosition; }

    [[nodiscard]] int SearchPosition() const noexcept { return design_.SearchPosition; }

    /// Raises InvalidPropertyValue for a negative width.
    void ColumnWidth(int column, int width);

    [[nodiscard]] int Count() const noexcept { return static_cast<int>(rows_.size()); }

    /// A row in the current order. Raises IndexOutOfBounds, as every member that takes a row.
    [[nodiscard]] const Row& At(ListRow row) const;

    [[nodiscard]] Text TextAt(ListRow row, int position) const;

    /// The rows in the order in which they were added; a later change leaves these as they are.
    [[nodiscard]] const SharedRows<Row>& AllRows() const noexcept { return rows_; }

    void Clear();
    void Add(std::vector<Text> texts);

    /// Adds a row so that it becomes the row of that number; for a list that isn't sorted.
    void Insert(ListRow row, std::vector<Text> texts);
    void Remove(ListRow row);

    /// The first selected row, 0 for none.
    [[nodiscard]] ListRow SelectedRow() const;

    /// The row from which the user's keys go on: the last one that was clicked, ticked or moved to, else the first
    /// selected one; 0 for none.
    [[nodiscard]] ListRow CurrentRow() const;

    [[nodiscard]] bool TakesSeveral() const noexcept { return design_.Select == Selection::Multiple; }

    /// In a list of single selection, selecting a row takes the selection from the others. Runs no click.
    void Select(ListRow row, bool selected);
    void Check(ListRow row, bool checked);

    /// Scrolls the row into view; the front end takes the row that was asked for last, 0 for none.
    void EnsureVisible(ListRow row);
    [[nodiscard]] ListRow TakeScrollRequest() noexcept { return std::exchange(scrollRequest_, NoListRow); }

    /// Counts the changes of the rows' texts and order, so that a front end can tell them from a change of selection.
    [[nodiscard]] unsigned RowChanges() const noexcept { return rowChanges_; }

    [[nodiscard]] bool Sorted() const noexcept { return design_.Sorted; }
    [[nodiscard]] int SortKey() const noexcept { return design_.SortKey; }
    [[nodiscard]] Order SortOrder() const noexcept { return order_; }
    void Sorted(bool sorted);
    void SortKey(int position);
    void SortOrder(Order order);

    /// The user clicks a row: it alone becomes selected and the click handler is run.
    void UserClicksRow(ListRow row);
    void UserTicks(ListRow row, bool checked);

    /// The user takes a row into the selection, or out of it, and leaves the others (a click with control). In a list
    /// of single selection a plain click.
    void UserTogglesRow(ListRow row);

    /// The user selects all rows from the last one that was clicked or toggled to this one, and no others (a click with
    /// shift). In a list of single selection a plain click.
    void UserExtendsTo(ListRow row);

    /// The user makes a row the current one and selects nothing by it (an arrow key with control). In a list of single
    /// selection a plain click.
    void UserMovesTo(ListRow row);

    /// The first row behind `row`, and then from the top, in which the text of the search position, or what stands
    /// behind a table's name and point there, begins with what the user typed, case ignored; 0 for none.
    [[nodiscard]] ListRow RowBeginningWith(TextView typed, ListRow row) const;

    /// The user clicks a column header; the focus stays.
    void UserClicksHeader(int column);

    Event<void(ListRow row)> ItemClick;
    Slot ItemCheck;
    Event<void(int column)> ColumnClick;

protected:
    void BeforeGotFocus() override;
    [[nodiscard]] std::unique_ptr<ViewValues> CopyOwnValues() const override;
    void PutOwnValuesBack(const ViewValues& values) override;

private:
    template <typename Change> void ChangeSelection(ListRow row, Change change);
    [[noreturn]] void RaiseNoRow(ListRow row) const;
    [[nodiscard]] std::size_t IndexOf(ListRow row) const;
    [[nodiscard]] ListRow RowOf(std::size_t index) const;
    void SelectOnly(std::size_t index);
    void SetSelected(std::size_t index, bool selected);
    void Sort() const;
    void RowsChanged();

    Design design_;
    Order order_ = Order::Ascending;
    mutable SharedRows<Row> rows_;               // as they were added
    mutable SharedRows<Row> taken_;              // as they were when their values were asked for last
    mutable std::vector<std::uint32_t> sorting_; // rows_ indexes in the shown order, while sortingHolds_
    mutable bool sortingHolds_ = false;
    std::optional<std::size_t> current_; // indexes in rows_
    std::optional<std::size_t> anchor_;
    ListRow scrollRequest_ = NoListRow;
    unsigned rowChanges_ = 0;
};

} // namespace rulemesh
