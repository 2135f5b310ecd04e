#include "engine/dump_store.h"

#include "base/case_map.h"
#include "base/numbers.h"
#include "document/names.h"

namespace rulemesh {

XmlNode DumpStore::GetTargetTableNode(std::int16_t IntDump)
{
    if (!state_.BoolMultiTarget || IntDump != 0)
        return TableOfDump(IntDump);
    const Text& StrTag = views_.CmbDump.Tag();
    return TableOfDump(StrTag.empty() ? state_.IntDumpNumbers.front() : ToInt16(StrTag));
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

} // namespace rulemesh
