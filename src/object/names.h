#pragma once

#include "base/text.h"

namespace rulemesh {

/// A field's element name as it is shown: "price__1" as "price(1)". The case stays.
[[nodiscard]] Text FieldDisplayName(TextView StrField);

/// The way back: "price(1)" to "price__1".
[[nodiscard]] Text FieldNodeName(TextView StrField);

/// A field as the lists and the grid name it: lower-case table, ".", lower-case display name of the field.
[[nodiscard]] Text QualifiedName(TextView StrTable, TextView StrField);

/// Where the field begins in a qualified name: behind a table code of 8 characters and the point.
inline constexpr std::size_t FieldPartOffset = 9;

/// The field of a qualified name; "" for a text that is too short.
[[nodiscard]] TextView FieldPart(TextView StrQualifiedName) noexcept;

} // namespace rulemesh
