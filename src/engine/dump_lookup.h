#pragma once

#include <cstdint>

#include "object/dump_records.h"
#include "views/designer_views.h"

namespace rulemesh {

/// The dumps of the object that is shown: the records of its document, and what the views say about them.
class DumpLookup : public DumpRecords {
public:
    DumpLookup(DocumentAccess& document, ControlState& state, DesignerViews& views)
        : DumpRecords(document, state), views_(views)
    {
    }

    /// The catalogue's element of the table that a dump fills, or null; 0 means the dump that is shown. In a
    /// single-target object it is always that of StrTargetTable.
    [[nodiscard]] XmlNode GetTargetTableNode(std::int16_t IntDump);

    /// The attribute No of a field, given by its display name, in the table of the dump that is shown; 0 when it isn't
    /// numeric. Raises ObjectVariableNotSet when there is no such field.
    [[nodiscard]] std::int16_t GetFieldNumber(TextView StrField);

    /// Whether the dump that is selected in CmbDump holds a rule or a note.
    [[nodiscard]] bool DumpHasRules() const;

private:
    DesignerViews& views_;
};

} // namespace rulemesh
