#include "script/precondition.h"

#include <algorithm>
#include <memory>
#include <unordered_set>

#include "base/case_map.h"
#include "base/failure.h"
#include "script/script_keys.h"

namespace rulemesh {

void PreConditions::ShowPreCondition()
{
    views_.txtPreCondition.Text(DecodeEntities(object_.Read().GetPreconditionText()));
    RefreshNoteButton();
}

void PreConditions::RefreshNoteButton()
{
    if (!state_.BoolEdit)
        views_.CmdPreDoc.Enabled(HasPreConditionNote());
}

bool PreConditions::HasPreConditionNote() const
{
    const ScriptRecord precondition = object_.Read().Precondition();
    return precondition && !precondition.Note().empty();
}

// The tables are worked out by parsing the stored text and then the box, so complaints come for both.
void PreConditions::SavePreCondition()
{
    SyntaxBox& box = views_.txtPreCondition;
    state_.StrPriorMigrateTables = {u""};
    state_.StrNewMigrateTables = {u""};
    const ScriptRecord stored = object_.Read().Precondition();
    if (!stored)
        throw Failure(FailureCode::ObjectVariableNotSet,
                      u"The object has no element PREC under a root named " + Quoted(state_.StrTargetTable));
    const Text StrStored = stored.Script();
    scanner_.ParseMigrateKeywords(StrStored);
    state_.StrPriorMigrateTables = state_.StrMigrateTables;
    const std::shared_ptr<const Text> StrShown = box.SharedText(); // a complaint may let the host set another one
    scanner_.ParseMigrateKeywords(*StrShown);
    state_.StrNewMigrateTables = state_.StrMigrateTables;

    if (MigrateStatementsLost()) {
        const MessageButton answer =
            platform_.ShowMessage({.Text = u"Migrate statement(s) removed, \r\nScript will be deleted if Press 'OK', "
                                           u"Cancel will undo the changes : ",
                                   .Title = u"PreCondition warning",
                                   .Buttons = {MessageButton::Ok, MessageButton::Cancel},
                                   .Icon = MessageIcon::Notice});
        if (answer == MessageButton::Cancel) {
            box.Text(StrStored);
            object_.SetScript(stored, box.Text());
            AnalysePreCondition(); // and once more below: what it has to say comes twice
        }
    }
    object_.SetScript(stored, box.Text());
    AnalysePreCondition();
}

// How many tables there are counts, not which: a table replaced in place is no loss.
bool PreConditions::MigrateStatementsLost() const
{
    const std::vector<Text>& prior = state_.StrPriorMigrateTables;
    const std::vector<Text>& now = state_.StrNewMigrateTables;
    const bool hadTables = !prior.front().empty();
    const bool boxIsBlank = TrimBlanks(views_.txtPreCondition.Text()).empty();
    return (hadTables && now.front().empty()) || prior.size() > now.size() || (boxIsBlank && hadTables);
}

void PreConditions::AnalysePreCondition()
{
    state_.StrMigrateTables = {u""};
    scanner_.ParseMigrateKeywords(object_.Read().GetPreconditionText());
    if (TrimBlanks(state_.StrMigrateTables.front()).empty()) {
        queries_.ShowMigrateQuery(u"");
        scanner_.FillMigrateList();
        return;
    }
    const bool opens = !AddFirstUnknownTable() && CatalogueHasMigrateTables();
    views_.MainTab.TabEnabled(1, opens);
    if (!IsInStringList(state_.StrMigrateTables, state_.QueryTable.Written()))
        queries_.ShowMigrateQuery(state_.StrMigrateTables.front());
    scanner_.FillMigrateList();
}

// One run adds one table; any further one waits for the next run.
bool PreConditions::AddFirstUnknownTable()
{
    const Text StrSourceTables = sourceTables_.SourceTables();
    const std::vector<Text> parts = Split(StrSourceTables, u',');
    const std::unordered_set<Text> known(parts.begin(), parts.end());
    const auto unknown = std::find_if(state_.StrMigrateTables.begin(), state_.StrMigrateTables.end(),
                                      [&](const Text& StrTable) { return !known.contains(StrTable); });
    if (unknown == state_.StrMigrateTables.end())
        return false;
    sourceTables_.SourceTables(StrSourceTables.empty() ? *unknown : StrSourceTables + u"," + *unknown);
    return true;
}

bool PreConditions::CatalogueHasMigrateTables() const
{
    return std::all_of(state_.StrMigrateTables.begin(), state_.StrMigrateTables.end(),
                       [&](const Text& StrTable) { return static_cast<bool>(object_.Read().SourceTable(StrTable)); });
}

void PreConditions::PreCondition(const Text& StrText)
{
    views_.txtPreCondition.Text(DecodeEntities(StrText));
    SavePreCondition();
    views_.CmdBuildPre.Enabled(true);
}

void PreConditions::txtPreCondition_KeyDown(std::int16_t& KeyCode, std::int16_t Shift)
{
    MoveByTabKey(KeyCode, Shift, views_.CmdSelectSource, views_.lstSourceTables);
}

void PreConditions::CmdBuildPre_Click()
{
    const Text StrPreCondition = object_.Read().GetPreconditionText();
    const Text StrSourceTables = object_.Read().GetSourceTablesText();
    events_.ShowConditionBuilderPopUp(StrPreCondition, StrSourceTables);
}

} // namespace rulemesh
