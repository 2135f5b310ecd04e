#include "engine/field_index.h"

#include "base/case_map.h"
#include "object/names.h"

namespace rulemesh {

namespace {

Text KeyOf(const FieldName& name)
{
    Text key = ToLower(name.Field);
    if (!name.Index.empty()) {
        key += u'(';
        key += name.Index;
        key += u')';
    }
    return key;
}

} // namespace

FieldIndex::Table::Table(const TableContent& content) : content_(&content)
{
    for (std::size_t place = 0; place < content.Fields.size(); ++place) {
        const TextView StrNode = content.Fields[place].Node;
        Text StrShown = ShownField(StrNode);
        byNode_.try_emplace(StrNode, place);
        if (const std::size_t bracket = StrShown.find(u'('); bracket != Text::npos)
            repeated_.insert(StrShown.substr(0, bracket));
        byDisplayName_.try_emplace(std::move(StrShown), place);
    }
}

std::size_t FieldIndex::Table::PlaceOf(TextView StrNode) const
{
    const auto found = byNode_.find(StrNode);
    return found == byNode_.end() ? Fields().size() : found->second;
}

const FieldContent* FieldIndex::Table::Named(const FieldName& name) const
{
    const auto found = byDisplayName_.find(KeyOf(name));
    return found == byDisplayName_.end() ? nullptr : &Fields()[found->second];
}

bool FieldIndex::Table::IsRepeated(const FieldName& name) const
{
    return name.Index.empty() && repeated_.contains(ToLower(name.Field));
}

// An element of a table is looked up by its code in upper case, so one that is named otherwise isn't found.
FieldIndex::FieldIndex(const std::vector<TableContent>& tables)
{
    for (const TableContent& table : tables)
        tables_.try_emplace(table.Code, table);
}

const FieldIndex::Table* FieldIndex::Find(TextView StrTable) const
{
    const auto found = tables_.find(ToUpper(StrTable));
    return found == tables_.end() ? nullptr : &found->second;
}

Text ShownField(TextView StrNode) { return ToLower(FieldDisplayName(StrNode)); }

} // namespace rulemesh
