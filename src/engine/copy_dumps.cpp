#include "engine/copy_dumps.h"

#include "base/case_map.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "views/field_columns.h"

namespace rulemesh {

namespace {

bool SameIgnoringCase(TextView a, TextView b) { return ToUpper(a) == ToUpper(b); }

} // namespace

// What the grid shows is not saved first: the copied rules take the place of unsaved edits.
void DumpCopying::cmdCopyDump_Click()
{
    const std::int16_t IntTo = shownDump_.SelectedDump().Value();
    const Text StrFrom = platform_
                             .AskForText(u"Please enter the dump number to be copied from: ",
                                         u"Copying rules to dump : " + PlainNumber(IntTo))
                             .value_or(Text());
    if (StrFrom.empty())
        return;
    const auto refuse = [&](Text StrText, Text StrTitle, MessageIcon icon) {
        platform_.ShowMessage({.Text = std::move(StrText), .Title = std::move(StrTitle), .Icon = icon});
    };
    if (!IsNumeric(StrFrom))
        return refuse(u"Invalid Dump Number!", u"Copying Dumps", MessageIcon::Critical);

    const std::int16_t IntFrom = ToInt16(StrFrom);
    const DumpRecord source = object_.Read().GetDumpNode(IntFrom);
    if (!source)
        return refuse(u"The entered dump number does not exists. ", u"Copy Dumps", MessageIcon::Exclamation);

    const Text StrSourceTable = source.Table();
    const DumpRecord target = TargetOfCopy(IntTo);
    if (target.Table().empty())
        object_.SetDumpTable(target, StrSourceTable);
    if (!SameIgnoringCase(StrSourceTable, target.Table()))
        return refuse(u"Dump " + StrFrom + u"  is associated with table: " + StrSourceTable +
                          u". So it is not possible to copy rules.",
                      u"Copying Dumps ", MessageIcon::Exclamation);
    if (!source.HasRecords())
        return refuse(u"No rules found for dump " + StrFrom, u"Copying Dumps ..", MessageIcon::Exclamation);

    const MessageButton answer = platform_.ShowMessage(
        {.Text = u"Press 'OK' To Copy Dump " + PrintedNumber(IntFrom) + u" To Dump : " + PrintedNumber(IntTo),
         .Title = u"Copy Dumps",
         .Buttons = {MessageButton::Ok, MessageButton::Cancel},
         .Icon = MessageIcon::Notice});
    if (answer == MessageButton::Ok)
        CopyRules(source, target, StrFrom, IntTo);
}

// A dump that has no element yet gets one, but the command fails all the same; the next try finds it.
DumpRecord DumpCopying::TargetOfCopy(std::int16_t IntTo)
{
    const DumpRecord target = object_.Read().GetDumpNode(IntTo);
    if (target)
        return target;
    object_.CreateDumpNode(IntTo, u"");
    throw Failure(FailureCode::ObjectVariableNotSet,
                  u"Dump " + PlainNumber(IntTo) + u" had no element DUMP to copy into; it has one now");
}

void DumpCopying::CopyRules(const DumpRecord& source, const DumpRecord& target, const Text& StrFrom, std::int16_t IntTo)
{
    const bool copied = object_.CopyRules(source, target);
    shownDump_.ShowDump(DumpNumber(IntTo));
    if (copied)
        platform_.ShowMessage(
            {.Text = u"Copying Of Dump: '" + StrFrom + u"' To Dump '" + PlainNumber(IntTo) + u"'  Was  Successful!!",
             .Title = u"Copy Dumps",
             .Icon = MessageIcon::Notice});
    else
        platform_.ShowMessage(
            {.Text = u"Source Dump Not Maintained ", .Title = u"Copy Dumps", .Icon = MessageIcon::Critical});
}

void DumpCopying::cmdCopyToAllDumps_Click()
{
    constexpr TextView StrTitle = u"Copy to all dumps...";
    const std::int16_t IntCurrent = shownDump_.SelectedDump().Value();
    const Text StrCurrent = PlainNumber(IntCurrent);
    shownDump_.SaveDumpRules(GridDump(DumpNumber(IntCurrent)));
    preConditions_.SavePreCondition();

    const DumpRecord dump = RequireDump(object_.Read().GetDumpNode(IntCurrent), IntCurrent);
    Text StrTable = dump.Table();
    if (StrTable.empty())
        StrTable = state_.StrTargetTable;
    const ListRow selected = views_.lstTargetFields.SelectedRow();
    if (selected == NoListRow)
        throw Failure(FailureCode::ObjectVariableNotSet, u"No field of lstTargetFields is selected");
    // The name is cut at the length of the table, and an index keeps its brackets: such a field is no valid path.
    const Text StrName = views_.lstTargetFields.TextAt(selected, TargetField::Name);
    const Text StrField = ToUpper(TextView(StrName).substr(std::min(StrTable.size() + 1, StrName.size())));
    const RuleRecord rule = dump.Rule(StrField);
    if (!rule) {
        platform_.ShowMessage(
            {.Text = u"The selected field is not populated.", .Title = Text(StrTitle), .Icon = MessageIcon::Notice});
        return;
    }
    if (object_.Read().CountDumpElements() < 2) {
        platform_.ShowMessage(
            {.Text = u"Only one dump is present in this conversion object", .Icon = MessageIcon::Notice});
        return;
    }
    const MessageButton answer = platform_.ShowMessage(
        {.Text = u"Existing rules for the selected target field will be overwritten in all the dumps.\r\nDo you want "
                 u"to continue?",
         .Title = Text(StrTitle),
         .Buttons = {MessageButton::Yes, MessageButton::No},
         .Icon = MessageIcon::Question});
    if (answer == MessageButton::No)
        return;
    object_.SpreadRule(rule, StrField, StrTable, StrCurrent);
    platform_.ShowMessage(
        {.Text = u"Copy to all dumps completed.", .Title = Text(StrTitle), .Icon = MessageIcon::Notice});
}

} // namespace rulemesh
