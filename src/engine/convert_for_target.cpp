#include "engine/convert_for_target.h"

namespace rulemesh {

Text ConvertForTarget(TextView StrSourceName, TextView StrSourceType, TextView StrTargetType)
{
    const Text StrName(StrSourceName);
    const bool sourceIsDate = StrSourceType == u"Date";
    const bool sourceIsUtc = StrSourceType == u"UTC";
    if (StrTargetType == u"Date")
        return sourceIsDate || sourceIsUtc ? u"utc(" + StrName + u",0,2)" : StrName;
    if (StrTargetType == u"UTC")
        return sourceIsDate ? u"utc(" + StrName + u",0,2)" : sourceIsUtc ? u"utc$(" + StrName + u")" : StrName;

    const auto isString = [](TextView type) { return type == u"String" || type == u"Multi-Byte String"; };
    if (!isString(StrTargetType) || !isString(StrSourceType))
        return StrName;
    if (StrSourceType != StrTargetType)
        return {}; // a plain and a multi-byte string are not assigned to each other
    return ReplaceAll(StrName, u"(", u"(1,");
}

} // namespace rulemesh
