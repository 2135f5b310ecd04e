#include "host/builders/function_builder.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "host/builders/function_names.h"
#include "host/builders/table_tree.h"
#include "object/catalogue.h"

namespace rulemesh {

FunctionBuilder::FunctionBuilder(const QString& field, const QString& rule, const QStringList& tables,
                                 const std::string& object, QWidget* parent)
    : BuilderDialog(QStringLiteral("Build Rule of %1").arg(field), rule, QStringLiteral("&Rule"), parent),
      tables_(new TableTree(CatalogueOf(object).Sources, tables, nullptr)), functions_(new QListWidget)
{
    functions_->addItems(FunctionNamesOf(object));
    functions_->setAccessibleName(QStringLiteral("Functions"));
    auto* filter = new QLineEdit;
    filter->setPlaceholderText(QStringLiteral("Filter functions"));
    filter->setClearButtonEnabled(true);
    filter->setAccessibleName(QStringLiteral("Filter functions"));
    connect(filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        for (int row = 0; row < functions_->count(); ++row)
            functions_->item(row)->setHidden(!functions_->item(row)->text().contains(text, Qt::CaseInsensitive));
    });

    auto* functionPage = new QWidget;
    auto* functionLayout = new QVBoxLayout(functionPage);
    functionLayout->addWidget(filter);
    functionLayout->addWidget(functions_);
    auto* pages = new QTabWidget;
    pages->addTab(tables_, QStringLiteral("&Fields"));
    pages->addTab(functionPage, QStringLiteral("F&unctions"));

    auto* insert = new QPushButton(QStringLiteral("&Insert"));
    connect(insert, &QPushButton::clicked, this, [this, pages] {
        if (pages->currentIndex() == 0)
            InsertName(tables_->Picked());
        else if (functions_->currentItem() != nullptr)
            InsertCall(functions_->currentItem()->text());
    });
    auto* pickers = new QWidget;
    auto* layout = new QVBoxLayout(pickers);
    layout->setContentsMargins({});
    layout->addWidget(pages, 1);
    layout->addWidget(insert, 0, Qt::AlignLeft);
    Pickers(*pickers);

    connect(tables_, &TableTree::Chosen, this, [this](const QString& name) { InsertName(name); });
    connect(functions_, &QListWidget::itemActivated, this,
            [this](const QListWidgetItem* item) { InsertCall(item->text()); });
    Box().setFocus();
}

void FunctionBuilder::InsertCall(const QString& function)
{
    QTextCursor cursor = Box().textCursor();
    const QString argument = cursor.selectedText();
    cursor.insertText(function + u'(' + argument + u')');
    if (argument.isEmpty())
        cursor.movePosition(QTextCursor::Left);
    Box().setTextCursor(cursor);
    Box().setFocus();
}

} // namespace rulemesh
