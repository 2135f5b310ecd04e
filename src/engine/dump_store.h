#pragma once

#include <cstdint>

#include "document/document_access.h"
#include "views/designer_views.h"

namespace rulemesh {

/// The dumps of the object as the document holds them: which table a dump fills and where that table's fields stand.
class DumpStore {
public:
    DumpStore(DocumentAccess& document, ControlState& state, DesignerViews& views)
        : document_(document), state_(state), views_(views)
    {
    }

    /// The table that a dump fills. A dump that names none gets StrTargetTable written into it by this read.
    [[nodiscard]] Text GetDumpTargetTable(std::int16_t IntDump);
    [[nodiscard]] Text GetDumpTargetDescription(std::int16_t IntDump) const;

    /// The catalogue's element of the table that a dump fills, or null; 0 means the dump that is shown. In a
    /// single-target object it is always that of StrTargetTable.
    [[nodiscard]] XmlNode GetTargetTableNode(std::int16_t IntDump);

    /// The catalogue's element of a target table named in any case, or null.
    [[nodiscard]] XmlNode CatalogueTable(TextView StrTable) const;

    /// The attribute No of a field, given by its display name, in the table of the dump that is shown; 0 when it isn't
    /// numeric. Raises ObjectVariableNotSet when there is no such field.
    [[nodiscard]] std::int16_t GetFieldNumber(TextView StrField);

    /// Whether the dump that is selected in CmbDump holds a rule or a note.
    [[nodiscard]] bool DumpHasRules() const;

    /// The element MSCRIPT, by which each dump names its own table; null in a single-target object. A table name that
    /// makes its path malformed raises TypeMismatch.
    [[nodiscard]] XmlNode MscriptNode() const;
    [[nodiscard]] bool CheckMscripts() const { return static_cast<bool>(MscriptNode()); }

    /// Appends a record for a rule without a note; the record can be completed by WriteRule.
    XmlNode AppendRule(XmlNode dump, TextView StrFieldNode, TextView StrRule);

    /// Puts a rule into its record: the text, and a TYPE of "1" when it has a line end, else "0".
    static void WriteRule(XmlNode rule, TextView StrRule);

private:
    DocumentAccess& document_;
    ControlState& state_;
    DesignerViews& views_;
};

} // namespace rulemesh
