#include "host/opened/rules_gate.h"

#include <algorithm>

#include <QApplication>

#include "base/case_map.h"
#include "desktop/qt_text.h"
#include "desktop/rulemesh_widget.h"
#include "desktop/view_surface.h"
#include "host/builders/source_tables_builder.h"
#include "host/reading/script_statements.h"
#include "object/catalogue.h"
#include "object/document_access.h"

namespace rulemesh {

namespace {

constexpr int RulesTab = 1;
constexpr int PauseBeforeLooking = 200; // milliseconds

// The designer looks for the code in upper case alone.
bool Describes(const Catalogue& catalogue, const Text& table)
{
    return std::any_of(catalogue.Sources.begin(), catalogue.Sources.end(),
                       [code = ToUpper(table)](const CatalogueTable& described) { return described.Code == code; });
}

QString LeaveAgain()
{
    return QStringLiteral("Rules are shut. To open them, click into the precondition and out of it again.");
}

QString Lacking(const QStringList& tables)
{
    return QStringLiteral("Rules are shut: no source table %1. Designer > Import Catalogue adds it.")
        .arg(tables.join(QStringLiteral(", ")));
}

} // namespace

RulesGate::RulesGate(RulemeshWidget& widget) : widget_(widget)
{
    pause_.setSingleShot(true);
    pause_.setInterval(PauseBeforeLooking);
    connect(&pause_, &QTimer::timeout, this, &RulesGate::Look);
    connect(&widget, &RulemeshWidget::Acted, this, [this] {
        if (!widget_.Surface().IsGoingBack()) // what was taken back is not brought about again
            pause_.start();
    });
}

bool RulesGate::IsShut() { return !widget_.Control().Views().MainTab.TabEnabled(RulesTab); }

void RulesGate::OpenAtStart() { OpenBy(Reading::ByShowControl); }

// Between two acts of the user: an open box or builder belongs to one that goes on.
void RulesGate::Look()
{
    if (QApplication::activeModalWidget() != nullptr)
        pause_.start();
    else
        OpenBy(Reading::ByPreCondition);
}

void RulesGate::OpenBy(Reading reading)
{
    const QString hint = IsShut() ? TryToOpen(reading) : QString();
    if (hint == hint_)
        return;
    hint_ = hint;
    emit HintChanged();
}

QString RulesGate::TryToOpen(Reading reading)
{
    ctlRulemesh& control = widget_.Control();
    const std::vector<Text>& migrated = control.State().StrMigrateTables;
    if (IsEmptyList(migrated))
        return QStringLiteral("Rules are shut: the precondition migrates no table.");
    const Catalogue catalogue = CatalogueOf(control.DocumentAsItStands());
    const QStringList listed = widget_.SourceTables().split(u',');
    QStringList lacking;
    QStringList unlisted;
    for (const Text& table : migrated) {
        if (!Describes(catalogue, table))
            lacking += ToQt(table);
        else if (!listed.contains(ToQt(table)))
            unlisted += ToQt(table);
    }
    if (!lacking.isEmpty())
        return Lacking(lacking);

    // A script that is being typed is read when its box is left.
    const TextBox& box = control.Views().txtPreCondition;
    const bool isBeingTyped = reading == Reading::ByPreCondition && control.Views().Tree.Focused() == &box;
    // The property undoes one level of escape, so that a script with an escape in it can't be handed over as it is.
    const Text script = box.Text();
    const bool comesThrough = Without(DecodeEntities(script), u'\r') == Without(script, u'\r');
    const bool mayAsk = reading == Reading::ByShowControl || (widget_.Edit() && comesThrough);
    if (isBeingTyped || !mayAsk || !MigratesCleanly(script) || script == tried_)
        return LeaveAgain();
    tried_ = script;
    // No step of the user's: it goes with the one that entered the table.
    const ActionScope scope(control.Views().Tree.Acting, {.What = Action::Kind::Move});
    if (!unlisted.isEmpty())
        widget_.SourceTables(SourceTablesWith(widget_.SourceTables(), unlisted));
    if (reading == Reading::ByShowControl)
        widget_.ShowControl();
    else
        widget_.PreCondition(ToQt(script));
    if (IsShut())
        return LeaveAgain();
    tried_.clear();
    return {};
}

} // namespace rulemesh
