#include "document/xml_store.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

#include "document/xml_decode.h"
#include "document/xml_large_elements.h"
#include "document/xml_making.h"
#include "document/xml_saved_nodes.h"
#include "document/xml_scan.h"

namespace rulemesh::xml {

Store::Store() : details_(1) { static_cast<void>(NewNode()); } // the first node stands for NoNode

Store::~Store() = default;

bool Store::Load(std::string text)
{
    owned_ = std::move(text);
    text_ = owned_;
    if (text_.starts_with("\xEF\xBB\xBF"))
        text_.remove_prefix(3);
    if (!Parse(text_, outline_))
        return false;
    outline_.large.shrink_to_fit();
    nextSlot_ = text_.size() + 1;
    root_ = NewNode();
    NodeAt(root_).loaded = outline_.root;
    NodeAt(root_).name = names_.Add(ElementName(text_, outline_.root.start));
    first_ = root_;
    if (outline_.first.end != 0) {
        first_ = NewNode();
        NodeAt(first_).loaded = outline_.first;
        NodeAt(first_).isElement = false;
        NodeAt(first_).hasChildNodes = true;
    }
    return true;
}

NodeIndex Store::NewNode()
{
    if (nodeCount_ == std::numeric_limits<NodeIndex>::max())
        throw std::bad_alloc();
    if (nodeCount_ / BlockSize == blocks_.size())
        blocks_.push_back(std::make_unique<Block>());
    return nodeCount_++;
}

NodeIndex Store::FirstChild(NodeIndex parent)
{
    if (!At(parent).hasChildNodes)
        FindChildren(parent);
    return At(parent).first;
}

NodeIndex Store::FirstChild(NodeIndex parent, std::string_view name)
{
    const NodeIndex first = FirstChild(parent);
    const NameId wanted = names_.Find(name);
    if (wanted == NoName)
        return NoNode;
    if (At(parent).childCount > FewChildren)
        return IndexOf(parent).First(wanted);
    NodeIndex child = first;
    while (child != NoNode && At(child).name != wanted)
        child = At(child).next;
    return child;
}

NodeIndex Store::FirstChild(NodeIndex parent, std::string_view name, std::string_view key, std::string_view value)
{
    NodeIndex child = FirstChild(parent);
    const NameId wanted = names_.Find(name);
    if (wanted == NoName)
        return NoNode;
    const NameId keyName = names_.AddCopy(key);
    if (At(parent).childCount > FewChildren)
        return IndexOf(parent).First(wanted, keyName, value);
    while (child != NoNode && !(At(child).name == wanted && HasAttribute(child, keyName, value)))
        child = At(child).next;
    return child;
}

NodeIndex Store::NextSibling(NodeIndex node, std::string_view name) const noexcept
{
    const NameId wanted = names_.Find(name);
    NodeIndex sibling = At(node).next;
    while (sibling != NoNode && At(sibling).name != wanted)
        sibling = At(sibling).next;
    return sibling;
}

std::vector<NodeIndex> Store::Children(NodeIndex parent, std::string_view name)
{
    std::vector<NodeIndex> children;
    const NodeIndex first = FirstChild(parent);
    const NameId wanted = names_.Find(name);
    if (wanted == NoName)
        return children;
    if (At(parent).childCount > FewChildren)
        return IndexOf(parent).All(wanted);
    for (NodeIndex child = first; child != NoNode; child = At(child).next) {
        if (At(child).name == wanted)
            children.push_back(child);
    }
    return children;
}

ChildIndex& Store::IndexOf(NodeIndex parent)
{
    Details& details = MakeDetails(parent);
    if (details.index && details.index->IsOutgrown())
        details.index = nullptr;
    if (!details.index)
        details.index = std::make_unique<ChildIndex>(*this, parent);
    return *details.index;
}

// Gives the children their nodes: all of them, or none when it fails. The text is known to be well-formed, so that only
// the tags need a look, and of the larger elements not even these.
void Store::FindChildren(NodeIndex parent)
{
    if (At(parent).loaded.end == 0) {
        NodeAt(parent).hasChildNodes = true;
        return;
    }
    Making making(*this, parent);
    const Slice content = PartsOf(parent).content;
    LargeElements large(outline_.large, content.start);
    std::size_t depth = 0;
    std::size_t child = 0;
    std::size_t at = text_.find('<', content.start);
    while (at < content.end) {
        const char next = text_[at + 1];
        if (next == '!' || next == '?') {
            at += MarkupLength(text_.substr(at));
        } else if (next == '/') {
            at = text_.find('>', at) + 1;
            if (--depth == 0)
                AddLoadedChild(parent, {child, at});
        } else {
            const std::size_t start = at;
            if (depth == 0)
                child = start;
            const std::size_t largeEnd = large.EndOf(start);
            at = largeEnd != 0 ? largeEnd : start + MarkupLength(text_.substr(start));
            if (largeEnd == 0 && text_[at - 2] != '/')
                ++depth;
            else if (depth == 0)
                AddLoadedChild(parent, {child, at});
        }
        at = text_.find('<', at);
    }
    NodeAt(parent).hasChildNodes = true;
    making.Done();
}

void Store::AddLoadedChild(NodeIndex parent, Slice slice)
{
    const NameId name = names_.Add(ElementName(text_, slice.start));
    const NodeIndex child = NewNode();
    Node& node = NodeAt(child);
    node.loaded = slice;
    node.slot = slice.start;
    node.name = name;
    node.isInPlace = true;
    LinkLast(parent, child);
}

Parts Store::PartsOf(NodeIndex node) const noexcept
{
    const Slice element = At(node).loaded;
    Parts parts;
    const char* const begin = text_.data();
    const char* const tagEnd = FindTagEnd(begin + element.start + 1, begin + text_.size());
    parts.tagEnd = static_cast<std::size_t>(tagEnd + 1 - begin);
    parts.isEmptyTag = tagEnd[-1] == '/';
    parts.content = {parts.tagEnd, parts.isEmptyTag ? parts.tagEnd : text_.rfind('<', element.end - 1)};
    return parts;
}

const Details* Store::DetailsOf(NodeIndex node) const noexcept { return details_[At(node).details].get(); }

const std::vector<Slice>& Store::SortedRemovals(NodeIndex node)
{
    std::vector<Slice>& removed = details_[At(node).details]->removed;
    const auto isBefore = [](const Slice& one, const Slice& other) { return one.start < other.start; };
    if (!std::is_sorted(removed.begin(), removed.end(), isBefore))
        std::sort(removed.begin(), removed.end(), isBefore);
    return removed;
}

Details& Store::MakeDetails(NodeIndex node)
{
    std::uint32_t& place = NodeAt(node).details;
    if (place == 0) {
        details_.push_back(std::make_unique<Details>());
        place = static_cast<std::uint32_t>(details_.size() - 1);
    }
    return *details_[place];
}

AttributeList& Store::MakeAttributes(NodeIndex node)
{
    Details& details = MakeDetails(node);
    if (!details.attributes) {
        auto attributes = std::make_unique<AttributeList>();
        if (At(node).loaded.end != 0)
            attributes->Load(text_, At(node).loaded.start, names_);
        details.attributes = std::move(attributes);
    }
    return *details.attributes;
}

std::optional<std::string> Store::Attribute(NodeIndex node, std::string_view name)
{
    const Details* const details = DetailsOf(node);
    if (details == nullptr || !details->attributes) {
        if (!At(node).isElement || At(node).loaded.end == 0)
            return std::nullopt;
        AttributeReader reader(text_, At(node).loaded.start);
        LoadedAttribute loaded;
        std::size_t count = 0;
        while (count < ManyAttributes && reader.Next(loaded)) {
            if (loaded.name == name)
                return AttributeValue(text_.substr(loaded.value.start, loaded.value.Length()));
            ++count;
        }
        if (count < ManyAttributes)
            return std::nullopt;
    }
    const AttributeList& attributes = MakeAttributes(node);
    const NameId known = names_.Find(name);
    const AttributeList::Attribute* const found = known == NoName ? nullptr : attributes.Find(known);
    if (found == nullptr)
        return std::nullopt;
    return found->written ? found->written : AttributeValue(text_.substr(found->value.start, found->value.Length()));
}

void Store::ReadAttributes(NodeIndex node, std::span<const std::string_view> names,
                           const std::function<void(std::size_t name, const std::string& value)>& take)
{
    const Details* const details = DetailsOf(node);
    const bool asLoaded =
        (details == nullptr || !details->attributes) && At(node).isElement && At(node).loaded.end != 0;
    if (asLoaded) {
        AttributeReader reader(text_, At(node).loaded.start);
        LoadedAttribute loaded;
        std::size_t count = 0;
        for (; count < ManyAttributes && reader.Next(loaded); ++count) {
            const auto name = std::find(names.begin(), names.end(), loaded.name);
            if (name != names.end())
                take(static_cast<std::size_t>(name - names.begin()),
                     AttributeValue(text_.substr(loaded.value.start, loaded.value.Length())));
        }
        if (count < ManyAttributes)
            return;
    }
    for (std::size_t name = 0; name < names.size(); ++name) {
        if (const std::optional<std::string> value = Attribute(node, names[name]))
            take(name, *value);
    }
}

std::optional<std::string> Store::Attribute(NodeIndex node, NameId name) { return Attribute(node, names_.At(name)); }

bool Store::HasAttribute(NodeIndex node, NameId name, std::string_view value) { return Attribute(node, name) == value; }

} // namespace rulemesh::xml
