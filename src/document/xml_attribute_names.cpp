#include "document/xml_attribute_names.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <functional>

#include "document/xml_characters.h"

namespace rulemesh::xml {

namespace {

// Equal names have equal keys; a name of up to 8 bytes shares its key with no other such name.
std::uint64_t KeyOf(std::string_view name, std::size_t readable) noexcept
{
    std::uint64_t first = 0;
    if (name.size() >= 8 || readable < 8)
        std::memcpy(&first, name.data(), std::min<std::size_t>(name.size(), 8));
    else {
        std::array<char, 8> bytes{};
        std::memcpy(bytes.data(), name.data(), 8);
        std::memcpy(&first, bytes.data(), 8);
        if constexpr (std::endian::native == std::endian::little)
            first &= (std::uint64_t{1} << (8 * name.size())) - 1;
        else
            first &= ~(~std::uint64_t{0} >> (8 * name.size()));
    }
    if (name.size() <= 8)
        return first;
    std::uint64_t last = 0;
    std::memcpy(&last, name.data() + name.size() - 8, 8);
    return first + last * 0x9E3779B97F4A7C15U + name.size();
}

// A name in a start tag ends at "=" or white space.
std::string_view NameAt(const char* begin) noexcept
{
    const char* end = begin;
    while (*end != '=' && !Is(Space, *end))
        ++end;
    return {begin, static_cast<std::size_t>(end - begin)};
}

} // namespace

bool AttributeNames::Add(std::string_view name, std::size_t readable)
{
    if (count_ >= FewNames)
        return AddToMany(name);
    const std::uint64_t key = KeyOf(name, readable);
    const std::uint64_t bit = std::uint64_t{1} << ((key * 0x9E3779B97F4A7C15U) >> 58);
    if ((seen_ & bit) != 0 && IsAmongFew(name, key))
        return false;
    seen_ |= bit;
    keys_[count_] = key;
    few_[count_] = name;
    ++count_;
    return true;
}

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
