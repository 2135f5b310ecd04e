#include "object/field_catalogue.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "base/numbers.h"
#include "object/document_access.h"
#include "object/names.h"

namespace rulemesh {

namespace {

// What stands in the length column of a type.
enum class LengthText { Digits, Decimals, Characters, Constant };

struct FieldType {
    TextView Letter;
    TextView Word;
    LengthText Length;
    TextView Constant = {};
};

constexpr std::array<FieldType, 12> FieldTypes = {{
    {u"B", u"Byte", LengthText::Digits},
    {u"I", u"Integer", LengthText::Digits},
    {u"L", u"Long", LengthText::Digits},
    {u"F", u"Float", LengthText::Decimals},
    {u"D", u"Double", LengthText::Decimals},
    {u"S", u"String", LengthText::Characters},
    {u"M", u"Multi-Byte String", LengthText::Characters},
    {u"E", u"Enumerated", LengthText::Characters},
    {u"P", u"Set", LengthText::Characters},
    {u"T", u"Date", LengthText::Constant, u"10"},
    {u"K", u"UTC", LengthText::Constant, u"15"},
    {u"U", u"Text", LengthText::Constant, u""},
}};

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

} // namespace

std::vector<Text> FieldTexts(TextView StrTable, XmlNode field, std::size_t emptyInFront)
{
    constexpr std::array<std::string_view, 8> names = {"MAN",  "FNo",    "DSCA",    "ADJU",
                                                       "CASE", "DOMAIN", "INITVAL", "DOMENUMS"};
    std::vector<Text> values = field.getNamedItems(names);
    const Text StrMark = values[0] == u"Y" ? u"*" : u"";
    Text StrLength = StrMark; // a field of unknown type shows its mark as its length
    Text StrType = DecodeFieldType(field, StrLength);
    std::vector<Text> texts;
    texts.reserve(emptyInFront + 11);
    texts.resize(emptyInFront);
    texts.push_back(StrMark);
    texts.push_back(FieldNumberText(values[1]));
    texts.push_back(QualifiedName(StrTable, field.baseName()));
    texts.push_back(std::move(StrType));
    texts.push_back(std::move(StrLength));
    texts.push_back(std::move(values[2]));
    texts.push_back(AlignmentWord(values[3]));
    texts.push_back(CaseWord(values[4]));
    for (std::size_t plain = 5; plain < values.size(); ++plain)
        texts.push_back(std::move(values[plain]));
    return texts;
}

Text DecodeFieldType(XmlNode field, Text& StrLength)
{
    const Text StrLetter = GetAttribute(field, u"TYPE");
    const auto type = std::find_if(FieldTypes.begin(), FieldTypes.end(),
                                   [&](const FieldType& known) { return StrLetter == known.Letter; });
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

} // namespace rulemesh
