#include "host/builders/source_tables_builder.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "base/case_map.h"
#include "desktop/qt_text.h"

namespace rulemesh {

namespace {

constexpr int CodeColumn = 0;
constexpr int FieldsRole = Qt::UserRole; // the names of the fields, for the filter

QStringList CodesIn(const QString& listed)
{
    QStringList codes;
    for (const QString& part : listed.split(u',', Qt::SkipEmptyParts))
        codes += part.trimmed();
    return codes;
}

QString FieldNames(const CatalogueTable& table)
{
    QStringList names;
    for (const CatalogueField& field : table.Fields)
        names += ToQt(field.Name);
    return names.join(u' ');
}

} // namespace

QString SourceTablesWith(const QString& listed, const QStringList& ticked)
{
    if (ticked.isEmpty())
        return listed;
    return listed.isEmpty() ? ticked.join(u',') : listed + u',' + ticked.join(u',');
}

SourceTablesBuilder::SourceTablesBuilder(const QString& listed, const std::vector<CatalogueTable>& tables,
                                         QWidget* parent)
    : QDialog(parent), filter_(new QLineEdit), list_(new QTreeWidget)
{
    setWindowTitle(QStringLiteral("Select Source Tables"));
    resize(460, 520);
    filter_->setPlaceholderText(QStringLiteral("Filter by table or field"));
    filter_->setClearButtonEnabled(true);
    filter_->setAccessibleName(QStringLiteral("Filter by table or field"));
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setHeaderLabels({QStringLiteral("Table"), QStringLiteral("Fields")});
    list_->setAccessibleName(QStringLiteral("Source tables"));

    auto* hint =
        new QLabel(tables.empty() ? QStringLiteral("The object describes no source tables. Import a catalogue first "
                                                   "(menu Designer).")
                                  : QStringLiteral("A table that is listed already is taken out with the Delete key in "
                                                   "the designer's list."));
    hint->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(filter_, &QLineEdit::textChanged, this, &SourceTablesBuilder::ShowOnly);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(filter_);
    layout->addWidget(list_, 1);
    layout->addWidget(hint);
    layout->addWidget(buttons);
    Fill(CodesIn(listed), tables);
}

void SourceTablesBuilder::Fill(const QStringList& listed, const std::vector<CatalogueTable>& tables)
{
    for (const CatalogueTable& table : tables) {
        const QString code = ToQt(ToLower(table.Code));
        auto* item = new QTreeWidgetItem(list_, {code, QString::number(table.Fields.size())});
        item->setData(CodeColumn, FieldsRole, FieldNames(table));
        const bool fixed = listed.contains(code, Qt::CaseInsensitive);
        item->setCheckState(CodeColumn, fixed ? Qt::Checked : Qt::Unchecked);
        if (fixed)
            item->setFlags(Qt::ItemIsSelectable);
    }
    list_->header()->resizeSection(CodeColumn, 220);
}

void SourceTablesBuilder::ShowOnly(const QString& text)
{
    for (int row = 0; row < list_->topLevelItemCount(); ++row) {
        QTreeWidgetItem* item = list_->topLevelItem(row);
        item->setHidden(!item->text(CodeColumn).contains(text, Qt::CaseInsensitive) &&
                        !item->data(CodeColumn, FieldsRole).toString().contains(text, Qt::CaseInsensitive));
    }
}

QStringList SourceTablesBuilder::NewlyTicked() const
{
    QStringList ticked;
    for (int row = 0; row < list_->topLevelItemCount(); ++row) {
        const QTreeWidgetItem* item = list_->topLevelItem(row);
        if (item->flags().testFlag(Qt::ItemIsEnabled) && item->checkState(CodeColumn) == Qt::Checked)
            ticked += item->text(CodeColumn);
    }
    return ticked;
}

} // namespace rulemesh
