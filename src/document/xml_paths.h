#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "document/xml_store.h"

namespace rulemesh::xml {

/// A path taken apart.
struct Path {
    bool isAbsolute = false;
    std::vector<std::string> steps; // in UTF-8; "" where a step can be nobody's name
};

/// Raises InvalidProcedureCall for a malformed path.
[[nodiscard]] Path ParsePath(TextView path);

/// The same for the key of a path: what stands behind it in "[@name='value']".
void CheckKey(TextView name, TextView value);

/// Looks for the elements that a path names. `from` is the node on which a relative path starts.
[[nodiscard]] NodeIndex SelectFirst(Store& store, NodeIndex from, const Path& path);
[[nodiscard]] NodeIndex SelectFirst(Store& store, const Path& path, std::string_view key, std::string_view value);
[[nodiscard]] std::vector<NodeIndex> SelectAll(Store& store, const Path& path);

/// All elements of a name, in document order.
[[nodiscard]] std::vector<NodeIndex> ElementsNamed(Store& store, std::string_view name);

} // namespace rulemesh::xml
