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

void ShownDump::ShowDump(std::int16_t IntDump)
{
    ShowSourceFields();
    if (state_.BoolMultiTarget) {
        RefreshTargetFields();
    } else {
        if (views_.RulesGrid.Rows() < 2) {
            const TableRecord table = lookup_.GetTargetTableNode(0);
            if (!table) {
                views_.CmbDump.Tag(TwoDigitNumber(IntDump));
                return;
            }
            BuildRuleRows(ToLower(table.Name()));
        }
        LoadDumpRules(IntDump);
    }
    views_.CmbDump.Tag(PlainNumber(IntDump));
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
    views_.CmbDump.ToolTip(CommentOf(LeadingNumber(views_.CmbDump.Text())));
    for (const FieldRecord field : table.Fields())
        views_.RulesGrid.AddItem({QualifiedName(table.Name(), field.Name()), Text(UntouchedRule)});
}

void ShownDump::LoadDumpRules(std::int16_t IntDump)
{
    Grid& grid = views_.RulesGrid;
    if (IntDump == 0) {
        for (int row = 0; row < grid.Rows(); ++row)
            grid.TextMatrix(row, 1, u"");
        if (views_.CmbDump.HasSelection())
            ShowSelectedDumpInCaption();
        return;
    }
    const TableRecord table = lookup_.GetTargetTableNode(0);
    ShowDumpTarget(PlainNumber(IntDump));
    if (!table) {
        views_.CmbDump.Tag(TwoDigitNumber(IntDump));
        return;
    }
    for (const FieldRecord field : table.Fields()) {
        const std::int16_t row = field.Row(); // a faulty number fails before the read of the rule makes a dump
        const Text StrRule = object_.GetRuleText(IntDump, field.Name());
        grid.TextMatrix(row, 1, StrRule);
    }
    grid.TopRow(0);
    if (!views_.CmbDump.HasSelection())
        views_.CmbDump.ListIndex(0);
    ShowSelectedDumpInCaption();
}

void ShownDump::ShowSelectedDumpInCaption()
{
    const Text StrComment = CommentOf(LeadingNumber(views_.CmbDump.Text()));
    views_.Details.Caption(u"F&ields of Dump: " + PrintedNumber(SelectedDump()) + u":" + StrComment);
    views_.CmbDump.ToolTip(StrComment);
}

Text ShownDump::CommentOf(std::int16_t IntDump) const
{
    const auto comment = state_.DumpComments.find(IntDump);
    return comment == state_.DumpComments.end() ? Text() : comment->second;
}

void ShownDump::SaveDumpRules(const Text& StrDump)
{
    object_.SaveDumpRules(StrDump, {.AskForTable = [this] { return AskForTargetTable(); },
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
    if (!views_.CmbDump.Tag().empty())
        LoadDumpRules(ToInt16(views_.CmbDump.Tag()));
    const std::vector<ComboBox::Entry>& entries = views_.CmbTargetTable.Entries();
    for (std::size_t index = 0; index < entries.size(); ++index) {
        if (entries[index].Text == StrTable) {
            views_.CmbTargetTable.ListIndex(static_cast<int>(index));
            return;
        }
    }
}

void ShownDump::ShowDumpTarget(const Text& StrDump)
{
    const Text StrTable = object_.GetDumpTargetTable(ToInt16(views_.CmbDump.Tag()));
    if (StrTable.empty())
        return;
    const Text StrDescription = object_.Read().GetDumpTargetDescription(ToInt16(StrDump));
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
    if (views_.CmbDump.Tag().empty())
        return;
    SaveDumpRules(views_.CmbDump.Tag());
    if (!views_.lblTargetTable.Visible())
        return;
    const std::int16_t IntDump = SelectedDump();
    views_.LBLTargetTableName.Caption(object_.GetDumpTargetTable(IntDump));
    if (labels == Labels::TableAndDescription)
        views_.lblTargetTableDescription.Caption(object_.Read().GetDumpTargetDescription(IntDump));
}

void ShownDump::CmbDump_Click()
{
    LeaveShownDump(Labels::TableAndDescription);
    views_.CmbDump.Tag(PlainNumber(SelectedDump()));
    views_.lstTargetFields.SetFocus(); // CmbDump loses the focus by this, and that loads the dump
}

void ShownDump::Command1_Click()
{
    LeaveShownDump(Labels::Table);
    views_.CmbDump.Tag(PlainNumber(SelectedDump()));
}

std::int16_t ShownDump::SelectedDump() const { return ToInt16(std::int64_t{views_.CmbDump.ItemData()}); }

bool ShownDump::CaptionHasDump() const { return views_.Details.Caption().find(u':') != Text::npos; }

std::int16_t ShownDump::DumpInCaption() const
{
    if (!CaptionHasDump())
        throw Failure(FailureCode::SubscriptOutOfRange,
                      u"No dump is shown yet: the caption " + Quoted(views_.Details.Caption()) + u" names none");
    return ToInt16(TrimBlanks(Split(views_.Details.Caption(), u':')[1]));
}

void ShownDump::CmbDump_LostFocus()
{
    if (!CaptionHasDump() || !views_.CmbDump.HasSelection())
        return;
    const std::int16_t IntDump = SelectedDump();
    if (IntDump == DumpInCaption())
        return;
    views_.CmbDump.Tag(PlainNumber(IntDump));
    ShowDump(IntDump);
}

} // namespace rulemesh
