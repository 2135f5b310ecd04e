#pragma once

#include <string>

#include "document/xml_store.h"

namespace rulemesh::xml {

/// The whole document as text: what was not touched is copied from the loaded text.
[[nodiscard]] std::string Write(Store& store);

} // namespace rulemesh::xml
