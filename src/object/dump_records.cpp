#include "object/dump_records.h"

#include "base/case_map.h"
#include "base/failure.h"
#include "base/numbers.h"

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

Text DumpRecords::GetDumpTargetTable(std::int16_t IntDump)
{
    const XmlNode dump = document_.GetDumpNode(IntDump);
    if (!dump)
        return state_.StrTargetTable;
    Text StrTable = GetAttribute(dump, u"TT");
    if (!StrTable.empty())
        return StrTable;
    SetAttribute(dump, u"TT", state_.StrTargetTable);
    return state_.StrTargetTable;
}

Text DumpRecords::GetDumpTargetDescription(std::int16_t IntDump) const
{
    const XmlNode dump = document_.GetDumpNode(IntDump);
    return dump ? GetAttribute(dump, u"TT_DESC") : Text();
}

XmlNode DumpRecords::CatalogueTable(TextView StrTable) const
{
    return document_.GetNode(document_.RootPath(u"TARTAB/" + ToUpper(StrTable)));
}

XmlNode DumpRecords::TableOfDump(std::int16_t IntDump)
{
    if (!state_.BoolMultiTarget)
        return CatalogueTable(state_.StrTargetTable);
    const Text StrTable = IntDump == 0 ? state_.StrTargetTable : GetDumpTargetTable(IntDump);
    return StrTable.empty() ? XmlNode() : CatalogueTable(StrTable);
}

XmlNode DumpRecords::MscriptNode() const
{
    try {
        return document_.Document().selectSingleNode(document_.RootPath(u"MSCRIPT"));
    } catch (const Failure&) {
        // Recording the error fails on its own default number.
        throw Failure(FailureCode::TypeMismatch,
                      u"The target table " + Quoted(state_.StrTargetTable) + u" can't stand in a path");
    }
}

XmlNode DumpRecords::DumpToFill(std::int16_t IntDump, const std::function<Text()>& askForTable)
{
    XmlNode dump = document_.GetDumpNode(IntDump);
    if (dump)
        return dump;
    XmlDocument& document = document_.Document();
    dump = AppendChild(document, document.firstChild(), u"DUMP", u"No", PlainNumber(IntDump));
    if (state_.BoolMultiTarget) {
        const Text StrTable = askForTable();
        SetAttribute(dump, u"TT", StrTable);
    }
    return dump;
}

void DumpRecords::SaveRules(XmlNode dump, XmlNode table, const RuleTexts& rules)
{
    for (XmlNode field = table.firstChild(); field; field = field.nextSibling())
        SaveRule(dump, field, rules);
}

// The two limits differ: a field past the last row is passed over when it has a record, and is a failure of the column
// when it has none.
void DumpRecords::SaveRule(XmlNode dump, XmlNode field, const RuleTexts& rules)
{
    const Text StrField = field.baseName();
    const XmlNode rule = dump.selectSingleNode(StrField);
    const int row = RowOf(field);
    if (!rule) {
        if (row <= std::ssize(rules) && !RuleAt(rules, row).empty())
            AppendRule(dump, StrField, RuleAt(rules, row));
        return;
    }
    if (row > std::ssize(rules) - 1)
        return;
    const TextView StrRule = RuleAt(rules, row);
    if (StrRule.empty())
        dump.removeChild(rule);
    else
        WriteRule(rule, StrRule);
}

std::int16_t DumpRecords::RowOf(XmlNode field)
{
    const Text StrNumber = GetAttribute(field, u"No");
    return Telling([&] { return u"The number (No) of the field " + field.baseName(); },
                   [&] { return ToInt16(std::int64_t{ToInt16(StrNumber)} - 1); });
}

XmlNode RequireDump(XmlNode dump, std::int16_t IntDump)
{
    if (!dump)
        throw Failure(FailureCode::ObjectVariableNotSet,
                      u"The object has no element DUMP for dump " + PlainNumber(IntDump));
    return dump;
}

void DumpRecords::AppendRule(XmlNode dump, TextView StrFieldNode, TextView StrRule)
{
    WriteRule(AppendChild(document_.Document(), dump, StrFieldNode, u"TEXT", u""), StrRule);
}

} // namespace rulemesh
