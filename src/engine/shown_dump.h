#pragma once

#include <cstdint>

#include "engine/dump_lookup.h"
#include "platform/platform.h"

namespace rulemesh {

/// Moves the rules of one dump between the document and the rule column of RulesGrid, and keeps the lists, labels and
/// combos in step with the dump that is shown. DumpInGrid says where the grid's text belongs; a change of dump saves
/// the old one first.
class ShownDump {
public:
    ShownDump(MappingObject& object, ControlState& state, DesignerViews& views, Platform& platform, DumpLookup& lookup)
        : object_(object), state_(state), views_(views), platform_(platform), lookup_(lookup)
    {
    }

    /// Fills lstTargetFields with the fields of the current dump's table.
    void RefreshTargetList();

    /// Shows a dump whole: source fields, and rows and rules of its table.
    void ShowDump(DumpNumber dump);

    /// Fills the rule column from the document.
    void LoadDumpRules(DumpNumber dump);

    /// Writes the rule column to the document as the rules of the dump; nothing where no rules belong to it.
    void SaveDumpRules(const GridDump& dump);

    /// The same for the dump to which the rules in the grid belong.
    void SaveShownRules() { SaveDumpRules(state_.DumpInGrid); }

    /// In a multi-target object: fields, rows and rules of the table that the shown dump fills.
    void RefreshTargetFields();

    /// Shows the table of the dump in the grid, and the description of the one given, in the labels and CmbTargetTable.
    void ShowDumpTarget(DumpNumber dump);

    void CmbDump_Click();
    void CmbDump_LostFocus();
    void Command1_Click();

    /// The dump that is selected in CmbDump. Raises ObjectVariableNotSet when none is.
    [[nodiscard]] DumpNumber SelectedDump() const;

    /// The dump that the caption of Details shows. Raises SubscriptOutOfRange when it shows none yet.
    [[nodiscard]] DumpNumber DumpInDetails() const;

private:
    void BuildRuleRows(const Text& StrTable);
    void ShowSourceFields();
    void ShowSelectedDumpInDetails();
    enum class Labels { Table, TableAndDescription };
    void LeaveShownDump(Labels labels);
    [[nodiscard]] Text AskForTargetTable();
    [[nodiscard]] Text CommentOfSelectedDump() const;

    MappingObject& object_;
    ControlState& state_;
    DesignerViews& views_;
    Platform& platform_;
    DumpLookup& lookup_;
};

} // namespace rulemesh
