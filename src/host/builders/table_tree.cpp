#include "host/builders/table_tree.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "base/case_map.h"
#include "desktop/qt_text.h"
#include "object/names.h"

namespace rulemesh {

namespace {

constexpr int NameColumn = 0;
constexpr int DescriptionColumn = 1;
constexpr int NameRole = Qt::UserRole;

} // namespace

TableTree::TableTree(const std::vector<CatalogueTable>& tables, const QStringList& first, QWidget* parent)
    : QWidget(parent), filter_(new QLineEdit(this)), tree_(new QTreeWidget(this))
{
    filter_->setPlaceholderText(QStringLiteral("Filter tables and fields"));
    filter_->setClearButtonEnabled(true);
    filter_->setAccessibleName(QStringLiteral("Filter tables and fields"));
    tree_->setAccessibleName(QStringLiteral("Tables and fields"));
    tree_->setHeaderLabels({QStringLiteral("Name"), QStringLiteral("Description")});
    tree_->setUniformRowHeights(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(filter_);
    layout->addWidget(tree_);

    for (const QString& code : first) {
        if (const CatalogueTable* table = FindTable(tables, FromQt(code.trimmed())))
            Add(*table, code.trimmed(), true);
    }
    for (const CatalogueTable& table : tables) {
        if (!first.contains(ToQt(table.Code), Qt::CaseInsensitive))
            Add(table, ToQt(ToLower(table.Code)), false);
    }
    tree_->header()->resizeSection(NameColumn, 220);
    tree_->setCurrentItem(tree_->topLevelItem(0));

    connect(filter_, &QLineEdit::textChanged, this, &TableTree::Filter);
    connect(tree_, &QTreeWidget::currentItemChanged, this, &TableTree::Moved);
    connect(tree_, &QTreeWidget::itemActivated, this, [this] { emit Chosen(Picked()); });
    tree_->setExpandsOnDoubleClick(false);
}

void TableTree::Add(const CatalogueTable& table, const QString& spelled, bool open)
{
    auto* item = new QTreeWidgetItem(tree_, {spelled});
    item->setData(NameColumn, NameRole, spelled);
    for (const CatalogueField& field : table.Fields) {
        const QString name = ToQt(ToLower(FieldDisplayName(field.Name)));
        auto* child = new QTreeWidgetItem(item, {name, ToQt(field.Attribute(u"DSCA"))});
        child->setData(NameColumn, NameRole, ToQt(QualifiedName(table.Code, field.Name)));
        child->setToolTip(DescriptionColumn, child->text(DescriptionColumn));
    }
    item->setExpanded(open);
}

QString TableTree::Picked() const
{
    const QTreeWidgetItem* item = tree_->currentItem();
    return item == nullptr ? QString() : item->data(NameColumn, NameRole).toString();
}

QString TableTree::PickedTable() const
{
    const QTreeWidgetItem* item = tree_->currentItem();
    if (item != nullptr && item->parent() != nullptr)
        item = item->parent();
    return item == nullptr ? QString() : item->data(NameColumn, NameRole).toString();
}

void TableTree::Filter(const QString& text)
{
    const auto holds = [&](const QTreeWidgetItem* item) {
        return item->text(NameColumn).contains(text, Qt::CaseInsensitive) ||
               item->text(DescriptionColumn).contains(text, Qt::CaseInsensitive);
    };
    tree_->setUpdatesEnabled(false);
    for (int row = 0; row < tree_->topLevelItemCount(); ++row) {
        QTreeWidgetItem* table = tree_->topLevelItem(row);
        const bool whole = holds(table);
        bool any = false;
        for (int place = 0; place < table->childCount(); ++place) {
            const bool shown = whole || holds(table->child(place));
            table->child(place)->setHidden(!shown);
            any = any || shown;
        }
        table->setHidden(!whole && !any);
        if (!text.isEmpty() && !whole && any)
            table->setExpanded(true);
    }
    tree_->setUpdatesEnabled(true);
}

} // namespace rulemesh
