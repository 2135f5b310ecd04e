#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "base/text.h"
#include "document/xml_document.h"

namespace rulemesh {

/// What a mapping object says, read from its document in one go as plain records in the order of the document. Texts
/// stand as they are stored. What is missing reads as empty.

struct FieldContent {
    Text Node; // name of the element: PRICE__1
    std::vector<std::pair<Text, Text>> Attributes;

    /// "" for one that is absent.
    [[nodiscard]] TextView Attribute(TextView StrName) const noexcept;
};

struct TableContent {
    Text Code; // name of the element, in the case that it has
    std::vector<FieldContent> Fields;
};

struct ScriptContent {
    Text Table; // of a main query
    Text Script;
    Text Note;
};

struct RuleContent {
    Text Node; // name of the element, which is that of the field
    Text Rule;
    Text Note;
};

struct DumpContent {
    Text Number;                // the attribute No
    std::optional<Text> Target; // the table of a multi-target object; "" counts as none for a reader of the table
    Text Comment;
    std::vector<RuleContent> Rules;
};

struct ObjectContent {
    Text Root; // the target table of a single-target object
    Text SourceTables;
    std::optional<std::vector<Text>> TargetTables; // of a multi-target object
    ScriptContent Precondition;
    std::vector<ScriptContent> Queries;
    Text Functions;
    Text Variables;
    std::vector<TableContent> Sources;
    std::vector<TableContent> Targets;
    std::vector<DumpContent> Dumps;
};

/// Reads only. An empty document has no content.
[[nodiscard]] ObjectContent ContentOf(const XmlDocument& document);

} // namespace rulemesh
