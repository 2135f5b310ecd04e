#pragma once

#include "document/xml_store.h"

namespace rulemesh::xml {

/// The making of nodes: what was made since then is given back when it ends without Done.
class Store::Making {
public:
    /// `parent` gets its first children by it; NoNode when the nodes stay unattached.
    Making(Store& store, NodeIndex parent) noexcept
        : store_(store), parent_(parent), nodes_(store.nodeCount_), details_(store.details_.size())
    {
    }
    Making(const Making&) = delete;
    Making& operator=(const Making&) = delete;

    ~Making()
    {
        if (!done_)
            GiveBack();
    }

    void Done() noexcept { done_ = true; }

private:
    void GiveBack() noexcept
    {
        for (NodeIndex node = nodes_; node < store_.nodeCount_; ++node)
            store_.NodeAt(node) = Node{};
        store_.nodeCount_ = nodes_;
        store_.details_.resize(details_);
        if (parent_ == NoNode)
            return;
        Node& holder = store_.NodeAt(parent_);
        holder.first = holder.last = NoNode;
        holder.childCount = 0;
    }

    Store& store_;
    NodeIndex parent_;
    NodeIndex nodes_;
    std::size_t details_;
    bool done_ = false;
};

} // namespace rulemesh::xml
