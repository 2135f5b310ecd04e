#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace rulemesh::xml {

/// A stretch of the text, `end` behind its last byte.
struct Slice {
    std::size_t start = 0;
    std::size_t end = 0;

    [[nodiscard]] std::size_t Length() const noexcept { return end - start; }
    friend bool operator==(const Slice&, const Slice&) = default;
};

/// What the parser keeps of a text that it has checked: the landmarks by which its elements are found again.
struct Outline {
    Slice root;

    /// The declaration, comment or instruction that stands before the root; empty when there is none.
    Slice first;

    /// The elements of at least `LargeElement` bytes, in the order of their beginnings, so that a walk over siblings
    /// can leap over what is large and needs to read only what is small. Very deep down only every eighth level is
    /// listed, which keeps the list of a deeply nested text small too.
    std::vector<Slice> large;
};

constexpr std::size_t LargeElement = 512;

/// Checks that the text is a well-formed XML 1.0 document (Fifth Edition, namespaces as plain names) without document
/// type declaration. The byte behind the text must be a zero. The outline is meaningful only after true.
[[nodiscard]] bool Parse(std::string_view text, Outline& outline);

/// Where Parse stopped reading a text that it refused, for people: an offset from 0 at or close behind the fault.
[[nodiscard]] std::size_t FaultIn(std::string_view text);

} // namespace rulemesh::xml
