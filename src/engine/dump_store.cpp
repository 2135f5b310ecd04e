#include "engine/dump_store.h"

#include "base/case_map.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "document/names.h"

namespace rulemesh {

Text DumpStore::GetDumpTargetTable(std::int16_t IntDump)
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

Text DumpStore::GetDumpTargetDescription(std::int16_t IntDump) const
{
    const XmlNode dump = document_.GetDumpNode(IntDump);
    return dump ? GetAttribute(dump, u"TT_DESC") : Text();
}

XmlNode DumpStore::CatalogueTable(TextView StrTable) const
{
    return document_.GetNode(document_.RootPath(u"TARTAB/" + ToUpper(StrTable)));
}

XmlNode DumpStore::GetTargetTableNode(std::int16_t IntDump)
{
    if (!state_.BoolMultiTarget)
        return CatalogueTable(state_.StrTargetTable);
    std::int16_t IntShown = IntDump;
    if (IntShown == 0) {
        const Text& StrTag = views_.CmbDump.Tag();
        IntShown = StrTag.empty() ? state_.IntDumpNumbers.front() : ToInt16(StrTag);
    }
    const Text StrTable = IntShown == 0 ? state_.StrTargetTable : GetDumpTargetTable(IntShown);
    return StrTable.empty() ? XmlNode() : CatalogueTable(StrTable);
}

std::int16_t DumpStore::GetFieldNumber(TextView StrField)
{
    const XmlNode field = GetTargetTableNode(0).selectSingleNode(ToUpper(FieldNodeName(StrField)));
    const Text StrNumber = GetAttribute(field, u"No");
    return IsNumeric(StrNumber) ? ToInt16(StrNumber) : std::int16_t{0};
}

bool DumpStore::DumpHasRules() const
{
    const XmlNode dump = document_.GetDumpNode(ToInt16(std::int64_t{views_.CmbDump.ItemData()}));
    for (XmlNode rule = dump.firstChild(); rule; rule = rule.nextSibling()) {
        if (!rule.text().empty() || !GetAttribute(rule, u"TEXT").empty())
            return true;
    }
    return false;
}

XmlNode DumpStore::MscriptNode() const
{
    try {
        return document_.Document().selectSingleNode(document_.RootPath(u"MSCRIPT"));
    } catch (const Failure&) {
        throw Failure(FailureCode::TypeMismatch); // recording the error fails on its own default number
    }
}

XmlNode DumpStore::AppendRule(XmlNode dump, TextView StrFieldNode, TextView StrRule)
{
    const XmlNode rule = AppendChild(document_.Document(), dump, StrFieldNode, u"TEXT", u"");
    WriteRule(rule, StrRule);
    return rule;
}

void DumpStore::WriteRule(XmlNode rule, TextView StrRule)
{
    rule.text(StrRule, CarriageReturns::Kept);
    SetAttribute(rule, u"TYPE", StrRule.find(LineEnd) == TextView::npos ? u"0" : u"1");
}

} // namespace rulemesh
