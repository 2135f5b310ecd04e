#include "shell/tab_flow.h"

#include "base/numbers.h"

namespace rulemesh {

void TabFlow::MainTab_Click(std::int16_t PreviousTab)
{
    platform_.RunPendingEvents();
    if (PreviousTab != 0)
        ShowScripts(PreviousTab);
    else
        ShowRules();
}

void TabFlow::ShowScripts(std::int16_t PreviousTab)
{
    views_.FrmRules.Enabled(false);
    views_.FrmCondition.Enabled(true);
    views_.LBLTargetTableName.Enabled(true);
    if (PreviousTab == 1)
        shownDump_.SaveShownRules();
    layout_.UserControl_Resize();
}

// Turning back to the first tab runs MainTab_Click nested; only the lack of any dump ends the flow.
void TabFlow::ShowRules()
{
    views_.FrmRules.Enabled(true);
    views_.FrmCondition.Enabled(false);
    preConditions_.SavePreCondition();
    if (!views_.MainTab.TabEnabled(1))
        views_.MainTab.Tab(0);
    queries_.SaveMainQuery();
    if (state_.IntDumpNumbers.front() < 1) {
        views_.MainTab.Tab(0);
        platform_.ShowMessage({.Text = u"Define Dumps", .Title = u"Mapping Object", .Icon = MessageIcon::Critical});
        return;
    }
    DumpNumber dump = views_.CmbDump.HasSelection() ? shownDump_.SelectedDump() : DumpNumber(0);
    FillDumpList();
    if (state_.BoolMultiTarget)
        ChooseMissingTargets(dump);
    if (!IsInDumpList(state_.IntDumpNumbers, dump.Value()))
        dump = DumpNumber(state_.IntDumpNumbers.front());
    SelectDump(dump);
    shownDump_.ShowDump(dump);
    views_.CmbDump.SetFocus();
    layout_.UserControl_Resize();
}

void TabFlow::FillDumpList()
{
    views_.CmbDump.Clear();
    if (IsEmptyList(state_.IntDumpNumbers))
        return;
    for (std::size_t index = 0; index < state_.IntDumpNumbers.size(); ++index) {
        const std::int16_t IntDump = state_.IntDumpNumbers[index];
        views_.CmbDump.AddItem(TwoDigitNumber(IntDump) + u"--" + state_.StrDumpTexts[index], IntDump);
    }
}

// The attribute is read as it stands: GetDumpTargetTable would write the default into it. Cancel means the first
// table, so no dump is left without one.
void TabFlow::ChooseMissingTargets(DumpNumber& goesTo)
{
    for (std::size_t index = 0; index < views_.CmbDump.Entries().size(); ++index) {
        const auto IntDump = static_cast<std::int16_t>(views_.CmbDump.Entries()[index].Data);
        const DumpRecord dump = RequireDump(object_.Read().GetDumpNode(IntDump), IntDump);
        if (!dump.Table().empty())
            continue;
        const std::vector<ComboBox::Entry>& tables = views_.CmbTargetTable.Entries();
        const Text StrTable = retargeting_.ChooseTarget(IntDump, tables.empty() ? Text() : tables.front().Text);
        object_.SetDumpTable(dump, StrTable);
        retargeting_.AppendDefaultRule(dump, StrTable);
        if (views_.CmbDump.HasSelection())
            goesTo = shownDump_.SelectedDump();
    }
}

void TabFlow::SelectDump(DumpNumber dump)
{
    const std::vector<ComboBox::Entry>& entries = views_.CmbDump.Entries();
    for (std::size_t index = 0; index < entries.size(); ++index) {
        if (entries[index].Data == dump.Value()) {
            views_.CmbDump.ListIndex(static_cast<int>(index));
            state_.DumpInGrid = GridDump(dump, GridDump::Digits::Two);
            return;
        }
    }
}

} // namespace rulemesh
