#include "host/window/steps_model.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

#include "desktop/rulemesh_widget.h"

namespace rulemesh {

void StepsModel::Show(const RulemeshWidget* designer)
{
    beginResetModel();
    rows_.clear();
    present_ = 0;
    if (designer != nullptr) {
        rows_ = designer->StepNames();
        rows_.prepend(QStringLiteral("Before the first step"));
        present_ = designer->StepsDone();
    }
    endResetModel();
}

int StepsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant StepsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const QString& name = rows_.at(index.row());
    const bool isPresent = index.row() == present_;
    const bool isUndone = index.row() > present_;
    switch (role) {
    case Qt::DisplayRole:
        return name;
    case Qt::AccessibleTextRole:
        if (isPresent)
            return QStringLiteral("%1, present step").arg(name);
        return isUndone ? QStringLiteral("%1, undone").arg(name) : name;
    case Qt::FontRole:
        if (isPresent) {
            QFont bold = QApplication::font("QAbstractItemView");
            bold.setBold(true);
            return bold;
        }
        return {};
    case Qt::ForegroundRole:
        return isUndone ? QVariant(QApplication::palette().brush(QPalette::Disabled, QPalette::Text)) : QVariant();
    default:
        return {};
    }
}

} // namespace rulemesh
