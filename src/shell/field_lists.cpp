#include "shell/field_lists.h"

#include "views/field_columns.h"

namespace rulemesh {

// The order flips on every click, also on a click on another column than the last one.
void FieldLists::SortByColumn(ListView& list, int column)
{
    list.SortKey(column - 1);
    list.SortOrder(list.SortOrder() == ListView::Order::Ascending ? ListView::Order::Descending
                                                                  : ListView::Order::Ascending);
}

void FieldLists::lstSourceFields_ItemCheck()
{
    ListView& list = views_.lstSourceFields;
    for (int row = 1; row <= list.Count(); ++row)
        list.Select(row, list.At(row).Checked);
}

void FieldLists::lstSourceFields_GotFocus()
{
    ListView& list = views_.lstSourceFields;
    if (list.Count() > 0)
        list.EnsureVisible(list.SelectedRow());
}

void FieldLists::lstTargetFields_ItemClick(ListRow row)
{
    const DumpNumber shown = shownDump_.DumpInDetails();
    const DumpNumber chosen = shownDump_.SelectedDump();
    if (shown != chosen) {
        shownDump_.ShowDump(chosen);
        return;
    }
    const ListView::Row& item = views_.lstTargetFields.At(row);
    if (!item.TextAt(TargetField::Number).empty())
        grid_.SelectGridRow(Text(item.TextAt(TargetField::Name)));
}

} // namespace rulemesh
