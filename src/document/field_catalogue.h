#pragma once

#include "base/text.h"
#include "document/xml_document.h"
#include "views/list_view.h"

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

/// Appends one row for each field of a table of the catalogue; nothing for the null handle. The list is not cleared.
void FillSourceFields(ListView& list, XmlNode table);
void FillTargetFields(ListView& list, XmlNode table);

/// The word for a field's type, with its length in StrLength; an unknown type gives "" and leaves StrLength as it is.
[[nodiscard]] Text DecodeFieldType(XmlNode field, Text& StrLength);

} // namespace rulemesh
