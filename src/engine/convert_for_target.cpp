#include "engine/convert_for_target.h"

#include "object/field_types.h"

namespace rulemesh {

Text ConvertForTarget(TextView StrSourceName, TextView StrSourceType, TextView StrTargetType)
{
    const Text StrName(StrSourceName);
    const bool sourceIsDate = StrSourceType == WordOf(FieldType::Date);
    const bool sourceIsUtc = StrSourceType == WordOf(FieldType::Utc);
    if (StrTargetType == WordOf(FieldType::Date))
        return sourceIsDate || sourceIsUtc ? u"utc(" + StrName + u",0,2)" : StrName;
    if (StrTargetType == WordOf(FieldType::Utc))
        return sourceIsDate ? u"utc(" + StrName + u",0,2)" : sourceIsUtc ? u"utc$(" + StrName + u")" : StrName;

    const auto isString = [](TextView type) {
        return type == WordOf(FieldType::String) || type == WordOf(FieldType::MultiByteString);
    };
    if (!isString(StrTargetType) || !isString(StrSourceType))
        return StrName;
    if (StrSourceType != StrTargetType)
        return {}; // a plain and a multi-byte string are not assigned to each other
    return ReplaceAll(StrName, u"(", u"(1,");
}

} // namespace rulemesh
