#pragma once

#include <memory>
#include <vector>

#include "document/xml_store.h"

namespace rulemesh::xml {

/// A record as it stood before it was edited. Swapped with the one that stands now it takes the edit back, and swapped
/// once more it does it again.
struct SavedNode {
    NodeIndex place = NoNode;
    Node node;
    std::unique_ptr<Details> details; // without its index; null when the record had none
};

/// Each record once for each time that the edits were taken, in the order in which they were touched.
struct SavedNodes {
    std::vector<SavedNode> nodes;
};

} // namespace rulemesh::xml
