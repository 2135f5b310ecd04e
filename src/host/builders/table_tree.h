#pragma once

#include <vector>

#include <QStringList>
#include <QWidget>

#include "object/catalogue.h"

class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace rulemesh {

/// Tables with their fields to pick from, under a box that narrows them down to what holds its text.
class TableTree : public QWidget {
    Q_OBJECT

public:
    /// The tables in `first` stand in front, spelled as there, and are open; the others follow in lower case.
    TableTree(const std::vector<CatalogueTable>& tables, const QStringList& first, QWidget* parent);

    /// The picked name: a table, or a field as table.field. "" when none is.
    [[nodiscard]] QString Picked() const;

    /// The table of what is picked, with its spelling; "" when none is.
    [[nodiscard]] QString PickedTable() const;

signals:
    /// Another row is current.
    void Moved();

    /// A row was double-clicked or entered.
    void Chosen(const QString& name);

private:
    void Add(const CatalogueTable& table, const QString& spelled, bool open);
    void Filter(const QString& text);

    QLineEdit* filter_;
    QTreeWidget* tree_;
};

} // namespace rulemesh
