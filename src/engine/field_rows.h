#pragma once

#include <vector>

#include "object/records.h"
#include "views/field_columns.h"

namespace rulemesh {

/// The texts of a field of the catalogue, in the columns of a list.
[[nodiscard]] std::vector<Text> FieldTexts(FieldList list, TextView StrTable, const FieldRecord& field);

/// Appends one row for each field of a table of the catalogue; nothing for the null handle. The list is not cleared.
void FillSourceFields(ListView& list, const TableRecord& table);
void FillTargetFields(ListView& list, const TableRecord& table);

} // namespace rulemesh
