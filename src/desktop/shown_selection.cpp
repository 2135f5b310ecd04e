#include "desktop/shown_selection.h"

#include <QScopedValueRollback>

namespace rulemesh {

void ShownSelection::Show(const QModelIndex& current, const QItemSelection& selection)
{
    const QScopedValueRollback<bool> guard(showing_, true);
    QItemSelectionModel::select(selection, ClearAndSelect);
    if (current.isValid())
        QItemSelectionModel::setCurrentIndex(current, NoUpdate);
    else
        QItemSelectionModel::clearCurrentIndex();
}

void ShownSelection::select(const QItemSelection& selection, SelectionFlags command)
{
    if (showing_) {
        QItemSelectionModel::select(selection, command);
        return;
    }
    const bool wished = (command & (Select | Deselect | Toggle)) != 0;
    if (!wished || selection.isEmpty() || !OnWish)
        return;
    const QModelIndex index = selection.first().topLeft();
    const bool deselects = (command & Deselect) != 0 || ((command & Toggle) != 0 && isSelected(index));
    const Wish wish = deselects ? Wish::Deselect : (command & Clear) != 0 ? Wish::SelectAlone : Wish::SelectToo;
    OnWish(index, wish);
}

void ShownSelection::setCurrentIndex(const QModelIndex& index, SelectionFlags command)
{
    if (showing_)
        QItemSelectionModel::setCurrentIndex(index, command);
}

void ShownSelection::clearCurrentIndex()
{
    if (showing_)
        QItemSelectionModel::clearCurrentIndex();
}

// The rows are others than they were; what is selected among them is shown next.
void ShownSelection::reset()
{
    const QScopedValueRollback<bool> guard(showing_, true);
    QItemSelectionModel::reset();
}

} // namespace rulemesh
