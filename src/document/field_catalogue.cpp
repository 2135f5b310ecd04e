#include "document/field_catalogue.h"

#include <utility>
#include <vector>

#include "base/numbers.h"
#include "document/document_access.h"
#include "document/names.h"

namespace rulemesh {

namespace {

// Filled with zeros so that a sort by text is a sort by number up to 999. The test is on the number, the filling on
// the text: "9.5" gives "09.5".
Text FieldNumberText(const Text& StrNumber)
{
    if (!IsNumeric(StrNumber))
        return u"000";
    const double number = ToDouble(StrNumber);
    if (number >= 100)
        return StrNumber;
    return (number <= 9 ? u"00" : u"0") + StrNumber;
}

Text AlignmentWord(TextView StrLetter)
{
    if (StrLetter == u"R")
        return u"Right";
    if (StrLetter == u"L")
        return u"Left";
    if (StrLetter == u"C")
        return u"Centre";
    return u"No";
}

Text CaseWord(TextView StrLetter)
{
    if (StrLetter == u"U")
        return u"Upper";
    if (StrLetter == u"L")
        return u"Lower";
    return u"No";
}

// The texts that both lists show, from the mark on.
std::vector<Text> FieldTexts(const Text& StrTable, XmlNode field)
{
    const Text StrMark = GetAttribute(field, u"MAN") == u"Y" ? u"*" : u"";
    Text StrLength = StrMark; // a field of unknown type shows its mark as its length
    Text StrType = DecodeFieldType(field, StrLength);
    return {StrMark,
            FieldNumberText(GetAttribute(field, u"FNo")),
            QualifiedName(StrTable, field.baseName()),
            std::move(StrType),
            std::move(StrLength),
            GetAttribute(field, u"DSCA"),
            AlignmentWord(GetAttribute(field, u"ADJU")),
            CaseWord(GetAttribute(field, u"CASE")),
            GetAttribute(field, u"DOMAIN"),
            GetAttribute(field, u"INITVAL"),
            GetAttribute(field, u"DOMENUMS")};
}

} // namespace

void FillSourceFields(ListView& list, XmlNode table)
{
    if (!table)
        return;
    const Text StrTable = table.baseName();
    for (XmlNode field = table.firstChild(); field; field = field.nextSibling())
        list.Add(FieldTexts(StrTable, field));
}

void FillTargetFields(ListView& list, XmlNode table)
{
    if (!table)
        return;
    const Text StrTable = table.baseName();
    for (XmlNode field = table.firstChild(); field; field = field.nextSibling()) {
        std::vector<Text> texts = FieldTexts(StrTable, field);
        texts.insert(texts.begin(), Text());
        list.Add(std::move(texts));
    }
}

Text DecodeFieldType(XmlNode field, Text& StrLength)
{
    const Text StrType = GetAttribute(field, u"TYPE");
    if (StrType.size() != 1)
        return {};
    const auto whole = [&] { return GetAttribute(field, u"DIGB"); };
    const auto decimals = [&] { return GetAttribute(field, u"DIGB") + u"," + GetAttribute(field, u"DIGA"); };
    const auto characters = [&] { return GetAttribute(field, u"LENG"); };
    switch (StrType.front()) {
    case u'B':
        StrLength = whole();
        return u"Byte";
    case u'I':
        StrLength = whole();
        return u"Integer";
    case u'L':
        StrLength = whole();
        return u"Long";
    case u'F':
        StrLength = decimals();
        return u"Float";
    case u'D':
        StrLength = decimals();
        return u"Double";
    case u'S':
        StrLength = characters();
        return u"String";
    case u'M':
        StrLength = characters();
        return u"Multi-Byte String";
    case u'E':
        StrLength = characters();
        return u"Enumerated";
    case u'P':
        StrLength = characters();
        return u"Set";
    case u'T':
        StrLength = u"10";
        return u"Date";
    case u'K':
        StrLength = u"15";
        return u"UTC";
    case u'U':
        StrLength.clear();
        return u"Text";
    default:
        return {};
    }
}

} // namespace rulemesh
