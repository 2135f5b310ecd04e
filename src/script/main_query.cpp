#include "script/main_query.h"

#include "base/failure.h"
#include "script/reconcile_dumps.h"
#include "script/script_keys.h"

namespace rulemesh {

namespace {

// A row of lstMigrateSource names its table: "migrate srtab001".
Text TableOfRow(TextView StrRow)
{
    constexpr TextView StrPrefix = u"migrate ";
    return Text(TrimBlanks(StrRow.substr(FindIgnoringCase(StrRow, StrPrefix) + StrPrefix.size())));
}

} // namespace

void MainQueries::ShowMigrateQuery(const Text& StrTable)
{
    views_.txtMainQuery.Text(StrTable.empty() ? Text() : DecodeEntities(object_.Read().GetQueryText(StrTable)));
    state_.QueryTable = TableCode(StrTable);
    if (!state_.BoolEdit)
        views_.CmdMQDoc.Enabled(HasMainQueryNote());
}

bool MainQueries::HasMainQueryNote() const
{
    const Text& StrTable = state_.QueryTable.Written();
    if (TrimBlanks(StrTable).empty())
        return false;
    const ScriptRecord query = object_.Read().Query(StrTable);
    return query && !query.Note().empty();
}

// The dumps are read from the stored scripts before and after the write, so that comparing them parses no box.
void MainQueries::SaveMainQuery()
{
    SyntaxBox& box = views_.txtMainQuery;
    state_.IntPriorDumpNumbers = {0};
    state_.StrPriorDumpTexts = {u""};
    CollectDumps(state_.IntPriorDumpNumbers, state_.StrPriorDumpTexts);
    SaveQuery(state_.QueryTable.Written(), box.Text());
    CollectDumps(state_.IntDumpNumbers, state_.StrDumpTexts);
    ReconcileDumps(state_.IntDumpNumbers, state_.IntPriorDumpNumbers, box, platform_);
    SaveQuery(state_.QueryTable.Written(), box.Text());
}

void MainQueries::CollectDumps(std::vector<std::int16_t>& IntNumbers, std::vector<Text>& StrTexts)
{
    IntNumbers = {0}; // the texts stay until a dump takes their place
    scanner_.ScanDumpKeywords(object_.Read().GetPreconditionText(), IntNumbers, StrTexts);
    scanner_.ScanDumpKeywords(object_.Read().GetFunctionsText(), IntNumbers, StrTexts);
    state_.DumpSourceTables.clear();
    IndexDumps(IntNumbers, u"", StrTexts);
    for (const Text& StrTable : state_.StrMigrateTables) {
        scanner_.ScanDumpKeywords(object_.Read().GetQueryText(StrTable), IntNumbers, StrTexts);
        IndexDumps(IntNumbers, StrTable, StrTexts);
    }
}

void MainQueries::IndexDumps(const std::vector<std::int16_t>& IntNumbers, const Text& StrTable,
                             const std::vector<Text>& StrTexts)
{
    if (IsEmptyList(IntNumbers))
        return;
    for (std::size_t index = 0; index < IntNumbers.size(); ++index) {
        state_.DumpSourceTables.try_emplace(IntNumbers[index], StrTable);
        state_.DumpComments.insert_or_assign(IntNumbers[index], StrTexts[index]);
    }
}

void MainQueries::MainQuery(const Text& StrText)
{
    views_.txtMainQuery.Text(StrText);
    SaveMainQuery();
    views_.cmdBuildMQ.Enabled(true);
}

void MainQueries::lstMigrateSource_ItemClick(ListRow row)
{
    const Text StrRow = views_.lstMigrateSource.TextAt(row, 0);
    if (StrRow.empty())
        return;
    SyntaxBox& box = views_.txtMainQuery;
    if (!state_.QueryTable.IsNone())
        SaveQuery(state_.QueryTable.Written(), box.Text());
    const Text StrTable = TableOfRow(StrRow);
    box.Text(DecodeEntities(object_.Read().GetQueryText(StrTable)));
    state_.QueryTable = TableCode(StrTable);
}

void MainQueries::txtMainQuery_GotFocus()
{
    if (!state_.BoolEdit)
        views_.CmdMQDoc.Enabled(HasMainQueryNote());
    views_.txtMainQuery.Locked(views_.lstMigrateSource.Count() == 0 || !state_.BoolEdit);
}

void MainQueries::txtMainQuery_KeyDown(std::int16_t& KeyCode, std::int16_t Shift)
{
    MoveByTabKey(KeyCode, Shift, views_.cmdBuildMQ, views_.lstMigrateSource);
}

void MainQueries::cmdBuildMQ_Click()
{
    const SyntaxBox& box = views_.txtMainQuery;
    if (!state_.QueryTable.IsNone())
        events_.ShowQueryBuilderPopUp(box.Text(), state_.QueryTable.Written());
}

} // namespace rulemesh
