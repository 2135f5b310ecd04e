#pragma once

#include <vector>

#include "document/xml_document.h"
#include "views/field_columns.h"

namespace rulemesh {

/// The texts of a field of the catalogue, in the columns of a list.
[[nodiscard]] std::vector<Text> FieldTexts(FieldList list, TextView StrTable, XmlNode field);

/// Appends one row for each field of a table of the catalogue; nothing for the null handle. The list is not cleared.
void FillSourceFields(ListView& list, XmlNode table);
void FillTargetFields(ListView& list, XmlNode table);

} // namespace rulemesh
