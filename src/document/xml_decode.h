#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// What raw text of a well-formed document means.

namespace rulemesh::xml {

/// The length of the tag, comment, instruction or CDATA section at the front of the content.
[[nodiscard]] std::size_t MarkupLength(std::string_view content) noexcept;

/// Adds the text of a stretch of content: references resolved, line ends made line feeds, CDATA unwrapped; tags,
/// comments and instructions left out.
void AppendContentText(std::string& text, std::string_view content);

/// The value of an attribute from what stands between its quotes.
[[nodiscard]] std::string AttributeValue(std::string_view raw);

} // namespace rulemesh::xml
