#include "host/builders/builders.h"

#include "desktop/qt_text.h"
#include "desktop/rulemesh_widget.h"
#include "host/builders/function_builder.h"
#include "host/builders/function_button.h"
#include "host/builders/script_builder.h"
#include "host/builders/source_tables_builder.h"
#include "host/reading/script_statements.h"
#include "host/reading/unsaved_texts.h"
#include "object/rule_text.h"

namespace rulemesh {

namespace {

QStringList Codes(const QString& tables) { return tables.split(u',', Qt::SkipEmptyParts); }

QString WithoutUntouchedBlank(const QString& rule) { return rule == ToQt(UntouchedRule) ? QString() : rule; }

} // namespace

Builders::Builders(RulemeshWidget& widget) : widget_(widget)
{
    connect(&widget, &RulemeshWidget::ShowSourceTablesPopUp, this, &Builders::BuildSourceTables, Qt::QueuedConnection);
    connect(&widget, &RulemeshWidget::ShowConditionBuilderPopUp, this, &Builders::BuildCondition, Qt::QueuedConnection);
    connect(&widget, &RulemeshWidget::ShowQueryBuilderPopUp, this, &Builders::BuildQuery, Qt::QueuedConnection);
    connect(&widget, &RulemeshWidget::ShowFunctionBuilderPopUp, this, &Builders::BuildFunction, Qt::QueuedConnection);
}

void Builders::BuildSourceTables(const QString& i_SourceTables)
{
    SourceTablesBuilder dialog(i_SourceTables, CatalogueOf(widget_.Control().DocumentAsItStands()).Sources, &widget_);
    if (dialog.exec() == QDialog::Accepted && !dialog.NewlyTicked().isEmpty())
        widget_.SourceTables(SourceTablesWith(i_SourceTables, dialog.NewlyTicked()));
}

void Builders::BuildCondition(const QString& i_ConditionString, const QString& i_SourceTables)
{
    ScriptBuilder dialog(ScriptBuilder::Script::PreCondition, i_ConditionString, Codes(i_SourceTables),
                         ObjectAsItStands(widget_.Control()), &widget_);
    if (dialog.exec() != QDialog::Accepted || !dialog.IsChanged())
        return;
    ListMigrated(dialog.Text());
    widget_.PreCondition(dialog.Text());
}

// The designer adds one unlisted table at a save and keeps its rules closed until the next one.
void Builders::ListMigrated(const QString& script)
{
    const Catalogue catalogue = CatalogueOf(widget_.Control().DocumentAsItStands());
    const QString listed = widget_.SourceTables();
    QStringList missing;
    for (const Text& table : TablesMigratedBy(FromQt(script))) {
        if (FindTable(catalogue.Sources, table) != nullptr && !Codes(listed).contains(ToQt(table)))
            missing += ToQt(table);
    }
    if (!missing.isEmpty())
        widget_.SourceTables(SourceTablesWith(listed, missing));
}

void Builders::BuildQuery(const QString& i_QueryString, const QString& i_SourceTables)
{
    ScriptBuilder dialog(ScriptBuilder::Script::MainQuery, i_QueryString, Codes(i_SourceTables),
                         ObjectAsItStands(widget_.Control()), &widget_);
    if (dialog.exec() == QDialog::Accepted && dialog.IsChanged())
        widget_.MainQuery(dialog.Text());
}

void Builders::BuildFunction(const QString& StrCondition, const QString& StrSourceTables)
{
    if (!FunctionButton::MayBuild(widget_))
        return;
    const Grid& grid = widget_.Control().Views().RulesGrid;
    FunctionBuilder dialog(ToQt(grid.TextMatrix(grid.Row(), 0)), WithoutUntouchedBlank(StrCondition),
                           Codes(StrSourceTables), ObjectAsItStands(widget_.Control()), &widget_);
    if (dialog.exec() == QDialog::Accepted && dialog.IsChanged())
        widget_.FieldMapping(dialog.Text());
}

} // namespace rulemesh
