#include "engine/field_rows.h"

#include <algorithm>
#include <array>
#include <utility>

#include "object/field_catalogue.h"
#include "object/names.h"

namespace rulemesh {

namespace {

// The attributes of the columns, "" for a column that shows none.
constexpr auto ColumnAttributes = [] {
    std::array<std::string_view, std::size(FieldColumns)> names{};
    std::transform(std::begin(FieldColumns), std::end(FieldColumns), names.begin(),
                   [](const FieldColumn& column) { return column.Attribute; });
    return names;
}();

void FillFields(ListView& list, const TableRecord& table, FieldList which)
{
    if (!table)
        return;
    const Text StrTable = table.Name();
    for (const FieldRecord field : table.Fields())
        list.Add(FieldTexts(which, StrTable, field));
}

} // namespace

std::vector<Text> FieldTexts(FieldList list, TextView StrTable, const FieldRecord& field)
{
    std::vector<Text> values = field.Attributes(ColumnAttributes);
    std::vector<Text> texts;
    texts.reserve(values.size());
    Text StrLength;
    for (std::size_t index = 0; index < values.size(); ++index) {
        const FieldColumn& column = FieldColumns[index];
        if (!column.ShapeIn(list) || column.Tells == FieldText::Rest)
            continue;
        Text& StrValue = values[index];
        switch (column.Tells) {
        case FieldText::Mark:
            StrValue = StrValue == u"Y" ? u"*" : u"";
            StrLength = StrValue; // a field of unknown type shows its mark as its length
            break;
        case FieldText::Number:
            StrValue = FieldNumberText(StrValue);
            break;
        case FieldText::Name:
            StrValue = QualifiedName(StrTable, field.Name());
            break;
        case FieldText::Type:
            StrValue = field.Type(StrLength);
            break;
        case FieldText::Length:
            StrValue = StrLength;
            break;
        case FieldText::Alignment:
            StrValue = AlignmentWord(StrValue);
            break;
        case FieldText::Case:
            StrValue = CaseWord(StrValue);
            break;
        default:
            break; // as it stands
        }
        texts.push_back(std::move(StrValue));
    }
    return texts;
}

void FillSourceFields(ListView& list, const TableRecord& table) { FillFields(list, table, FieldList::Source); }

void FillTargetFields(ListView& list, const TableRecord& table) { FillFields(list, table, FieldList::Target); }

} // namespace rulemesh
