#include "object/catalogue.h"

#include <algorithm>

#include "base/case_map.h"
#include "base/numbers.h"
#include "object/document_access.h"

namespace rulemesh {

namespace {

// Attributes of other writers can't be listed here; the known ones, and this one of the format.
constexpr TextView Dependency = u"DEP";

CatalogueField FieldOf(XmlNode element)
{
    CatalogueField field{.Name = element.baseName(), .Attributes = {}};
    const auto take = [&](TextView name) {
        if (const std::optional<Text> value = element.getNamedItem(name))
            field.Attributes.emplace_back(name, *value);
    };
    for (const TextView name : FieldAttributes)
        take(name);
    take(Dependency);
    return field;
}

std::vector<CatalogueTable> TablesUnder(XmlNode root, TextView side)
{
    std::vector<CatalogueTable> tables;
    const XmlNode holder = root.selectSingleNode(side);
    if (!holder)
        return tables;
    for (const XmlNode element : holder.childNodes()) {
        CatalogueTable table{.Code = element.baseName(), .Fields = {}};
        for (const XmlNode field : element.childNodes())
            table.Fields.push_back(FieldOf(field));
        tables.push_back(std::move(table));
    }
    return tables;
}

XmlNode ElementOf(XmlDocument& document, const CatalogueTable& table)
{
    const XmlNode element = document.createNode(table.Code);
    for (const CatalogueField& field : table.Fields) {
        const XmlNode child = document.createNode(field.Name);
        for (const auto& [name, value] : field.Attributes)
            child.setNamedItem(name, value);
        element.appendChild(child);
    }
    return element;
}

void PutTables(XmlDocument& document, TextView side, const std::vector<CatalogueTable>& tables)
{
    if (tables.empty())
        return;
    XmlNode holder = document.documentElement().selectSingleNode(side);
    if (!holder)
        holder = AppendChild(document, document.documentElement(), side);
    for (const CatalogueTable& table : tables) {
        const XmlNode element = ElementOf(document, table);
        if (const XmlNode old = holder.selectSingleNode(table.Code))
            holder.replaceChild(element, old);
        else
            holder.appendChild(element);
    }
}

} // namespace

TextView CatalogueField::Attribute(TextView name) const noexcept
{
    const auto found =
        std::find_if(Attributes.begin(), Attributes.end(), [&](const auto& a) { return a.first == name; });
    return found == Attributes.end() ? TextView() : TextView(found->second);
}

void CatalogueField::Attribute(TextView name, TextView value)
{
    const auto found =
        std::find_if(Attributes.begin(), Attributes.end(), [&](const auto& a) { return a.first == name; });
    if (found == Attributes.end())
        Attributes.emplace_back(name, value);
    else
        found->second = value;
}

const CatalogueTable* FindTable(const std::vector<CatalogueTable>& tables, TextView code)
{
    const Text upper = ToUpper(code);
    const auto found =
        std::find_if(tables.begin(), tables.end(), [&](const CatalogueTable& t) { return ToUpper(t.Code) == upper; });
    return found == tables.end() ? nullptr : &*found;
}

Catalogue CatalogueOf(const std::string& object)
{
    XmlDocument document;
    if (!document.loadXML(object))
        return {};
    return {TablesUnder(document.documentElement(), u"SRCTAB"), TablesUnder(document.documentElement(), u"TARTAB")};
}

void NumberFields(CatalogueTable& table)
{
    std::int64_t number = 0;
    for (CatalogueField& field : table.Fields)
        field.Attribute(u"No", PlainNumber(++number));
}

std::string WithCatalogue(std::string object, const Catalogue& catalogue)
{
    XmlDocument document;
    if (!document.loadXML(object))
        return object;
    PutTables(document, u"SRCTAB", catalogue.Sources);
    std::vector<CatalogueTable> targets = catalogue.Targets;
    std::for_each(targets.begin(), targets.end(), NumberFields);
    PutTables(document, u"TARTAB", targets);
    return document.xmlUtf8();
}

} // namespace rulemesh
