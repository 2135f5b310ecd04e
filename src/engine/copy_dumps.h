#pragma once

#include "engine/shown_dump.h"
#include "script/precondition.h"

namespace rulemesh {

/// Reuses rules that were maintained already: all of one dump for another dump of the same table, or one field's rule
/// for every dump of its table. Rule records are cloned, so that the rule, its note and its kind travel together.
class DumpCopying {
public:
    DumpCopying(MappingObject& object, ControlState& state, DesignerViews& views, Platform& platform,
                ShownDump& shownDump, PreConditions& preConditions)
        : object_(object), state_(state), views_(views), platform_(platform), shownDump_(shownDump),
          preConditions_(preConditions)
    {
    }

    /// Replaces all rules of the current dump by those of a dump that the user names.
    void cmdCopyDump_Click();

    /// Spreads the rule of the selected target field to every other dump of the same table.
    void cmdCopyToAllDumps_Click();

private:
    [[nodiscard]] DumpRecord TargetOfCopy(std::int16_t IntTo);
    void CopyRules(const DumpRecord& source, const DumpRecord& target, const Text& StrFrom, std::int16_t IntTo);

    MappingObject& object_;
    ControlState& state_;
    DesignerViews& views_;
    Platform& platform_;
    ShownDump& shownDump_;
    PreConditions& preConditions_;
};

} // namespace rulemesh
