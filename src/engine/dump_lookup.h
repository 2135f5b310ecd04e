#pragma once

#include <cstdint>

#include "object/mapping_object.h"
#include "views/designer_views.h"

namespace rulemesh {

/// Answers what depends on the dump that the views show: its table, the numbers of its fields, whether it has rules.
class DumpLookup {
public:
    DumpLookup(MappingObject& object, ControlState& state, DesignerViews& views)
        : object_(object), state_(state), views_(views)
    {
    }

    /// The catalogue's table that a dump fills, or null; 0 means the dump that is shown. In a single-target object it
    /// is always that of StrTargetTable. Writes what GetDumpTargetTable writes.
    [[nodiscard]] TableRecord GetTargetTableNode(std::int16_t IntDump);

    /// The attribute No of a field, given by its display name, in the table of the dump that is shown; 0 when it isn't
    /// numeric. Raises ObjectVariableNotSet when there is no such field.
    [[nodiscard]] std::int16_t GetFieldNumber(TextView StrField);

    /// Whether the dump that is selected in CmbDump holds a rule or a note.
    [[nodiscard]] bool DumpHasRules() const;

private:
    MappingObject& object_;
    ControlState& state_;
    DesignerViews& views_;
};

} // namespace rulemesh
