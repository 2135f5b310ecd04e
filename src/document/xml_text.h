#pragma once

#include <string>

#include "document/xml_store.h"

namespace rulemesh::xml {

/// The text of an element and of all below it, not trimmed. Nothing for what is no element.
[[nodiscard]] std::string TextOf(Store& store, NodeIndex node);

/// The text that the element had when it was loaded, not trimmed.
[[nodiscard]] std::string LoadedText(const Store& store, NodeIndex node);

} // namespace rulemesh::xml
