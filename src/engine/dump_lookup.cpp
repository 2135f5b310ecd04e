#include "engine/dump_lookup.h"

#include "base/case_map.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "object/names.h"

namespace rulemesh {

XmlNode DumpLookup::GetTargetTableNode(std::int16_t IntDump)
{
    if (!state_.BoolMultiTarget || IntDump != 0)
        return TableOfDump(IntDump);
    const Text& StrTag = views_.CmbDump.Tag();
    return TableOfDump(StrTag.empty() ? state_.IntDumpNumbers.front() : ToInt16(StrTag));
}

std::int16_t DumpLookup::GetFieldNumber(TextView StrField)
{
    const XmlNode table = GetTargetTableNode(0);
    const Text StrName = ToUpper(FieldNodeName(StrField));
    if (!table)
        throw Failure(FailureCode::ObjectVariableNotSet,
                      u"The object describes no target table in which to look for the field " + Quoted(StrName));
    const XmlNode field = table.selectSingleNode(StrName);
    if (!field)
        throw Failure(FailureCode::ObjectVariableNotSet,
                      u"The target table " + table.baseName() + u" has no field " + Quoted(StrName));
    const Text StrNumber = GetAttribute(field, u"No");
    return IsNumeric(StrNumber) ? ToInt16(StrNumber) : std::int16_t{0};
}

bool DumpLookup::DumpHasRules() const
{
    const std::int16_t IntDump = ToInt16(std::int64_t{views_.CmbDump.ItemData()});
    const XmlNode dump = RequireDump(document_.GetDumpNode(IntDump), IntDump);
    for (XmlNode rule = dump.firstChild(); rule; rule = rule.nextSibling()) {
        if (!rule.text().empty() || !GetAttribute(rule, u"TEXT").empty())
            return true;
    }
    return false;
}

} // namespace rulemesh
