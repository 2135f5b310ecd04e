#include "desktop/list_model.h"

#include "desktop/qt_text.h"

namespace rulemesh {

ListModel::ListModel(ListView& list, QObject* parent) : QAbstractTableModel(parent), list_(list) {}

int ListModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int ListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(list_.Columns().size());
}

QVariant ListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= list_.Count())
        return {};
    const ListRow row = RowOf(index);
    switch (role) {
    case Qt::DisplayRole:
        return ToQt(list_.At(row).TextAt(index.column()));
    case Qt::ToolTipRole:
        if (index.column() == list_.ToolTipPosition())
            return ToQt(list_.At(row).TextAt(index.column()));
        return {};
    case Qt::CheckStateRole:
        if (list_.HasCheckBoxes() && index.column() == 0)
            return list_.At(row).Checked ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::TextAlignmentRole:
        if (list_.Columns()[static_cast<std::size_t>(index.column())].RightAligned)
            return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    default:
        return {};
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const ListView::Column& column = list_.Columns()[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole)
        return ToQt(column.Caption);
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>((column.RightAligned ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    return {};
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (list_.HasCheckBoxes() && index.column() == 0)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

bool ListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || !list_.HasCheckBoxes() || index.column() != 0)
        return false;
    OnTick(RowOf(index), value.toInt() == Qt::Checked);
    return true;
}

bool ListModel::TakeRowChanges()
{
    if (rowChanges_ == list_.RowChanges() && rows_ == list_.Count())
        return false;
    beginResetModel();
    rowChanges_ = list_.RowChanges();
    rows_ = list_.Count();
    endResetModel();
    return true;
}

} // namespace rulemesh
