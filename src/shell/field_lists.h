#pragma once

#include "shell/rules_grid.h"

namespace rulemesh {

/// How the lists of source and target fields behave under the mouse.
class FieldLists {
public:
    FieldLists(DesignerViews& views, ShownDump& shownDump, RulesGridEditing& grid)
        : views_(views), shownDump_(shownDump), grid_(grid)
    {
    }

    void lstTargetFields_ColumnClick(int column) { SortByColumn(views_.lstTargetFields, column); }
    void lstSourceFields_ColumnClick(int column) { SortByColumn(views_.lstSourceFields, column); }

    /// Makes the selection the set of ticked rows.
    void lstSourceFields_ItemCheck();
    void lstSourceFields_GotFocus();

    /// Moves the grid to the field's rule; when the views still show another dump than the chosen one, loads that
    /// instead.
    void lstTargetFields_ItemClick(ListRow row);

private:
    static void SortByColumn(ListView& list, int column);

    DesignerViews& views_;
    ShownDump& shownDump_;
    RulesGridEditing& grid_;
};

} // namespace rulemesh
