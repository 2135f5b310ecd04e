#pragma once

#include <cstddef>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "base/text.h"
#include "object/object_content.h"
#include "script/field_names.h"

namespace rulemesh {

/// The tables of one side of a catalogue and their fields, found by name. Of two of one name the first counts. Borrows
/// the tables.
class FieldIndex {
public:
    explicit FieldIndex(const std::vector<TableContent>& tables);

    class Table {
    public:
        explicit Table(const TableContent& content);

        [[nodiscard]] const std::vector<FieldContent>& Fields() const noexcept { return content_->Fields; }

        /// The place of a field by its element's name, exactly; as many as there are fields when there is none.
        [[nodiscard]] std::size_t PlaceOf(TextView StrNode) const;

        /// The field that a rule or a script names, in any case; null when there is none.
        [[nodiscard]] const FieldContent* Named(const FieldName& name) const;

        /// Whether the name without an index stands for the elements of a repeated field.
        [[nodiscard]] bool IsRepeated(const FieldName& name) const;

    private:
        const TableContent* content_;
        std::unordered_map<TextView, std::size_t> byNode_;
        std::unordered_map<Text, std::size_t> byDisplayName_;
        std::unordered_set<Text> repeated_;
    };

    /// The table of a code, given in any case; null when there is none.
    [[nodiscard]] const Table* Find(TextView StrTable) const;

private:
    std::unordered_map<Text, Table> tables_;
};

/// How a field is shown: in lower case, its index in brackets, without its table.
[[nodiscard]] Text ShownField(TextView StrNode);

} // namespace rulemesh
