#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace rulemesh::xml {

/// Finds a name that comes twice in one start tag. A few names are compared by their first bytes; from `FewNames` on
/// they go into a hash table, so that a tag of a hundred thousand attributes costs no more for each than a small one.
class AttributeNames {
public:
    void Clear() noexcept
    {
        count_ = 0;
        seen_ = 0;
    }

    /// False when the name is there already. The name must stand in a start tag and stay where it is until Clear;
    /// `readable` bytes from its beginning on may be read.
    bool Add(std::string_view name, std::size_t readable);

private:
    static constexpr std::size_t FewNames = 32;

    [[nodiscard]] bool IsAmongFew(std::string_view name, std::uint64_t key) const noexcept;
    bool AddToMany(std::string_view name);
    bool Insert(std::string_view name) noexcept;
    void Grow();

    std::uint64_t seen_ = 0; // a bit for each key, by its hash: what was not seen needs no comparison
    std::size_t count_ = 0;
    std::array<std::uint64_t, FewNames> keys_{};
    std::array<std::string_view, FewNames> few_{};
    std::vector<const char*> table_; // the beginnings of all names once they are many; null is free
};

} // namespace rulemesh::xml
