#include "views/field_columns.h"

namespace rulemesh {

std::vector<ListView::Column> ColumnsOf(FieldList list)
{
    std::vector<ListView::Column> columns;
    columns.reserve(std::size(FieldColumns));
    for (const FieldColumn& column : FieldColumns) {
        if (const std::optional<ColumnShape>& shape = column.ShapeIn(list))
            columns.push_back({column.Caption, shape->Width, shape->RightAligned});
    }
    return columns;
}

} // namespace rulemesh
