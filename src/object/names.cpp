#include "object/names.h"

#include "base/case_map.h"

namespace rulemesh {

Text FieldDisplayName(TextView StrField)
{
    if (StrField.find(u"__") == TextView::npos)
        return Text(StrField);
    return ReplaceAll(StrField, u"__", u"(") + u")"; // one ")" however many indexes there are
}

Text FieldNodeName(TextView StrField)
{
    if (StrField.find(u'(') == TextView::npos)
        return Text(StrField);
    return Without(ReplaceAll(StrField, u"(", u"__"), u')');
}

Text QualifiedName(TextView StrTable, TextView StrField)
{
    return ToLower(StrTable) + u"." + ToLower(FieldDisplayName(StrField));
}

TextView FieldPart(TextView StrQualifiedName) noexcept
{
    return StrQualifiedName.size() <= FieldPartOffset ? TextView() : StrQualifiedName.substr(FieldPartOffset);
}

} // namespace rulemesh
