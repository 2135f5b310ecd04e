#include "host/builders/script_builder.h"

#include <algorithm>

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "desktop/qt_text.h"
#include "host/builders/table_tree.h"
#include "host/reading/script_statements.h"
#include "script/keywords.h"

namespace rulemesh {

namespace {

QString TitleOf(ScriptBuilder::Script script, const QStringList& tables)
{
    return script == ScriptBuilder::Script::PreCondition
               ? QStringLiteral("Build Precondition")
               : QStringLiteral("Build Main Query of %1").arg(tables.join(QStringLiteral(", ")));
}

} // namespace

ScriptBuilder::ScriptBuilder(Script script, const QString& text, const QStringList& tables, const std::string& object,
                             QWidget* parent)
    : BuilderDialog(TitleOf(script, tables), text,
                    script == Script::PreCondition ? QStringLiteral("&Precondition") : QStringLiteral("&Main query"),
                    parent),
      object_(object), tables_(new TableTree(CatalogueOf(object).Sources, tables, nullptr)), comment_(new QLineEdit),
      number_(new QSpinBox), dump_(new QPushButton(QStringLiteral("Insert &dump")))
{
    Pickers(*MakePickers(script));
    connect(tables_, &TableTree::Chosen, this, &ScriptBuilder::InsertPicked);
    connect(tables_, &TableTree::Moved, this, &ScriptBuilder::CheckMigrate);
    connect(dump_, &QPushButton::clicked, this, &ScriptBuilder::InsertDump);
    OfferNextDump();
    CheckMigrate();
}

QWidget* ScriptBuilder::MakePickers(Script script)
{
    auto* pickers = new QWidget;
    auto* layout = new QVBoxLayout(pickers);
    layout->setContentsMargins({});
    layout->addWidget(tables_, 1);

    auto* names = new QHBoxLayout;
    auto* insert = new QPushButton(QStringLiteral("Insert &name"));
    connect(insert, &QPushButton::clicked, this, &ScriptBuilder::InsertPicked);
    names->addWidget(insert);
    if (script == Script::PreCondition) {
        migrate_ = new QPushButton(QStringLiteral("Insert mi&grate"));
        connect(migrate_, &QPushButton::clicked, this, &ScriptBuilder::InsertMigrate);
        names->addWidget(migrate_);
    }
    names->addStretch();
    layout->addLayout(names);

    number_->setRange(1, LastDumpNumber);
    auto* numberRow = new QHBoxLayout;
    numberRow->addWidget(number_);
    numberRow->addWidget(dump_);
    numberRow->addStretch();
    comment_->setPlaceholderText(QStringLiteral("Optional, shown in the list of dumps"));
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("C&omment:"), comment_);
    auto* numberLabel = new QLabel(QStringLiteral("D&ump no.:"));
    numberLabel->setBuddy(number_);
    form->addRow(numberLabel, numberRow);
    layout->addLayout(form);
    return pickers;
}

void ScriptBuilder::OfferNextDump()
{
    const auto next = NextFreeDump(DumpsNamedBy(object_, FromQt(Text())));
    dump_->setEnabled(next.has_value());
    dump_->setToolTip(next ? QString() : QStringLiteral("All dump numbers up to %1 are taken").arg(LastDumpNumber));
    if (next)
        number_->setValue(*next);
}

// A table needs a code of the right form, and is migrated once.
void ScriptBuilder::CheckMigrate()
{
    if (migrate_ == nullptr)
        return;
    const rulemesh::Text table = FromQt(tables_->PickedTable());
    const auto migrated = TablesMigratedBy(FromQt(Text()));
    const bool listed = std::find(migrated.begin(), migrated.end(), table) != migrated.end();
    migrate_->setEnabled(IsTableCode(table) && !listed);
    migrate_->setToolTip(listed ? QStringLiteral("%1 is migrated already").arg(ToQt(table)) : QString());
}

void ScriptBuilder::InsertMigrate()
{
    InsertStatement(ToQt(MigrateStatement(FromQt(tables_->PickedTable()), FromQt(comment_->text()))));
    comment_->clear();
    CheckMigrate();
}

void ScriptBuilder::InsertDump()
{
    InsertStatement(ToQt(DumpStatement(static_cast<std::int16_t>(number_->value()), FromQt(comment_->text()))));
    comment_->clear();
    OfferNextDump();
}

void ScriptBuilder::InsertPicked() { InsertName(tables_->Picked()); }

} // namespace rulemesh
