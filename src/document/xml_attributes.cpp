#include "document/xml_attributes.h"

#include <utility>

#include "document/xml_characters.h"
#include "document/xml_scan.h"

namespace rulemesh::xml {

std::string_view ElementName(std::string_view text, std::size_t start) noexcept
{
    return NameAt(text.data() + start + 1, text.data() + text.size());
}

AttributeReader::AttributeReader(std::string_view text, std::size_t start) noexcept
    : text_(text), at_(start + 1 + ElementName(text, start).size())
{
}

bool AttributeReader::Next(LoadedAttribute& attribute) noexcept
{
    const char* const begin = text_.data();
    const char* const end = begin + text_.size();
    const char* const name = SkipSpaces(begin + at_);
    if (*name == '>' || *name == '/')
        return false;
    attribute.name = NameAt(name, end);
    const char* value = SkipSpaces(name + attribute.name.size());
    value = SkipSpaces(value + 1); // behind "="
    const char quote = *value++;
    const std::size_t valueStart = static_cast<std::size_t>(value - begin);
    const std::size_t valueEnd = text_.find(quote, valueStart);
    attribute.whole = {at_, valueEnd + 1};
    attribute.value = {valueStart, valueEnd};
    at_ = valueEnd + 1;
    return true;
}

const AttributeList::Attribute* AttributeList::Find(NameId name) const noexcept
{
    if (attributes_.size() > FewAttributes) {
        const auto place = places_.find(name);
        return place == places_.end() ? nullptr : &attributes_[place->second];
    }
    for (const Attribute& attribute : attributes_) {
        if (attribute.name == name)
            return &attribute;
    }
    return nullptr;
}

void AttributeList::Load(std::string_view text, std::size_t start, NameTable& names)
{
    AttributeReader reader(text, start);
    LoadedAttribute loaded;
    while (reader.Next(loaded))
        Add({names.Add(loaded.name), loaded.whole, loaded.value, std::nullopt});
    loadedEnd_ = reader.At();
}

void AttributeList::Set(NameId name, std::string value)
{
    if (const Attribute* const found = Find(name))
        attributes_[static_cast<std::size_t>(found - attributes_.data())].written = std::move(value);
    else
        Add({name, {}, {}, std::move(value)});
}

void AttributeList::Add(Attribute attribute)
{
    if (attributes_.size() == attributes_.capacity())
        attributes_.reserve(2 * attributes_.size() + 1);
    if (attributes_.size() == FewAttributes)
        places_ = Places(); // the way to a place begins with the first that is more than few
    if (attributes_.size() >= FewAttributes)
        places_.emplace(attribute.name, attributes_.size());
    attributes_.push_back(std::move(attribute)); // into the room that is there
}

std::unordered_map<NameId, std::size_t> AttributeList::Places() const
{
    std::unordered_map<NameId, std::size_t> places;
    for (std::size_t place = 0; place < attributes_.size(); ++place)
        places.emplace(attributes_[place].name, place);
    return places;
}

} // namespace rulemesh::xml
