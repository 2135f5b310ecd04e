#pragma once

#include "base/text.h"
#include "document/xml_document.h"

namespace rulemesh {

/// The words for what the attributes of a field of the catalogue say. All of them are exact, case included.

/// The word for a field's type, with its length in StrLength; an unknown type gives "" and leaves StrLength as it is.
[[nodiscard]] Text DecodeFieldType(XmlNode field, Text& StrLength);

/// A field's number (FNo), filled with zeros so that a sort by text is a sort by number up to 999; "000" for what is no
/// number.
[[nodiscard]] Text FieldNumberText(const Text& StrNumber);

/// The word for an alignment (ADJU): "No", "Right", "Left" or "Centre".
[[nodiscard]] TextView AlignmentWord(TextView StrLetter) noexcept;

/// The word for a case (CASE): "No", "Upper" or "Lower".
[[nodiscard]] TextView CaseWord(TextView StrLetter) noexcept;

} // namespace rulemesh
