#pragma once

#include <cstddef>
#include <memory>

namespace rulemesh {

namespace xml {
struct SavedNodes;
} // namespace xml

/// Edits of a document: the records that they touched, as they were. XmlDocument takes them back and does them again.
/// Costs what was touched.
class DocumentEdits {
public:
    DocumentEdits();
    explicit DocumentEdits(std::unique_ptr<xml::SavedNodes> saved);
    DocumentEdits(DocumentEdits&& other) noexcept;
    DocumentEdits& operator=(DocumentEdits&& other) noexcept;
    ~DocumentEdits();

    [[nodiscard]] bool IsEmpty() const noexcept;

    /// The memory that they take, about.
    [[nodiscard]] std::size_t Bytes() const noexcept;

    /// Adds edits that were made right behind these.
    void Append(DocumentEdits behind);

private:
    friend class XmlDocument;

    std::unique_ptr<xml::SavedNodes> saved_; // null for none
};

} // namespace rulemesh
