#pragma once

#include <string>

#include "document/xml_store.h"

namespace rulemesh::xml {

/// The whole document as text: what was not touched is copied from the loaded text.
[[nodiscard]] std::string Write(Store& store);

/// One element with all below it, and what stands in front of the first child of one that has children.
[[nodiscard]] std::string WriteElement(Store& store, NodeIndex element);
[[nodiscard]] std::string WriteHead(Store& store, NodeIndex element);

} // namespace rulemesh::xml
