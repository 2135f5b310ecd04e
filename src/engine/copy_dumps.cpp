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
    const std::int16_t IntTo = shownDump_.SelectedDump();
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
    const XmlNode source = document_.GetDumpNode(IntFrom);
    if (!source)
        return refuse(u"The entered dump number does not exists. ", u"Copy Dumps", MessageIcon::Exclamation);

    const Text StrSourceTable = GetAttribute(source, u"TT");
    const XmlNode target = TargetOfCopy(IntTo);
    if (GetAttribute(target, u"TT").empty())
        SetAttribute(target, u"TT", StrSourceTable);
    if (!SameIgnoringCase(StrSourceTable, GetAttribute(target, u"TT")))
        return refuse(u"Dump " + StrFrom + u"  is associated with table: " + StrSourceTable +
                          u". So it is not possible to copy rules.",
                      u"Copying Dumps ", MessageIcon::Exclamation);
    if (!source.hasChildNodes())
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
XmlNode DumpCopying::TargetOfCopy(std::int16_t IntTo)
{
    const XmlNode target = document_.GetDumpNode(IntTo);
    if (target)
        return target;
    document_.CreateDumpNode(IntTo, u"");
    throw Failure(FailureCode::ObjectVariableNotSet,
                  u"Dump " + PlainNumber(IntTo) + u" had no element DUMP to copy into; it has one now");
}

// A dump copied onto itself loses its rules before there is anything to copy.
void DumpCopying::CopyRules(XmlNode source, XmlNode target, const Text& StrFrom, std::int16_t IntTo)
{
    target.removeChildren();
    bool copied = false;
    for (XmlNode rule = source.firstChild(); rule; rule = rule.nextSibling()) {
        target.appendChild(rule.cloneNode());
        copied = true;
    }
    shownDump_.ShowDump(IntTo);
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
    const std::int16_t IntCurrent = shownDump_.SelectedDump();
    const Text StrCurrent = PlainNumber(IntCurrent);
    shownDump_.SaveDumpRules(StrCurrent);
    preConditions_.SavePreCondition();

    const XmlNode dump = RequireDump(document_.GetDumpNode(IntCurrent), IntCurrent);
    Text StrTable = GetAttribute(dump, u"TT");
    if (StrTable.empty())
        StrTable = state_.StrTargetTable;
    const int selected = views_.lstTargetFields.SelectedRow();
    if (selected == 0)
        throw Failure(FailureCode::ObjectVariableNotSet, u"No field of lstTargetFields is selected");
    // The name is cut at the length of the table, and an index keeps its brackets: such a field is no valid path.
    const Text StrName = views_.lstTargetFields.TextAt(selected, TargetField::Name);
    const Text StrField = ToUpper(TextView(StrName).substr(std::min(StrTable.size() + 1, StrName.size())));
    const XmlNode rule = dump.selectSingleNode(StrField);
    if (!rule) {
        platform_.ShowMessage(
            {.Text = u"The selected field is not populated.", .Title = Text(StrTitle), .Icon = MessageIcon::Notice});
        return;
    }
    if (document_.Document().getElementsByTagName(u"DUMP").size() < 2) {
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
    SpreadRule(rule, StrField, StrTable, StrCurrent);
    platform_.ShowMessage(
        {.Text = u"Copy to all dumps completed.", .Title = Text(StrTitle), .Icon = MessageIcon::Notice});
}

void DumpCopying::SpreadRule(XmlNode rule, const Text& StrField, const Text& StrTable, const Text& StrCurrent)
{
    for (const XmlNode& dump : document_.Document().getElementsByTagName(u"DUMP")) {
        const Text StrDumpTable = GetAttribute(dump, u"TT");
        if (!StrDumpTable.empty() && !SameIgnoringCase(StrDumpTable, StrTable))
            continue;
        if (GetAttribute(dump, u"No") == StrCurrent)
            continue;
        const XmlNode former = dump.selectSingleNode(StrField);
        if (former)
            dump.replaceChild(rule.cloneNode(), former);
        else
            dump.appendChild(rule.cloneNode());
    }
}

} // namespace rulemesh
