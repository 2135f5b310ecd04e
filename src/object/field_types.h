#pragma once

#include <array>
#include <cstddef>

#include "base/text.h"

namespace rulemesh {

/// The types that a field of the catalogue can have.
enum class FieldType { Byte, Integer, Long, Float, Double, String, MultiByteString, Enumerated, Set, Date, Utc, Text };

/// What stands in the length column of a type.
enum class LengthText { Digits, Decimals, Characters, Constant };

struct FieldTypeEntry {
    FieldType Type;
    char16_t Letter; // the attribute TYPE, exactly
    TextView Word;   // as the field lists show it
    LengthText Length;
    TextView Constant = {};
};

inline constexpr std::array<FieldTypeEntry, 12> FieldTypes = {{
    {FieldType::Byte, u'B', u"Byte", LengthText::Digits},
    {FieldType::Integer, u'I', u"Integer", LengthText::Digits},
    {FieldType::Long, u'L', u"Long", LengthText::Digits},
    {FieldType::Float, u'F', u"Float", LengthText::Decimals},
    {FieldType::Double, u'D', u"Double", LengthText::Decimals},
    {FieldType::String, u'S', u"String", LengthText::Characters},
    {FieldType::MultiByteString, u'M', u"Multi-Byte String", LengthText::Characters},
    {FieldType::Enumerated, u'E', u"Enumerated", LengthText::Characters},
    {FieldType::Set, u'P', u"Set", LengthText::Characters},
    {FieldType::Date, u'T', u"Date", LengthText::Constant, u"10"},
    {FieldType::Utc, u'K', u"UTC", LengthText::Constant, u"15"},
    {FieldType::Text, u'U', u"Text", LengthText::Constant, u""},
}};

/// The word by which the field lists show a type, and by which rules are worked out from them.
[[nodiscard]] constexpr TextView WordOf(FieldType type) noexcept
{
    return FieldTypes.at(static_cast<std::size_t>(type)).Word;
}

} // namespace rulemesh
