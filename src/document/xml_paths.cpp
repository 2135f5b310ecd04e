#include "document/xml_paths.h"

#include <span>

#include "base/failure.h"
#include "document/xml_transcode.h"

namespace rulemesh::xml {

namespace {

constexpr TextView Forbidden = u"()[]'\"@=,|*";

using Steps = std::span<const std::string>;

NodeIndex RootNamed(Store& store, std::string_view name)
{
    const NodeIndex root = store.Root();
    return root != NoNode && store.Names().At(store.At(root).name) == name ? root : NoNode;
}

// The elements that the steps name, one after the other in document order. Holds one element for each level, so that
// the first answer costs no more than the way to it.
class Selection {
public:
    // From NoNode on, the first step names the root.
    Selection(Store& store, NodeIndex from, Steps steps) : store_(store), from_(from), steps_(steps) {}

    NodeIndex Next()
    {
        bool forward = levels_.empty();
        for (;;) {
            if (forward && levels_.size() == steps_.size())
                return levels_.empty() ? NoNode : levels_.back();
            const NodeIndex next = forward ? Down() : Sideways();
            if (next == NoNode && levels_.empty())
                return NoNode;
            if (next != NoNode)
                levels_.push_back(next);
            forward = next != NoNode;
        }
    }

private:
    // The first element of the next level.
    NodeIndex Down()
    {
        const std::string& step = steps_[levels_.size()];
        const NodeIndex parent = levels_.empty() ? from_ : levels_.back();
        if (parent != NoNode)
            return store_.FirstChild(parent, step);
        return RootNamed(store_, step);
    }

    // The next element of the last level, which is taken off.
    NodeIndex Sideways()
    {
        const NodeIndex last = levels_.back();
        levels_.pop_back();
        return store_.NextSibling(last, steps_[levels_.size()]);
    }

    Store& store_;
    NodeIndex from_;
    Steps steps_;
    std::vector<NodeIndex> levels_;
};

// Calls `each` with every element on which the last step of the path is to be looked up: NoNode for the document.
// Ends when it returns false.
template <typename Each> void ForEachParent(Store& store, const Path& path, Each each)
{
    const Steps steps = Steps(path.steps).first(path.steps.size() - 1);
    if (steps.empty()) {
        each(NoNode);
        return;
    }
    Selection parents(store, NoNode, steps);
    for (NodeIndex parent = parents.Next(); parent != NoNode; parent = parents.Next()) {
        if (!each(parent))
            return;
    }
}

[[noreturn]] void RaiseMalformed(TextView step, TextView path)
{
    throw Failure(FailureCode::InvalidProcedureCall, (step.empty() ? u"An empty name" : u"The name " + Quoted(step)) +
                                                         u" can't stand in a path (" + Quoted(path) + u")");
}

} // namespace

Path ParsePath(TextView path)
{
    const TextView whole = path;
    Path parsed;
    parsed.isAbsolute = path.starts_with(u'/');
    if (parsed.isAbsolute)
        path.remove_prefix(1);
    for (;;) {
        const std::size_t end = path.find(u'/');
        const TextView step = path.substr(0, end);
        if (step.empty() || step.find_first_of(Forbidden) != TextView::npos)
            RaiseMalformed(step, whole);
        parsed.steps.push_back(ToUtf8Exactly(step).value_or(std::string()));
        if (end == TextView::npos)
            return parsed;
        path.remove_prefix(end + 1);
    }
}

void CheckKey(TextView name, TextView value)
{
    const bool isBroken = name.empty() || name.find(u'/') != TextView::npos ||
                          name.find_first_of(Forbidden) != TextView::npos || value.find(u'\'') != TextView::npos;
    if (isBroken)
        throw Failure(FailureCode::InvalidProcedureCall,
                      u"The value " + Quoted(value) + u" of " + Quoted(name) + u" can't be looked for");
}

NodeIndex SelectFirst(Store& store, NodeIndex from, const Path& path)
{
    if (!path.isAbsolute && !store.At(from).isElement)
        return NoNode;
    return Selection(store, path.isAbsolute ? NoNode : from, path.steps).Next();
}

NodeIndex SelectFirst(Store& store, const Path& path, std::string_view key, std::string_view value)
{
    const std::string& name = path.steps.back();
    NodeIndex found = NoNode;
    ForEachParent(store, path, [&](NodeIndex parent) {
        if (parent != NoNode) {
            found = store.FirstChild(parent, name, key, value);
        } else {
            const NodeIndex root = RootNamed(store, name);
            found = root != NoNode && store.Attribute(root, key) == value ? root : NoNode;
        }
        return found == NoNode;
    });
    return found;
}

std::vector<NodeIndex> SelectAll(Store& store, const Path& path)
{
    const std::string& name = path.steps.back();
    std::vector<NodeIndex> found;
    ForEachParent(store, path, [&](NodeIndex parent) {
        if (parent == NoNode) {
            if (const NodeIndex root = RootNamed(store, name); root != NoNode)
                found.push_back(root);
        } else {
            const std::vector<NodeIndex> children = store.Children(parent, name);
            found.insert(found.end(), children.begin(), children.end());
        }
        return true;
    });
    return found;
}

std::vector<NodeIndex> ElementsNamed(Store& store, std::string_view name)
{
    std::vector<NodeIndex> found;
    NodeIndex node = store.Root();
    while (node != NoNode) {
        if (store.Names().At(store.At(node).name) == name)
            found.push_back(node);
        if (const NodeIndex child = store.FirstChild(node); child != NoNode) {
            node = child;
            continue;
        }
        while (node != NoNode && store.At(node).next == NoNode)
            node = store.At(node).parent;
        if (node != NoNode)
            node = store.At(node).next;
    }
    return found;
}

} // namespace rulemesh::xml
