#include "object/field_catalogue.h"

#include <algorithm>

#include "base/numbers.h"
#include "object/document_access.h"
#include "object/field_types.h"

namespace rulemesh {

Text DecodeFieldType(XmlNode field, Text& StrLength)
{
    const Text StrLetter = GetAttribute(field, u"TYPE");
    const auto* const type = std::find_if(FieldTypes.begin(), FieldTypes.end(), [&](const FieldTypeEntry& known) {
        return StrLetter == TextView(&known.Letter, 1);
    });
    if (type == FieldTypes.end())
        return {};
    switch (type->Length) {
    case LengthText::Digits:
        StrLength = GetAttribute(field, u"DIGB");
        break;
    case LengthText::Decimals:
        StrLength = GetAttribute(field, u"DIGB") + u"," + GetAttribute(field, u"DIGA");
        break;
    case LengthText::Characters:
        StrLength = GetAttribute(field, u"LENG");
        break;
    case LengthText::Constant:
        StrLength = type->Constant;
        break;
    }
    return Text(type->Word);
}

// The test is on the number, the filling on the text: "9.5" gives "09.5".
Text FieldNumberText(const Text& StrNumber)
{
    if (!IsNumeric(StrNumber))
        return u"000";
    const double number = ToDouble(StrNumber);
    if (number >= 100)
        return StrNumber;
    return (number <= 9 ? u"00" : u"0") + StrNumber;
}

TextView AlignmentWord(TextView StrLetter) noexcept
{
    if (StrLetter == u"R")
        return u"Right";
    if (StrLetter == u"L")
        return u"Left";
    if (StrLetter == u"C")
        return u"Centre";
    return u"No";
}

TextView CaseWord(TextView StrLetter) noexcept
{
    if (StrLetter == u"U")
        return u"Upper";
    if (StrLetter == u"L")
        return u"Lower";
    return u"No";
}

} // namespace rulemesh
