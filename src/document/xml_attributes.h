#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "document/xml_names.h"
#include "document/xml_parser.h"

namespace rulemesh::xml {

/// An attribute as it stands in the loaded text.
struct LoadedAttribute {
    std::string_view name;
    Slice whole; // with the white space before it
    Slice value; // between the quotes
};

/// Reads the attributes of one start tag of a well-formed text, from front to back.
class AttributeReader {
public:
    /// `start` is the place of the tag's "<".
    AttributeReader(std::string_view text, std::size_t start) noexcept;

    /// The next attribute; false behind the last one.
    [[nodiscard]] bool Next(LoadedAttribute& attribute) noexcept;

    /// Behind the element's name or the attribute that was read last.
    [[nodiscard]] std::size_t At() const noexcept { return at_; }

private:
    std::string_view text_;
    std::size_t at_;
};

/// The name of the element whose start tag begins at `start`.
[[nodiscard]] std::string_view ElementName(std::string_view text, std::size_t start) noexcept;

/// The attributes of an element that was edited, or has so many that looking through its start tag takes long.
class AttributeList {
public:
    struct Attribute {
        NameId name = NoName;
        Slice whole; // as in LoadedAttribute; empty when it was added
        Slice value;
        std::optional<std::string> written;
    };

    /// Nothing when there is none of that name.
    [[nodiscard]] const Attribute* Find(NameId name) const noexcept;

    /// Fills a new list; one whose filling has failed is of no use.
    void Load(std::string_view text, std::size_t start, NameTable& names);

    /// Changes nothing when it fails.
    void Set(NameId name, std::string value);

    [[nodiscard]] const std::vector<Attribute>& All() const noexcept { return attributes_; }

    /// Where the loaded attributes end in the text.
    [[nodiscard]] std::size_t LoadedEnd() const noexcept { return loadedEnd_; }

private:
    static constexpr std::size_t FewAttributes = 16;

    void Add(Attribute attribute);
    [[nodiscard]] std::unordered_map<NameId, std::size_t> Places() const;

    std::vector<Attribute> attributes_;
    std::unordered_map<NameId, std::size_t> places_; // only when there are more than FewAttributes
    std::size_t loadedEnd_ = 0;
};

} // namespace rulemesh::xml
