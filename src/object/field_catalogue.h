#pragma once

#include <vector>

#include "base/text.h"
#include "document/xml_document.h"

namespace rulemesh {

/// Positions of the texts in a row of lstTargetFields. Position 0 is empty.
namespace TargetField {
inline constexpr int Mark = 1;
inline constexpr int Number = 2;
inline constexpr int Name = 3;
inline constexpr int Type = 4;
inline constexpr int Length = 5;
inline constexpr int Domain = 9;
inline constexpr int Enums = 11;
} // namespace TargetField

/// Positions of the texts in a row of lstSourceFields.
namespace SourceField {
inline constexpr int Mark = 0;
inline constexpr int Number = 1;
inline constexpr int Name = 2;
inline constexpr int Type = 3;
inline constexpr int Length = 4;
inline constexpr int Domain = 8;
inline constexpr int Enums = 10;
} // namespace SourceField

/// The texts of a field of the catalogue, from its mark on, behind as many empty ones as are asked for.
[[nodiscard]] std::vector<Text> FieldTexts(TextView StrTable, XmlNode field, std::size_t emptyInFront);

/// The word for a field's type, with its length in StrLength; an unknown type gives "" and leaves StrLength as it is.
[[nodiscard]] Text DecodeFieldType(XmlNode field, Text& StrLength);

} // namespace rulemesh
