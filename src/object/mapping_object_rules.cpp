#include "base/case_map.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "object/mapping_object.h"

namespace rulemesh {

namespace {

TextView RuleAt(const RuleTexts& rules, int row)
{
    if (row < 0 || row >= std::ssize(rules))
        throw Failure(FailureCode::InvalidPropertyArrayIndex, u"There is no row " + PlainNumber(row) +
                                                                  u" of rules; there are " +
                                                                  PlainNumber(std::ssize(rules)) + u", counted from 0");
    return rules[static_cast<std::size_t>(row)];
}

// The type says whether the rule has a line end.
void WriteRule(XmlNode rule, TextView StrRule)
{
    rule.text(StrRule, CarriageReturns::Kept);
    SetAttribute(rule, u"TYPE", StrRule.find(LineEnd) == TextView::npos ? u"0" : u"1");
}

} // namespace

void MappingObject::SaveDumpRules(const GridDump& shown, const DumpToSave& from)
{
    if (!shown.HasRules())
        return;
    const DumpRecord dump(DumpToFill(shown.Number().Value(), from.AskForTable));
    const TableRecord table = from.Table();
    if (!table)
        return;
    const RuleTexts rules = from.Rules();
    for (const FieldRecord field : table.Fields())
        SaveRule(dump, field, rules);
}

XmlNode MappingObject::DumpToFill(std::int16_t IntDump, const std::function<Text()>& askForTable)
{
    XmlNode dump = access_.GetNode(access_.RootPath(u"DUMP"), u"No", PlainNumber(IntDump));
    if (dump)
        return dump;
    dump = AppendChild(document_, document_.firstChild(), u"DUMP", u"No", PlainNumber(IntDump));
    if (state_.BoolMultiTarget) {
        const Text StrTable = askForTable();
        SetAttribute(dump, u"TT", StrTable);
    }
    return dump;
}

// The two limits differ: a field past the last row is passed over when it has a record, and is a failure of the column
// when it has none.
void MappingObject::SaveRule(const DumpRecord& dump, const FieldRecord& field, const RuleTexts& rules)
{
    const Text StrField = field.Name();
    const RuleRecord former = dump.Rule(StrField);
    const int row = field.Row();
    if (row <= std::ssize(rules) - (former ? 1 : 0))
        ReplaceRule(dump, former, StrField, RuleAt(rules, row));
}

void MappingObject::SetRule(const DumpRecord& dump, TextView StrField, TextView StrRule)
{
    ReplaceRule(dump, dump.Rule(StrField), StrField, StrRule);
}

void MappingObject::ReplaceRule(const DumpRecord& dump, const RuleRecord& former, TextView StrField, TextView StrRule)
{
    if (former && StrRule.empty())
        dump.node_.removeChild(former.node_);
    else if (former)
        WriteRule(former.node_, StrRule);
    else if (!StrRule.empty())
        AppendRule(dump, StrField, StrRule);
}

void MappingObject::AppendRule(const DumpRecord& dump, TextView StrField, TextView StrRule)
{
    WriteRule(AppendChild(document_, dump.node_, StrField, u"TEXT", u""), StrRule);
}

void MappingObject::SetRuleNote(const DumpRecord& dump, TextView StrField, TextView StrNote)
{
    if (const RuleRecord rule = dump.Rule(StrField))
        SetNote(rule, StrNote);
    else
        AppendChild(document_, dump.node_, StrField, u"TEXT", StrNote);
}

void MappingObject::RemoveRules(const DumpRecord& dump) { dump.node_.removeChildren(); }

bool MappingObject::CopyRules(const DumpRecord& source, const DumpRecord& target)
{
    target.node_.removeChildren();
    bool copied = false;
    for (const RuleRecord rule : source.Rules()) {
        target.node_.appendChild(rule.node_.cloneNode());
        copied = true;
    }
    return copied;
}

void MappingObject::SpreadRule(const RuleRecord& rule, TextView StrField, TextView StrTable, TextView StrExceptDump)
{
    const Text StrUpperTable = ToUpper(StrTable);
    for (const XmlNode& node : document_.getElementsByTagName(u"DUMP")) {
        const DumpRecord dump(node);
        const Text StrDumpTable = dump.Table();
        if (!StrDumpTable.empty() && ToUpper(StrDumpTable) != StrUpperTable)
            continue;
        if (dump.Number() == StrExceptDump)
            continue;
        if (const RuleRecord former = dump.Rule(StrField))
            node.replaceChild(rule.node_.cloneNode(), former.node_);
        else
            node.appendChild(rule.node_.cloneNode());
    }
}

} // namespace rulemesh
