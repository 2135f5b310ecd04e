#include "engine/retarget.h"

#include "base/case_map.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "engine/shared_form_values.h"

namespace rulemesh {

Text DumpRetargeting::ChooseTarget(std::int16_t IntDump, const Text& StrDefault)
{
    Shared().BoolTextMode = false;
    Shared().StrChooserTables.clear();
    for (const ComboBox::Entry& entry : views_.CmbTargetTable.Entries())
        Shared().StrChooserTables += entry.Text + u";";
    Shared().StrChosenTable = StrDefault;
    Shared().IntChooserDump = IntDump;
    chooser_.ShowChooser();
    return Shared().StrChosenTable;
}

void DumpRetargeting::CmdChange_Click()
{
    const std::int16_t IntDump = shownDump_.SelectedDump().Value();
    const Text StrTable = ChooseTarget(IntDump, views_.CmbTargetTable.Text());
    if (ToUpper(TableInLabel()) != ToUpper(StrTable)) {
        if (lookup_.DumpHasRules() && !UserGivesUpRules(IntDump, StrTable))
            return;
        AssignTable(IntDump, StrTable);
    }
    shownDump_.RefreshTargetFields();
}

// The label decides, also while it shows the table of another dump than the selected one.
const Text& DumpRetargeting::TableInLabel() const { return views_.LBLTargetTableName.Caption(); }

bool DumpRetargeting::UserGivesUpRules(std::int16_t IntDump, const Text& StrNewTable)
{
    const Text StrDump = PrintedNumber(IntDump);
    const Text& StrOldTable = TableInLabel();
    const MessageButton answer = platform_.ShowMessage(
        {.Text = u"You are changing the association of dump" + StrDump + u" from table : " + StrOldTable + u" to " +
                 StrNewTable + u"\r\nYou lose the maintained rules of dump" + StrDump + u" for target table " +
                 StrOldTable + u"\r\n Press 'Yes' to Proceed; 'No' to Cancel the Action",
         .Buttons = {MessageButton::Yes, MessageButton::No},
         .Icon = MessageIcon::Critical});
    return answer == MessageButton::Yes;
}

// The description of the former table stays. Unsaved edits in the grid go with the rules.
void DumpRetargeting::AssignTable(std::int16_t IntDump, const Text& StrTable)
{
    const DumpRecord dump = RequireDump(object_.Read().GetDumpNode(IntDump), IntDump);
    object_.SetDumpTable(dump, StrTable);
    object_.RemoveRules(dump);
    AppendDefaultRule(dump, StrTable);
    views_.LBLTargetTableName.Caption(StrTable);
    shownDump_.ShowDump(DumpNumber(IntDump));
}

void DumpRetargeting::AppendDefaultRule(const DumpRecord& dump, const Text& StrTable)
{
    const TableRecord table = object_.Read().TargetTable(StrTable);
    if (!table)
        throw Failure(FailureCode::ObjectVariableNotSet, u"The object describes no target table " + Quoted(StrTable));
    const RecordRange<FieldRecord> fields = table.Fields();
    if (fields.begin() != fields.end())
        object_.AppendRule(dump, (*fields.begin()).Name(), u"default()");
}

} // namespace rulemesh
