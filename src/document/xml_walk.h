#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "document/xml_store.h"

namespace rulemesh::xml {

/// Goes through an edited element from front to back, without recursion. The visitor is told:
///
///     bool Open(NodeIndex)    an edited element; false when it needs no look inside
///     void Close(NodeIndex)   its end, when Open said true
///     void Whole(NodeIndex)   an element that stands as it was loaded, with all below it
///     void Loaded(Slice)      what was loaded between child elements
///
/// A written text is not told of: it is the visitor's to deal with in Open, as all else comes behind it.
template <typename Visitor> class Walk {
public:
    Walk(Store& store, Visitor& visitor) noexcept : store_(store), visitor_(visitor) {}

    void From(NodeIndex top)
    {
        Visit(top);
        while (!frames_.empty()) {
            Frame& frame = frames_.back();
            const NodeIndex child = frame.child;
            if (child == NoNode) {
                LoadedUpTo(frame, frame.end);
                const NodeIndex element = frame.element;
                frames_.pop_back();
                visitor_.Close(element);
                continue;
            }
            const Node& node = store_.At(child);
            frame.child = node.next;
            if (node.slot < frame.end) {
                LoadedUpTo(frame, node.slot);
                frame.at = node.isInPlace ? node.loaded.end : (*frame.removed)[frame.nextRemoved++].end;
            } else {
                LoadedUpTo(frame, frame.end);
            }
            Visit(child);
        }
    }

private:
    struct Frame {
        NodeIndex element;
        NodeIndex child;
        std::size_t at; // what was loaded up to here is told
        std::size_t end;
        const std::vector<Slice>* removed; // in the order of the text
        std::size_t nextRemoved;
    };

    void Visit(NodeIndex node)
    {
        if (!store_.At(node).isEdited) {
            visitor_.Whole(node);
            return;
        }
        if (!visitor_.Open(node))
            return;
        static const std::vector<Slice> None;
        Frame frame{node, store_.At(node).first, 0, 0, &None, 0};
        const Details* const details = store_.DetailsOf(node);
        if (store_.At(node).loaded.end != 0 && (details == nullptr || details->content == Content::Loaded)) {
            const Slice content = store_.PartsOf(node).content;
            frame.at = content.start;
            frame.end = content.end;
            if (details != nullptr)
                frame.removed = &store_.SortedRemovals(node);
        }
        frames_.push_back(frame);
    }

    // Tells what was loaded up to `limit` and not removed.
    void LoadedUpTo(Frame& frame, std::size_t limit)
    {
        const std::vector<Slice>& removed = *frame.removed;
        for (; frame.nextRemoved < removed.size() && removed[frame.nextRemoved].start < limit; ++frame.nextRemoved) {
            Tell({frame.at, removed[frame.nextRemoved].start});
            frame.at = removed[frame.nextRemoved].end;
        }
        Tell({frame.at, limit});
        frame.at = limit;
    }

    void Tell(Slice loaded)
    {
        if (loaded.start != loaded.end)
            visitor_.Loaded(loaded);
    }

    Store& store_;
    Visitor& visitor_;
    std::vector<Frame> frames_;
};

} // namespace rulemesh::xml
