#pragma once

#include "engine/shown_dump.h"

namespace rulemesh {

/// Makes rules for the target fields of the dump that is shown: from the source fields that the user ticked, or, for
/// every field without a rule, by comparing it with all source fields. A rule that is there already is never replaced.
class RuleMapping {
public:
    RuleMapping(DesignerViews& views, Platform& platform, DumpLookup& lookup, ShownDump& shownDump)
        : views_(views), platform_(platform), lookup_(lookup), shownDump_(shownDump)
    {
    }

    /// Puts a rule into the grid row of a field, given by its display name, when the row's rule is blank.
    void SetRuleIfEmpty(TextView StrField, const Text& StrRule);

    /// Gives the ticked source fields to the selected target field and takes the ticks away.
    void CmdMap_Click();

    /// Proposes a rule for every field whose rule is blank, and saves the dump's rules.
    void CmdGuess_Click();

private:
    [[nodiscard]] Text RuleFromTickedFields(TextView StrTargetType) const;

    DesignerViews& views_;
    Platform& platform_;
    DumpLookup& lookup_;
    ShownDump& shownDump_;
};

} // namespace rulemesh
