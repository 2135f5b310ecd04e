#include <utility>

#include "document/xml_making.h"

// The edits of the store. Each marks the node and what holds it, so that everything else goes on being copied from the
// loaded text.

namespace rulemesh::xml {

NodeIndex Store::Create(std::string_view name)
{
    const NameId id = names_.AddCopy(name);
    const NodeIndex node = NewNode();
    NodeAt(node).name = id;
    NodeAt(node).hasChildNodes = true;
    NodeAt(node).isEdited = true;
    return node;
}

void Store::Append(NodeIndex parent, NodeIndex child)
{
    static_cast<void>(FirstChild(parent)); // those of the text come first
    TouchPlace(child);
    Touch(parent);
    Touch(At(parent).last);
    TouchWayUp(parent);
    MakeRoomForRemovals(At(child).parent, 1);
    TakeOut(child);
    NodeAt(child).slot = nextSlot_++;
    LinkLast(parent, child);
    MarkEdited(parent);
    TellIndex(parent, [&](ChildIndex& index) { index.ChildAdded(child); });
}

void Store::Remove(NodeIndex child)
{
    TouchPlace(child);
    MakeRoomForRemovals(At(child).parent, 1);
    TakeOut(child);
}

void Store::Replace(NodeIndex newChild, NodeIndex oldChild)
{
    TouchPlace(newChild);
    TouchPlace(oldChild);
    MakeRoomForRemovals(At(oldChild).parent, 2); // the new one may stand there too
    MakeRoomForRemovals(At(newChild).parent, 2);
    TakeOut(newChild);
    NoteRemoval(oldChild);
    const Node old = At(oldChild);
    Node& node = NodeAt(newChild);
    node.slot = old.slot;
    node.parent = old.parent;
    node.previous = old.previous;
    node.next = old.next;
    (old.previous != NoNode ? NodeAt(old.previous).next : NodeAt(old.parent).first) = newChild;
    (old.next != NoNode ? NodeAt(old.next).previous : NodeAt(old.parent).last) = newChild;
    Node& gone = NodeAt(oldChild);
    gone.parent = gone.previous = gone.next = NoNode;
    gone.isInPlace = false;
    MarkEdited(old.parent);
    TellIndex(old.parent, [&](ChildIndex& index) { index.ChildAdded(newChild); });
}

// Afterwards that many children can be taken out without asking for memory.
void Store::MakeRoomForRemovals(NodeIndex parent, std::size_t count)
{
    if (parent == NoNode)
        return;
    std::vector<Slice>& removed = MakeDetails(parent).removed;
    if (removed.capacity() - removed.size() < count)
        removed.reserve(2 * removed.size() + count);
}

// Out of where it stands, if it stands anywhere.
void Store::TakeOut(NodeIndex child) noexcept
{
    const NodeIndex parent = At(child).parent;
    if (parent == NoNode)
        return;
    NoteRemoval(child);
    Unlink(child);
    MarkEdited(parent);
}

void Store::NoteRemoval(NodeIndex child) noexcept
{
    if (At(child).isInPlace)
        details_[At(At(child).parent).details]->removed.push_back(At(child).loaded);
}

void Store::WriteText(NodeIndex node, std::string text, CarriageReturns returns)
{
    const bool canComeBack = HasLoadedContent(node);
    ReplaceContent(node, canComeBack ? Content::Written : Content::Rewritten, std::move(text), returns);
}

void Store::Empty(NodeIndex node) { ReplaceContent(node, Content::Rewritten, {}, CarriageReturns::AsLineEnds); }

void Store::ReplaceContent(NodeIndex node, Content content, std::string text, CarriageReturns returns)
{
    Touch(node);
    TouchWayUp(node);
    for (NodeIndex child = At(node).first; child != NoNode; child = At(child).next)
        Touch(child);
    Details& details = MakeDetails(node);
    DetachChildren(node);
    details.content = content;
    details.written = std::move(text);
    details.returns = returns;
    details.removed.clear();
    details.index = nullptr;
    MarkEdited(node);
}

// Whether no child was taken out, put in or emptied away.
bool Store::HasLoadedContent(NodeIndex node) const noexcept
{
    if (At(node).loaded.end == 0)
        return false;
    const Details* const details = DetailsOf(node);
    if (details != nullptr && details->content != Content::Loaded)
        return details->content == Content::Written;
    const bool hasRemoved = details != nullptr && !details->removed.empty();
    const NodeIndex last = At(node).last;
    return !hasRemoved && (last == NoNode || At(last).isInPlace);
}

void Store::SetAttribute(NodeIndex node, std::string_view name, std::string value)
{
    const NameId id = names_.AddCopy(name);
    Touch(node);
    TouchWayUp(At(node).parent);
    AttributeList& attributes = MakeAttributes(node);
    // The index asks the document before it believes an entry, so it may hear of a value that is not there yet.
    TellIndex(At(node).parent, [&](ChildIndex& index) { index.ValueChanged(node, id, value); });
    attributes.Set(id, std::move(value));
    MarkEdited(node);
}

// Walks the tree by its links, as a deep one would not fit on the call stack. What was not edited is copied with all
// below it by copying its place in the text.
NodeIndex Store::Clone(NodeIndex node)
{
    Making making(*this, NoNode);
    const NodeIndex top = CloneAlone(node);
    NodeIndex from = node;
    NodeIndex to = top;
    for (;;) {
        if (At(from).isEdited && At(from).first != NoNode) {
            from = At(from).first;
        } else {
            while (from != node && At(from).next == NoNode) {
                from = At(from).parent;
                to = At(to).parent;
            }
            if (from == node) {
                making.Done();
                return top;
            }
            from = At(from).next;
            to = At(to).parent;
        }
        const NodeIndex child = CloneAlone(from);
        NodeAt(child).slot = At(from).slot;
        NodeAt(child).isInPlace = At(from).isInPlace;
        LinkLast(to, child);
        to = child;
    }
}

NodeIndex Store::CloneAlone(NodeIndex node)
{
    const NodeIndex copy = NewNode();
    const Node& original = At(node);
    Node& clone = NodeAt(copy);
    clone.loaded = original.loaded;
    clone.name = original.name;
    clone.isElement = original.isElement;
    if (!original.isEdited)
        return copy;
    clone.isEdited = true;
    clone.hasChildNodes = original.hasChildNodes;
    if (const Details* const details = DetailsOf(node)) {
        Details& copied = MakeDetails(copy);
        copied.content = details->content;
        copied.returns = details->returns;
        copied.written = details->written;
        copied.removed = details->removed;
        if (details->attributes)
            copied.attributes = std::make_unique<AttributeList>(*details->attributes);
    }
    return copy;
}

void Store::LinkLast(NodeIndex parent, NodeIndex child) noexcept
{
    Node& holder = NodeAt(parent);
    Node& node = NodeAt(child);
    node.parent = parent;
    node.previous = holder.last;
    (holder.last != NoNode ? NodeAt(holder.last).next : holder.first) = child;
    holder.last = child;
    ++holder.childCount;
}

void Store::Unlink(NodeIndex child) noexcept
{
    Node& node = NodeAt(child);
    Node& holder = NodeAt(node.parent);
    (node.previous != NoNode ? NodeAt(node.previous).next : holder.first) = node.next;
    (node.next != NoNode ? NodeAt(node.next).previous : holder.last) = node.previous;
    --holder.childCount;
    node.parent = node.previous = node.next = NoNode;
    node.isInPlace = false;
}

void Store::DetachChildren(NodeIndex parent) noexcept
{
    Node& holder = NodeAt(parent);
    for (NodeIndex child = holder.first; child != NoNode;) {
        Node& node = NodeAt(child);
        child = node.next;
        node.parent = node.previous = node.next = NoNode;
        node.isInPlace = false;
    }
    holder.first = holder.last = NoNode;
    holder.childCount = 0;
    holder.hasChildNodes = true;
}

// What holds an edited node is marked already, so the way up ends at the first mark.
void Store::MarkEdited(NodeIndex node) noexcept
{
    for (; node != NoNode && !At(node).isEdited; node = At(node).parent)
        NodeAt(node).isEdited = true;
}

} // namespace rulemesh::xml
