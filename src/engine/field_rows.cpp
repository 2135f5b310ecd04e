#include "engine/field_rows.h"

#include "object/field_catalogue.h"

namespace rulemesh {

namespace {

void FillFields(ListView& list, XmlNode table, std::size_t emptyInFront)
{
    if (!table)
        return;
    const Text StrTable = table.baseName();
    for (XmlNode field = table.firstChild(); field; field = field.nextSibling())
        list.Add(FieldTexts(StrTable, field, emptyInFront));
}

} // namespace

void FillSourceFields(ListView& list, XmlNode table) { FillFields(list, table, SourceField::Mark); }

void FillTargetFields(ListView& list, XmlNode table) { FillFields(list, table, TargetField::Mark); }

} // namespace rulemesh
