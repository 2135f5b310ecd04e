#include "engine/dump_lookup.h"

#include "base/case_map.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "object/names.h"

namespace rulemesh {

TableRecord DumpLookup::GetTargetTableNode(std::int16_t IntDump)
{
    if (!state_.BoolMultiTarget || IntDump != 0)
        return object_.TableOfDump(IntDump);
    const GridDump& dump = state_.DumpInGrid;
    return object_.TableOfDump(dump.IsNone() ? state_.IntDumpNumbers.front() : dump.Number().Value());
}

std::int16_t DumpLookup::GetFieldNumber(TextView StrField)
{
    const TableRecord table = GetTargetTableNode(0);
    const Text StrName = ToUpper(FieldNodeName(StrField));
    if (!table)
        throw Failure(FailureCode::ObjectVariableNotSet,
                      u"The object describes no target table in which to look for the field " + Quoted(StrName));
    const FieldRecord field = table.Field(StrName);
    if (!field)
        throw Failure(FailureCode::ObjectVariableNotSet,
                      u"The target table " + table.Name() + u" has no field " + Quoted(StrName));
    const Text StrNumber = field.Number().value_or(Text());
    return IsNumeric(StrNumber) ? ToInt16(StrNumber) : std::int16_t{0};
}

bool DumpLookup::DumpHasRules() const
{
    const std::int16_t IntDump = ToInt16(std::int64_t{views_.CmbDump.ItemData()});
    const DumpRecord dump = RequireDump(object_.Read().GetDumpNode(IntDump), IntDump);
    for (const RuleRecord rule : dump.Rules()) {
        if (rule.HasContent())
            return true;
    }
    return false;
}

} // namespace rulemesh
