#pragma once

#include <vector>

#include <QDialog>
#include <QStringList>

#include "object/catalogue.h"

class QLabel;
class QLineEdit;
class QTreeWidget;

namespace rulemesh {

/// The list with the ticked tables behind those that it has already, joined by commas.
[[nodiscard]] QString SourceTablesWith(const QString& listed, const QStringList& ticked);

/// The tables of the catalogue to tick. Tables that are listed already are ticked and stay so, since only the Delete
/// key in the designer's list takes one out.
class SourceTablesBuilder : public QDialog {
    Q_OBJECT

public:
    SourceTablesBuilder(const QString& listed, const std::vector<CatalogueTable>& tables, QWidget* parent);

    /// What is ticked beyond what was listed, in lower case.
    [[nodiscard]] QStringList NewlyTicked() const;

    [[nodiscard]] QTreeWidget& List() noexcept { return *list_; }
    [[nodiscard]] QLineEdit& Filter() noexcept { return *filter_; }

private:
    void Fill(const QStringList& listed, const std::vector<CatalogueTable>& tables);
    void ShowOnly(const QString& text);

    QLineEdit* filter_;
    QTreeWidget* list_;
};

} // namespace rulemesh
