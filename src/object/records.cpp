#include "object/records.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "object/field_catalogue.h"

namespace rulemesh {

Text Record::Attribute(TextView StrName) const { return node_.getNamedItem(StrName).value_or(Text()); }

std::int16_t FieldRecord::Row() const
{
    const Text StrNumber = Attribute(u"No");
    return Telling([&] { return u"The number (No) of the field " + Name(); },
                   [&] { return ToInt16(std::int64_t{ToInt16(StrNumber)} - 1); });
}

Text FieldRecord::Type(Text& StrLength) const { return DecodeFieldType(node_, StrLength); }

DumpRecord RequireDump(DumpRecord dump, std::int16_t IntDump)
{
    if (!dump)
        throw Failure(FailureCode::ObjectVariableNotSet,
                      u"The object has no element DUMP for dump " + PlainNumber(IntDump));
    return dump;
}

} // namespace rulemesh
