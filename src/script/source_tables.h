#pragma once

#include "object/mapping_object.h"
#include "script/control_events.h"
#include "views/designer_views.h"

namespace rulemesh {

/// Keeps the list of source tables, lstSourceTables, and the text of SRCTBL in step. The text is merged into the list
/// and the list written back to the text, so after any change the list is what counts.
class SourceTableList {
public:
    SourceTableList(MappingObject& object, DesignerViews& views, ControlEvents& events)
        : object_(object), views_(views), events_(events)
    {
    }

    /// Adds the tables of the text that the list lacks, then writes the rows back. Never takes a row out.
    void RefreshSourceTables();

    /// The property SourceTables: the text of SRCTBL as it stands; setting it merges it into the list.
    [[nodiscard]] Text SourceTables() const { return object_.Read().GetSourceTablesText(); }
    void SourceTables(TextView i_SourceTables);

    void CmdSelectSource_Click() { events_.ShowSourceTablesPopUp(object_.Read().GetSourceTablesText()); }
    void lstSourceTables_KeyDown(std::int16_t KeyCode);

private:
    void AddAllParts();
    void AddMissingParts();

    MappingObject& object_;
    DesignerViews& views_;
    ControlEvents& events_;
};

} // namespace rulemesh
