#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "document/xml_names.h"

namespace rulemesh::xml {

class Store;
using NodeIndex = std::uint32_t;

/// Finds the children of one parent by name, and by name and the value of a key attribute; among several the first in
/// document order. Each part is made when it is first asked for. What is added later is told to the index; what was
/// removed, moved or given another value is not: an entry is checked against the document before it is believed, and
/// dropped when it isn't true any more.
///
/// A look-up that fails for want of memory leaves no part half made; an index that could not take in what it was told
/// is of no use any more.
class ChildIndex {
public:
    ChildIndex(Store& store, NodeIndex parent) noexcept : store_(store), parent_(parent) {}

    [[nodiscard]] NodeIndex First(NameId name);
    [[nodiscard]] NodeIndex First(NameId name, NameId key, std::string_view value);
    [[nodiscard]] std::vector<NodeIndex> All(NameId name);

    /// A child was put among the others.
    void ChildAdded(NodeIndex child);

    /// An attribute of a child has a new value.
    void ValueChanged(NodeIndex child, NameId key, std::string_view value);

    /// Whether so much was added since the making that making it anew is cheaper than keeping it.
    [[nodiscard]] bool IsOutgrown() const noexcept;

private:
    struct Entry {
        std::size_t slot;
        NodeIndex node;
    };
    using Entries = std::vector<Entry>; // a heap with the least slot in front

    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const noexcept { return std::hash<std::string_view>{}(text); }
    };
    struct Keyed {
        NameId name;
        NameId key;
        std::unordered_map<std::string, Entries, Hash, std::equal_to<>> values;
    };

    [[nodiscard]] bool IsCurrent(const Entry& entry) const noexcept;
    [[nodiscard]] Keyed& KeyedBy(NameId name, NameId key);
    void AddNames();
    void Add(Entries& entries, NodeIndex child);
    static void Drop(Entries& entries);

    Store& store_;
    NodeIndex parent_;
    bool hasNames_ = false;
    std::unordered_map<NameId, Entries> names_;
    std::vector<Keyed> keyed_;
    std::size_t added_ = 0;
};

} // namespace rulemesh::xml
