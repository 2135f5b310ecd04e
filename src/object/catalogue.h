#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"

namespace rulemesh {

/// One field of a table: the name of its element, and its attributes in their order.
struct CatalogueField {
    Text Name;
    std::vector<std::pair<Text, Text>> Attributes;

    [[nodiscard]] TextView Attribute(TextView name) const noexcept;
    void Attribute(TextView name, TextView value);

    friend bool operator==(const CatalogueField&, const CatalogueField&) = default;
};

/// A table under its code in upper case.
struct CatalogueTable {
    Text Code;
    std::vector<CatalogueField> Fields;

    friend bool operator==(const CatalogueTable&, const CatalogueTable&) = default;
};

/// The tables that an object describes, in their order.
struct Catalogue {
    std::vector<CatalogueTable> Sources;
    std::vector<CatalogueTable> Targets;

    friend bool operator==(const Catalogue&, const Catalogue&) = default;
};

/// The attributes of a field that the designer knows.
inline constexpr std::array<TextView, 13> FieldAttributes = {u"No",     u"FNo",     u"MAN",     u"TYPE", u"LENG",
                                                             u"DIGB",   u"DIGA",    u"DSCA",    u"ADJU", u"CASE",
                                                             u"DOMAIN", u"INITVAL", u"DOMENUMS"};

/// The table of a code, in any case; null when there is none.
[[nodiscard]] const CatalogueTable* FindTable(const std::vector<CatalogueTable>& tables, TextView code);

/// The catalogue that stands in an object (UTF-8). Empty for a text that is no XML.
[[nodiscard]] Catalogue CatalogueOf(const std::string& object);

/// Gives every field its `No`, from 1 without gaps.
void NumberFields(CatalogueTable& table);

/// An object (UTF-8) with the tables of the catalogue: those that it has are replaced, others are added. Nothing else
/// changes. Target fields are numbered. An object that is no XML comes back as it is.
[[nodiscard]] std::string WithCatalogue(std::string object, const Catalogue& catalogue);

} // namespace rulemesh
