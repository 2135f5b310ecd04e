#include "document/xml_names.h"

#include <functional>

namespace rulemesh::xml {

NameTable::NameTable() : names_(1), table_(64, NoName) {}

NameId NameTable::Add(std::string_view name)
{
    std::size_t place = Place(name);
    if (table_[place] != NoName)
        return table_[place];
    if (2 * names_.size() >= table_.size()) {
        Grow();
        place = Place(name);
    }
    names_.push_back(name);
    return table_[place] = static_cast<NameId>(names_.size() - 1);
}

NameId NameTable::AddCopy(std::string_view name)
{
    const NameId known = Find(name);
    if (known != NoName)
        return known;
    copies_.emplace_back(name); // where it stays when Add fails, as nobody's name
    return Add(copies_.back());
}

NameId NameTable::Find(std::string_view name) const noexcept { return table_[Place(name)]; }

// Where the name stands in the table, or the free place where it belongs.
std::size_t NameTable::Place(std::string_view name) const noexcept
{
    const std::size_t mask = table_.size() - 1;
    std::size_t place = std::hash<std::string_view>{}(name)&mask;
    while (table_[place] != NoName && names_[table_[place]] != name)
        place = (place + 1) & mask;
    return place;
}

void NameTable::Grow()
{
    std::vector<NameId>(2 * table_.size(), NoName).swap(table_);
    for (NameId name = 1; name < names_.size(); ++name)
        table_[Place(names_[name])] = name;
}

} // namespace rulemesh::xml
