#pragma once

#include "engine/shown_dump.h"
#include "engine/target_chooser.h"

namespace rulemesh {

/// Gives a dump of a multi-target object another target table. Its rules belong to the fields of the former one, so
/// they go.
class DumpRetargeting {
public:
    DumpRetargeting(MappingObject& object, DesignerViews& views, Platform& platform, DumpLookup& lookup,
                    ShownDump& shownDump, TargetChooser& chooser)
        : object_(object), views_(views), platform_(platform), lookup_(lookup), shownDump_(shownDump), chooser_(chooser)
    {
    }

    void CmdChange_Click();

    /// Offers the entries of CmbTargetTable for a dump; the answer is StrDefault when the user cancels.
    [[nodiscard]] Text ChooseTarget(std::int16_t IntDump, const Text& StrDefault);

    /// Puts the one rule that a dump with a new table starts with, `default()`, into the table's first field. Raises
    /// ObjectVariableNotSet when the catalogue lacks the table.
    void AppendDefaultRule(const DumpRecord& dump, const Text& StrTable);

private:
    [[nodiscard]] const Text& TableInLabel() const;
    [[nodiscard]] bool UserGivesUpRules(std::int16_t IntDump, const Text& StrNewTable);
    void AssignTable(std::int16_t IntDump, const Text& StrTable);

    MappingObject& object_;
    DesignerViews& views_;
    Platform& platform_;
    DumpLookup& lookup_;
    ShownDump& shownDump_;
    TargetChooser& chooser_;
};

} // namespace rulemesh
