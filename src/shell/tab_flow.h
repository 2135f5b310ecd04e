#pragma once

#include "engine/retarget.h"
#include "script/precondition.h"
#include "shell/layout.h"

namespace rulemesh {

/// The change between the scripts and the rules. On the way to the rules the scripts are saved, the dumps worked out
/// and each given a target table; on the way back the rules are saved.
class TabFlow {
public:
    TabFlow(MappingObject& object, ControlState& state, DesignerViews& views, Platform& platform, MainQueries& queries,
            PreConditions& preConditions, ShownDump& shownDump, DumpRetargeting& retargeting, Layout& layout)
        : object_(object), state_(state), views_(views), platform_(platform), queries_(queries),
          preConditions_(preConditions), shownDump_(shownDump), retargeting_(retargeting), layout_(layout)
    {
    }

    /// Runs when the tab has changed.
    void MainTab_Click(std::int16_t PreviousTab);

private:
    void ShowScripts(std::int16_t PreviousTab);
    void ShowRules();
    void FillDumpList();
    void ChooseMissingTargets(DumpNumber& goesTo);
    void SelectDump(DumpNumber dump);

    MappingObject& object_;
    ControlState& state_;
    DesignerViews& views_;
    Platform& platform_;
    MainQueries& queries_;
    PreConditions& preConditions_;
    ShownDump& shownDump_;
    DumpRetargeting& retargeting_;
    Layout& layout_;
};

} // namespace rulemesh
