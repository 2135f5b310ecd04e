#include "document/xml_child_index.h"

#include <algorithm>
#include <utility>

#include "document/xml_store.h"

namespace rulemesh::xml {

namespace {

constexpr auto IsBehind = [](const auto& one, const auto& other) { return one.slot > other.slot; };

} // namespace

NodeIndex ChildIndex::First(NameId name)
{
    AddNames();
    const auto found = names_.find(name);
    if (found == names_.end())
        return NoNode;
    Entries& entries = found->second;
    while (!entries.empty() && !IsCurrent(entries.front()))
        Drop(entries);
    return entries.empty() ? NoNode : entries.front().node;
}

NodeIndex ChildIndex::First(NameId name, NameId key, std::string_view value)
{
    Keyed& keyed = KeyedBy(name, key);
    const auto found = keyed.values.find(value);
    if (found == keyed.values.end())
        return NoNode;
    Entries& entries = found->second;
    while (!entries.empty() && !(IsCurrent(entries.front()) && store_.HasAttribute(entries.front().node, key, value)))
        Drop(entries);
    return entries.empty() ? NoNode : entries.front().node;
}

std::vector<NodeIndex> ChildIndex::All(NameId name)
{
    AddNames();
    const auto found = names_.find(name);
    if (found == names_.end())
        return {};
    // A sorted run is a heap too.
    Entries& entries = found->second;
    std::erase_if(entries, [&](const Entry& entry) { return !IsCurrent(entry); });
    std::sort(entries.begin(), entries.end(),
              [](const Entry& one, const Entry& other) { return one.slot < other.slot; });
    std::vector<NodeIndex> nodes;
    nodes.reserve(entries.size());
    for (const Entry& entry : entries) {
        if (nodes.empty() || nodes.back() != entry.node)
            nodes.push_back(entry.node);
    }
    return nodes;
}

void ChildIndex::ChildAdded(NodeIndex child)
{
    ++added_;
    const NameId name = store_.At(child).name;
    if (hasNames_)
        Add(names_[name], child);
    for (Keyed& keyed : keyed_) {
        if (keyed.name != name)
            continue;
        if (const auto value = store_.Attribute(child, keyed.key))
            Add(keyed.values[*value], child);
    }
}

void ChildIndex::ValueChanged(NodeIndex child, NameId key, std::string_view value)
{
    ++added_;
    const NameId name = store_.At(child).name;
    for (Keyed& keyed : keyed_) {
        if (keyed.name == name && keyed.key == key)
            Add(keyed.values[std::string(value)], child);
    }
}

bool ChildIndex::IsOutgrown() const noexcept { return added_ > 2 * std::size_t{store_.At(parent_).childCount} + 64; }

// A node that left its slot and came back, or whose value did, has two entries that are both true.
bool ChildIndex::IsCurrent(const Entry& entry) const noexcept
{
    const Node& node = store_.At(entry.node);
    return node.parent == parent_ && node.slot == entry.slot;
}

ChildIndex::Keyed& ChildIndex::KeyedBy(NameId name, NameId key)
{
    for (Keyed& keyed : keyed_) {
        if (keyed.name == name && keyed.key == key)
            return keyed;
    }
    Keyed keyed{name, key, {}};
    for (NodeIndex child = store_.At(parent_).first; child != NoNode; child = store_.At(child).next) {
        if (store_.At(child).name != name)
            continue;
        if (const auto value = store_.Attribute(child, key))
            Add(keyed.values[*value], child);
    }
    return keyed_.emplace_back(std::move(keyed));
}

void ChildIndex::AddNames()
{
    if (hasNames_)
        return;
    std::unordered_map<NameId, Entries> names;
    for (NodeIndex child = store_.At(parent_).first; child != NoNode; child = store_.At(child).next)
        Add(names[store_.At(child).name], child);
    names_ = std::move(names);
    hasNames_ = true;
}

void ChildIndex::Add(Entries& entries, NodeIndex child)
{
    entries.push_back({store_.At(child).slot, child});
    std::push_heap(entries.begin(), entries.end(), IsBehind);
}

void ChildIndex::Drop(Entries& entries)
{
    std::pop_heap(entries.begin(), entries.end(), IsBehind);
    entries.pop_back();
}

} // namespace rulemesh::xml
