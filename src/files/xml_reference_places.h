#pragma once

#include <cstddef>
#include <string_view>

namespace rulemesh {

/// Walks over a well-formed XML text and tells where a character reference may stand: in character data and in the
/// values of attributes. The text must outlive this.
class XmlReferencePlaces {
public:
    explicit XmlReferencePlaces(std::string_view text) noexcept : text_(text) {}

    /// Whether the byte at this offset lies in such a place. Offsets must not go back.
    [[nodiscard]] bool Holds(std::size_t offset);

private:
    void TakePiece();

    std::string_view text_;
    std::size_t end_ = 0; // of the piece that was taken last
    bool allowed_ = true; // in that piece
    bool inTag_ = false;  // behind it
};

} // namespace rulemesh
