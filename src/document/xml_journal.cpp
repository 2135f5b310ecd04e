#include "document/xml_journal.h"

#include <algorithm>
#include <string>
#include <utility>

#include "document/xml_saved_nodes.h"
#include "document/xml_writer.h"

namespace rulemesh {

namespace xml {

namespace {

std::unique_ptr<Details> CopyOf(const Details& details)
{
    auto copy = std::make_unique<Details>();
    copy->content = details.content;
    copy->returns = details.returns;
    copy->written = details.written;
    copy->removed = details.removed;
    if (details.attributes)
        copy->attributes = std::make_unique<AttributeList>(*details.attributes);
    return copy;
}

bool SameLinks(const Node& one, const Node& other) noexcept
{
    return one.slot == other.slot && one.parent == other.parent && one.previous == other.previous &&
           one.next == other.next && one.first == other.first && one.last == other.last &&
           one.childCount == other.childCount && one.details == other.details && one.isEdited == other.isEdited &&
           one.isInPlace == other.isInPlace && one.hasChildNodes == other.hasChildNodes;
}

bool SameAttributes(const AttributeList* one, const AttributeList* other)
{
    if (one == nullptr || other == nullptr)
        return one == other;
    return std::equal(one->All().begin(), one->All().end(), other->All().begin(), other->All().end(),
                      [](const auto& a, const auto& b) { return a.name == b.name && a.written == b.written; });
}

bool SameDetails(const Details* one, const Details* other)
{
    if (one == nullptr || other == nullptr)
        return one == other;
    return one->content == other->content && one->returns == other->returns && one->written == other->written &&
           one->removed.size() == other->removed.size() &&
           SameAttributes(one->attributes.get(), other->attributes.get());
}

} // namespace

void Store::KeepEdits()
{
    keepsEdits_ = true;
    saved_ = std::make_unique<SavedNodes>();
}

void Store::Touch(NodeIndex node)
{
    if (!keepsEdits_ || node == NoNode || At(node).savedIn == edition_)
        return;
    const Details* const details = DetailsOf(node);
    saved_->nodes.push_back({node, At(node), details == nullptr ? nullptr : CopyOf(*details)});
    NodeAt(node).savedIn = edition_;
}

void Store::TouchPlace(NodeIndex child)
{
    for (const NodeIndex node : {child, At(child).parent, At(child).previous, At(child).next})
        Touch(node);
    TouchWayUp(At(child).parent);
}

// Those that the mark of an edit is still to reach.
void Store::TouchWayUp(NodeIndex node)
{
    for (; node != NoNode && !At(node).isEdited; node = At(node).parent)
        Touch(node);
}

// A record that stands as it stood is left out: a script that is stored again as it was costs nothing.
std::unique_ptr<SavedNodes> Store::TakeEdits()
{
    auto taken = std::make_unique<SavedNodes>();
    std::swap(taken, saved_);
    ++edition_;
    std::erase_if(taken->nodes, [&](const SavedNode& saved) {
        return SameLinks(saved.node, At(saved.place)) && SameDetails(saved.details.get(), DetailsOf(saved.place));
    });
    taken->nodes.shrink_to_fit();
    return taken;
}

void Store::TakeBack(SavedNodes& edits) noexcept
{
    for (auto saved = edits.nodes.rbegin(); saved != edits.nodes.rend(); ++saved)
        Swap(*saved);
    TellIndexes(edits);
}

void Store::DoAgain(SavedNodes& edits) noexcept
{
    for (SavedNode& saved : edits.nodes)
        Swap(saved);
    TellIndexes(edits);
}

void Store::Swap(SavedNode& saved) noexcept
{
    Node& node = NodeAt(saved.place);
    std::swap(node, saved.node);
    node.savedIn = 0;
    if (node.details == 0)
        return;
    Details& details = *details_[node.details];
    details.index = nullptr;
    if (saved.details)
        std::swap(details, *saved.details);
}

void Store::TellIndexes(const SavedNodes& edits) noexcept
{
    for (const SavedNode& saved : edits.nodes) {
        if (At(saved.place).parent != NoNode)
            TellIndex(At(saved.place).parent, [&](ChildIndex& index) { index.ChildAdded(saved.place); });
    }
}

bool Store::IsAttached(NodeIndex node) const noexcept
{
    while (At(node).parent != NoNode)
        node = At(node).parent;
    return node == root_;
}

namespace {

// What a touched element adds to the text by itself, and its children.
struct Side {
    std::string own;
    std::vector<NodeIndex> children;
};

Side SideOf(Store& store, NodeIndex node)
{
    Side side;
    for (NodeIndex child = store.At(node).first; child != NoNode; child = store.At(child).next)
        side.children.push_back(child);
    side.own = side.children.empty() ? WriteElement(store, node) : WriteHead(store, node);
    return side;
}

} // namespace

// Goes back for a moment to compare what was touched. A text that reads like another may stand for another tree only
// where as many children took the place of others; these are compared as texts.
bool Store::ChangeText(SavedNodes& edits)
{
    std::vector<NodeIndex> touched;
    for (const SavedNode& saved : edits.nodes) {
        if (IsAttached(saved.place))
            touched.push_back(saved.place);
    }
    std::sort(touched.begin(), touched.end());
    touched.erase(std::unique(touched.begin(), touched.end()), touched.end());
    std::vector<Side> now;
    now.reserve(touched.size());
    for (const NodeIndex node : touched)
        now.push_back(SideOf(*this, node));

    bool changed = false;
    std::vector<std::pair<std::string, NodeIndex>> replaced; // the text of a child then, and the child in its place now
    TakeBack(edits);
    for (std::size_t at = 0; at < touched.size() && !changed; ++at) {
        if (!IsAttached(touched[at]))
            continue; // what holds it lost it or got it, and tells
        const Side then = SideOf(*this, touched[at]);
        changed = then.own != now[at].own || then.children.size() != now[at].children.size();
        for (std::size_t child = 0; child < then.children.size() && !changed; ++child) {
            if (then.children[child] != now[at].children[child])
                replaced.emplace_back(WriteElement(*this, then.children[child]), now[at].children[child]);
        }
    }
    DoAgain(edits);
    return changed || std::any_of(replaced.begin(), replaced.end(),
                                  [&](const auto& pair) { return pair.first != WriteElement(*this, pair.second); });
}

} // namespace xml

DocumentEdits::DocumentEdits() = default;

DocumentEdits::DocumentEdits(std::unique_ptr<xml::SavedNodes> saved) : saved_(std::move(saved)) {}

DocumentEdits::DocumentEdits(DocumentEdits&& other) noexcept = default;

DocumentEdits& DocumentEdits::operator=(DocumentEdits&& other) noexcept = default;

DocumentEdits::~DocumentEdits() = default;

bool DocumentEdits::IsEmpty() const noexcept { return !saved_ || saved_->nodes.empty(); }

std::size_t DocumentEdits::Bytes() const noexcept
{
    if (!saved_)
        return 0;
    std::size_t bytes = saved_->nodes.capacity() * sizeof(xml::SavedNode);
    for (const xml::SavedNode& saved : saved_->nodes) {
        if (!saved.details)
            continue;
        bytes += sizeof(xml::Details) + saved.details->written.capacity() +
                 saved.details->removed.capacity() * sizeof(xml::Slice);
        if (saved.details->attributes) {
            for (const auto& attribute : saved.details->attributes->All())
                bytes += sizeof attribute + (attribute.written ? attribute.written->capacity() : 0);
        }
    }
    return bytes;
}

void DocumentEdits::Append(DocumentEdits behind)
{
    if (behind.IsEmpty())
        return;
    if (IsEmpty()) {
        *this = std::move(behind);
        return;
    }
    std::move(behind.saved_->nodes.begin(), behind.saved_->nodes.end(), std::back_inserter(saved_->nodes));
}

} // namespace rulemesh
