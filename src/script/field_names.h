#pragma once

#include <optional>

#include "base/text.h"

namespace rulemesh {

/// A field as a rule or a script names it: `table.field`, `table.field(3)` or, as Map writes the same,
/// `table.field(1,3)`; or a table alone. The views go into the text that was read.
struct FieldName {
    std::size_t Position = 0; // offset from 0
    std::size_t Length = 0;   // of the whole name, its index included
    TextView Table;           // has the form of a table code
    TextView Field;           // without the index; "" for a table alone
    TextView Index;           // "3", also of `(1,3)`; "" without one

    friend bool operator==(const FieldName&, const FieldName&) = default;
};

/// Walks the names of a text from front to back. A name stands outside of quotes, single or double; a quote that
/// doesn't close on its line is none. Borrows the text, which must outlive the cursor.
class FieldNameCursor {
public:
    explicit FieldNameCursor(TextView StrText) noexcept : text_(StrText) {}

    /// The next name, nothing behind the last.
    [[nodiscard]] std::optional<FieldName> Next();

private:
    [[nodiscard]] std::optional<FieldName> NameAt(std::size_t start, std::size_t end) const;
    void AddField(FieldName& name, std::size_t start) const;
    [[nodiscard]] std::size_t WordEnd(std::size_t position) const noexcept;
    [[nodiscard]] std::size_t BehindQuote(std::size_t position) const noexcept;

    TextView text_;
    std::size_t position_ = 0;
};

} // namespace rulemesh
