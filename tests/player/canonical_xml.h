#pragma once

#include <string>
#include <string_view>

namespace rulemesh::player {

/// An XML text in a form in which two texts with the same tree are the same: attributes sorted, references and CDATA
/// resolved, line ends and white space in attribute values as a parser reads them, no empty-element form, no white
/// space outside the root. Comments and instructions stay. UTF-8 in and out.
///
/// Reads on its own, so that a fault of the product's parser can't hide itself. Throws std::runtime_error for a text
/// whose tags don't match or that breaks off.
[[nodiscard]] std::string CanonicalXml(std::string_view xml);

} // namespace rulemesh::player
