#pragma once

#include <QAbstractListModel>
#include <QStringList>

namespace rulemesh {

class RulemeshWidget;

/// The steps of a designer's history as a list: the object as it was opened, then each step. The row of the present
/// step bears a mark, and those that were undone are dimmed.
class StepsModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// Shows the steps of a designer as they are now; none for null.
    void Show(const RulemeshWidget* designer);

    /// The row of what stands on the screen now.
    [[nodiscard]] int Present() const noexcept { return present_; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    QStringList rows_;
    int present_ = 0;
};

} // namespace rulemesh
