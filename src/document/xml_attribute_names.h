#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
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
    bool Add(std::string_view name, std::size_t readable)
    {
        if (count_ >= FewNames)
            return AddToMany(name);
        const std::uint64_t key = KeyOf(name, readable);
        const std::uint64_t bit = std::uint64_t{1} << ((key * Mixer) >> 58);
        if ((seen_ & bit) != 0 && IsAmongFew(name, key))
            return false;
        seen_ |= bit;
        keys_[count_] = key;
        few_[count_] = name;
        ++count_;
        return true;
    }

private:
    static constexpr std::size_t FewNames = 32;
    static constexpr std::uint64_t Mixer = 0x9E3779B97F4A7C15U;

    // Equal names have equal keys; a name of up to 8 bytes shares its key with no other such name.
    [[nodiscard]] static std::uint64_t KeyOf(std::string_view name, std::size_t readable) noexcept
    {
        std::uint64_t first = 0;
        if (name.size() >= 8) {
            std::uint64_t last = 0;
            std::memcpy(&first, name.data(), 8);
            std::memcpy(&last, name.data() + name.size() - 8, 8);
            return name.size() == 8 ? first : first + last * Mixer + name.size();
        }
        if (readable < 8 || std::endian::native != std::endian::little) {
            std::memcpy(&first, name.data(), name.size());
            return first;
        }
        std::memcpy(&first, name.data(), 8);
        return first & ((std::uint64_t{1} << (8 * name.size())) - 1);
    }

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
