#pragma once

#include <functional>

#include <QItemSelectionModel>

namespace rulemesh {

/// The selection and current cell of an item view, which are always what was shown last. What the toolkit or an
/// assistive tool would select by itself leaves them as they are; it is handed on as the user's wish.
class ShownSelection : public QItemSelectionModel {
    Q_OBJECT

public:
    explicit ShownSelection(QAbstractItemModel& model) : QItemSelectionModel(&model) {}

    void Show(const QModelIndex& current, const QItemSelection& selection);

    /// Somebody wishes a cell to be selected, besides what is selected or instead of it, or to be selected no more.
    enum class Wish { SelectAlone, SelectToo, Deselect };
    std::function<void(const QModelIndex& index, Wish wish)> OnWish;

    using QItemSelectionModel::select;
    void select(const QItemSelection& selection, SelectionFlags command) override;
    void setCurrentIndex(const QModelIndex& index, SelectionFlags command) override;
    void clearCurrentIndex() override;
    void reset() override;

private:
    bool showing_ = false;
};

} // namespace rulemesh
