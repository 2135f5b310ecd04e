#include "engine/shown_dump.h"

#include "base/case_map.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "engine/field_rows.h"
#include "object/names.h"
#include "object/rule_text.h"

namespace rulemesh {

namespace {

RuleTexts RulesOf(const Grid& grid)
{
    RuleTexts rules;
    rules.reserve(static_cast<std::size_t>(grid.Rows()));
    for (int row = 0; row < grid.Rows(); ++row)
        rules.emplace_back(grid.TextMatrix(row, 1));
    return rules;
}

} // namespace

void ShownDump::RefreshTargetList()
{
    const TableRecord table = lookup_.GetTargetTableNode(0);
    views_.lstTargetFields.Clear();
    FillTargetFields(views_.lstTargetFields, table);
}

void ShownDump::ShowDump(DumpNumber dump)
{
    ShowSourceFields();
    if (state_.BoolMultiTarget) {
        RefreshTargetFields();
    } else {
        if (views_.RulesGrid.Rows() < 2) {
            const TableRecord table = lookup_.GetTargetTableNode(0);
            if (!table) {
                state_.DumpInGrid = GridDump(dump, GridDump::Digits::Two);
                return;
            }
            BuildRuleRows(ToLower(table.Name()));
        }
        LoadDumpRules(dump);
    }
    state_.DumpInGrid = GridDump(dump);
}

void ShownDump::ShowSourceFields()
{
    views_.lstSourceFields.Clear();
    for (int row = 1; row <= views_.lstSourceTables.Count(); ++row) {
        const Text StrTable = views_.lstSourceTables.TextAt(row, 0);
        if (!StrTable.empty())
            FillSourceFields(views_.lstSourceFields, object_.Read().SourceTable(StrTable));
    }
}

void ShownDump::BuildRuleRows(const Text& StrTable)
{
    const TableRecord table = object_.Read().TargetTable(StrTable);
    if (!table)
        return;
    views_.RulesGrid.ClearRows();
    views_.CmbDump.ToolTip(CommentOfSelectedDump());
    for (const FieldRecord field : table.Fields())
        views_.RulesGrid.AddItem({QualifiedName(table.Name(), field.Name()), Text(UntouchedRule)});
}

void ShownDump::LoadDumpRules(DumpNumber dump)
{
    Grid& grid = views_.RulesGrid;
    if (dump == DumpNumber(0)) {
        for (int row = 0; row < grid.Rows(); ++row)
            grid.TextMatrix(row, 1, u"");
        if (views_.CmbDump.HasSelection())
            ShowSelectedDumpInDetails();
        return;
    }
    const TableRecord table = lookup_.GetTargetTableNode(0);
    ShowDumpTarget(dump);
    if (!table) {
        state_.DumpInGrid = GridDump(dump, GridDump::Digits::Two);
        return;
    }
    for (const FieldRecord field : table.Fields()) {
        const std::int16_t row = field.Row(); // a faulty number fails before the read of the rule makes a dump
        const Text StrRule = object_.GetRuleText(dump.Value(), field.Name());
        grid.TextMatrix(row, 1, StrRule);
    }
    grid.TopRow(0);
    if (!views_.CmbDump.HasSelection())
        views_.CmbDump.ListIndex(0);
    ShowSelectedDumpInDetails();
}

void ShownDump::ShowSelectedDumpInDetails()
{
    const Text StrComment = CommentOfSelectedDump();
    const DumpNumber dump = SelectedDump();
    state_.DumpInDetails = dump;
    views_.Details.Caption(u"F&ields of Dump: " + PrintedNumber(dump.Value()) + u":" + StrComment);
    views_.CmbDump.ToolTip(StrComment);
}

Text ShownDump::CommentOfSelectedDump() const
{
    const std::int16_t IntDump = views_.CmbDump.HasSelection() ? SelectedDump().Value() : std::int16_t{0};
    const auto comment = state_.DumpComments.find(IntDump);
    return comment == state_.DumpComments.end() ? Text() : comment->second;
}

void ShownDump::SaveDumpRules(const GridDump& dump)
{
    object_.SaveDumpRules(dump, {.AskForTable = [this] { return AskForTargetTable(); },
                                 .Table = [this] { return lookup_.GetTargetTableNode(0); },
                                 .Rules = [this] { return RulesOf(views_.RulesGrid); }});
}

// The message does not stop the save: the dump keeps an empty table until somebody chooses one.
Text ShownDump::AskForTargetTable()
{
    if (views_.CmbTargetTable.Text().empty()) {
        platform_.ShowMessage(
            {.Text = u"TargetTable for the Dump Not chosen. Please Choose One Now", .Icon = MessageIcon::Critical});
        views_.MainTab.Tab(1);
        views_.CmbTargetTable.SetFocus();
    }
    return views_.CmbTargetTable.Text();
}

void ShownDump::RefreshTargetFields()
{
    if (!state_.BoolMultiTarget)
        return;
    const TableRecord table = lookup_.GetTargetTableNode(0);
    views_.lstTargetFields.Clear();
    if (!table)
        return;
    FillTargetFields(views_.lstTargetFields, table);
    const Text StrTable = table.Name();
    BuildRuleRows(ToLower(StrTable));
    if (!state_.DumpInGrid.IsNone())
        LoadDumpRules(state_.DumpInGrid.Number());
    const std::vector<ComboBox::Entry>& entries = views_.CmbTargetTable.Entries();
    for (std::size_t index = 0; index < entries.size(); ++index) {
        if (entries[index].Text == StrTable) {
            views_.CmbTargetTable.ListIndex(static_cast<int>(index));
            return;
        }
    }
}

void ShownDump::ShowDumpTarget(DumpNumber dump)
{
    const Text StrTable = object_.GetDumpTargetTable(state_.DumpInGrid.Number().Value());
    if (StrTable.empty())
        return;
    const Text StrDescription = object_.Read().GetDumpTargetDescription(dump.Value());
    views_.LBLTargetTableName.Caption(StrTable);
    views_.lblTargetTableDescription.Caption(StrDescription);
    const std::vector<ComboBox::Entry>& entries = views_.CmbTargetTable.Entries();
    for (std::size_t index = 0; index < entries.size(); ++index) {
        if (TrimBlanks(entries[index].Text) == StrTable)
            views_.CmbTargetTable.ListIndex(static_cast<int>(index)); // of two equal entries the last one stands
    }
}

void ShownDump::LeaveShownDump(Labels labels)
{
    if (state_.DumpInGrid.IsNone())
        return;
    SaveShownRules();
    if (!views_.lblTargetTable.Visible())
        return;
    const std::int16_t IntDump = SelectedDump().Value();
    views_.LBLTargetTableName.Caption(object_.GetDumpTargetTable(IntDump));
    if (labels == Labels::TableAndDescription)
        views_.lblTargetTableDescription.Caption(object_.Read().GetDumpTargetDescription(IntDump));
}

void ShownDump::CmbDump_Click()
{
    LeaveShownDump(Labels::TableAndDescription);
    state_.DumpInGrid = GridDump(SelectedDump());
    views_.lstTargetFields.SetFocus(); // CmbDump loses the focus by this, and that loads the dump
}

void ShownDump::Command1_Click()
{
    LeaveShownDump(Labels::Table);
    state_.DumpInGrid = GridDump(SelectedDump());
}

DumpNumber ShownDump::SelectedDump() const { return DumpNumber(ToInt16(std::int64_t{views_.CmbDump.ItemData()})); }

DumpNumber ShownDump::DumpInDetails() const
{
    if (!state_.DumpInDetails)
        throw Failure(FailureCode::SubscriptOutOfRange,
                      u"No dump is shown yet: the caption " + Quoted(views_.Details.Caption()) + u" names none");
    return *state_.DumpInDetails;
}

void ShownDump::CmbDump_LostFocus()
{
    if (!state_.DumpInDetails || !views_.CmbDump.HasSelection())
        return;
    const DumpNumber dump = SelectedDump();
    if (dump == DumpInDetails())
        return;
    state_.DumpInGrid = GridDump(dump);
    ShowDump(dump);
}

} // namespace rulemesh
