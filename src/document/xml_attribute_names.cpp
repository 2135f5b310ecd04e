#include "document/xml_attribute_names.h"

#include <functional>

#include "document/xml_characters.h"

namespace rulemesh::xml {

namespace {

// A name in a start tag ends at "=" or white space.
std::string_view NameAt(const char* begin) noexcept
{
    const char* end = begin;
    while (*end != '=' && !Is(Space, *end))
        ++end;
    return {begin, static_cast<std::size_t>(end - begin)};
}

} // namespace

bool AttributeNames::IsAmongFew(std::string_view name, std::uint64_t key) const noexcept
{
    for (std::size_t at = 0; at < count_; ++at) {
        if (keys_[at] == key && few_[at] == name)
            return true;
    }
    return false;
}

bool AttributeNames::AddToMany(std::string_view name)
{
    if (count_ == FewNames) {
        table_.assign(4 * FewNames, nullptr);
        for (const std::string_view few : few_)
            Insert(few);
    }
    if (2 * count_ >= table_.size())
        Grow();
    ++count_;
    return Insert(name);
}

bool AttributeNames::Insert(std::string_view name) noexcept
{
    const std::size_t mask = table_.size() - 1;
    std::size_t at = std::hash<std::string_view>{}(name)&mask;
    for (; table_[at] != nullptr; at = (at + 1) & mask) {
        if (NameAt(table_[at]) == name)
            return false;
    }
    table_[at] = name.data();
    return true;
}

void AttributeNames::Grow()
{
    std::vector<const char*> old(2 * table_.size(), nullptr);
    old.swap(table_);
    for (const char* const name : old) {
        if (name != nullptr)
            Insert(NameAt(name));
    }
}

} // namespace rulemesh::xml
