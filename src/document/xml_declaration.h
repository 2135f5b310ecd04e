#pragma once

#include <cstddef>

namespace rulemesh::xml {

/// The length of the XML declaration at the front of the text, up to and with its "?>"; 0 when its grammar is broken.
/// Which encoding it names doesn't matter, since the text comes decoded.
[[nodiscard]] std::size_t DeclarationLength(const char* text) noexcept;

} // namespace rulemesh::xml
