#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace rulemesh::xml {

/// A name by its number, so that comparing names is comparing integers.
using NameId = std::uint32_t;
inline constexpr NameId NoName = 0;

/// The names of elements and attributes that a document has met.
class NameTable {
public:
    NameTable();

    /// The number of a name, which stays where it is as long as the table, or is copied.
    NameId Add(std::string_view name);
    NameId AddCopy(std::string_view name);

    /// The number of a name, or NoName when nothing has that name.
    [[nodiscard]] NameId Find(std::string_view name) const noexcept;

    [[nodiscard]] std::string_view At(NameId name) const noexcept { return names_[name]; }

private:
    [[nodiscard]] std::size_t Place(std::string_view name) const noexcept;
    void Grow();

    std::vector<std::string_view> names_; // the first stands for NoName
    std::vector<NameId> table_;
    std::deque<std::string> copies_;
};

} // namespace rulemesh::xml
