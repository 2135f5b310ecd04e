#include "shell/text_notes.h"

#include "base/case_map.h"
#include "base/numbers.h"
#include "object/names.h"
#include "shell/frm_txt_doc.h"

namespace rulemesh {

namespace {

constexpr TextView FieldTemplate = u"Field Mapping:\n\n\n\n\n\n\nTechnical Notes:";

} // namespace

// The attribute is written however the form was closed: after Cancel it receives the decoded note.
void TextNotes::EditNote(const ScriptRecord& script, const Text& StrCaption)
{
    Shared().BoolTextMode = true;
    FrmTxtDoc form(platform_);
    Shared().StrDocText = DecodeEntities(script.Note());
    form.TxtDoc.Text(Shared().StrDocText);
    form.BoolTextChanged = false;
    form.Caption(StrCaption);
    platform_.ShowModal(form);
    object_.SetNote(script, Shared().StrDocText);
}

void TextNotes::CmdPreDoc_Click()
{
    const ScriptRecord precondition = object_.Read().Precondition();
    if (!precondition)
        return;
    EditNote(precondition, u"Precondition Text");
    views_.txtPreCondition.SetFocus();
}

void TextNotes::CmdMQDoc_Click()
{
    const Text& StrTable = state_.QueryTable.Written();
    if (TrimBlanks(StrTable).empty())
        return;
    const ScriptRecord query = object_.Read().Query(StrTable);
    if (query)
        EditNote(query, u"Text for Migrate:" + state_.StrTargetTable);
}

void TextNotes::CmdDumpText_Click()
{
    if (views_.CmbDump.Text().empty())
        return;
    const DumpRecord dump = object_.Read().GetDumpNode(state_.DumpInGrid.Number().Value());
    if (!dump)
        return;
    Shared().BoolTextMode = true;
    const Text StrField = FieldNodeName(FieldPart(views_.RulesGrid.TextMatrix(views_.RulesGrid.Row(), 0)));
    if (StrField.empty())
        return;
    const RuleRecord rule = dump.Rule(ToUpper(StrField));
    if (!rule) {
        platform_.ShowMessage(
            {.Text = u"You Can Maintain Text, only to fields having a rule ", .Icon = MessageIcon::Notice});
        return;
    }
    const Text StrStored = rule.Note();
    FrmTxtDoc form(platform_);
    // A template that nobody touched is compared in its line-feed form, which the box does not keep: OK stores it,
    // Cancel leaves the note empty, and closing the form from its frame counts it as a change.
    const Text StrNote = StrStored.empty() ? Text(FieldTemplate) : StrStored;
    Shared().StrDocText = StrStored.empty() ? StrNote : DecodeEntities(StrNote);
    form.TxtDoc.Text(DecodeEntities(StrNote));
    form.BoolTextChanged = StrStored.empty();
    form.Caption(u"Text For Field : '" + StrField + u"'   Dump:" + PlainNumber(views_.CmbDump.ItemData()));
    platform_.ShowModal(form);
    if (Shared().StrDocText == FieldTemplate)
        Shared().StrDocText.clear();
    object_.SetNote(rule, Shared().StrDocText);
}

void TextNotes::SetTextNumber(TextView StrType, std::int32_t LngTextNumber, TextView StrKey1, TextView StrKey2)
{
    const Text StrNumber = PlainNumber(LngTextNumber);
    if (StrType == u"P")
        SetPreconditionNumber(StrNumber);
    else if (StrType == u"M" && !TrimBlanks(StrKey1).empty())
        SetQueryNumber(StrKey1, StrNumber);
    else if (StrType == u"D" && IsNumeric(StrKey1))
        SetRuleNumber(ToInt16(StrKey1), StrKey2, StrNumber);
}

void TextNotes::SetPreconditionNumber(const Text& StrNumber)
{
    object_.SetNote(object_.Read().Precondition(), StrNumber);
}

void TextNotes::SetQueryNumber(TextView StrTable, const Text& StrNumber)
{
    object_.SetNote(object_.Read().Query(StrTable), StrNumber);
}

void TextNotes::SetRuleNumber(std::int16_t IntDump, TextView StrField, const Text& StrNumber)
{
    const DumpRecord dump = object_.Read().GetDumpNode(IntDump);
    if (dump)
        object_.SetRuleNote(dump, ToUpper(FieldNodeName(StrField)), StrNumber);
}

} // namespace rulemesh
