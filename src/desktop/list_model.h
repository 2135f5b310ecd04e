#pragma once

#include <functional>

#include <QAbstractTableModel>

#include "views/list_view.h"

namespace rulemesh {

/// Reads the rows of a ListView on demand.
class ListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    ListModel(ListView& list, QObject* parent);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// The toolkit counts rows from 0.
    [[nodiscard]] static ListRow RowOf(const QModelIndex& index) { return index.row() + 1; }
    [[nodiscard]] QModelIndex IndexOf(ListRow row, int column) const { return index(row.Number() - 1, column); }

    /// A screen reader's way to tick a row.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    std::function<void(ListRow row, bool checked)> OnTick;

    /// Tells the view that rows came, went or moved; false when none did since the last call.
    bool TakeRowChanges();

private:
    ListView& list_;
    int rows_ = 0;
    unsigned rowChanges_ = 0;
};

} // namespace rulemesh
