#pragma once

#include <cstdint>

#include "engine/dump_lookup.h"
#include "platform/platform.h"

namespace rulemesh {

/// Moves the rules of one dump between the document and the rule column of RulesGrid, and keeps the lists, labels and
/// combos in step with the dump that is shown. Its number stands in the tag of CmbDump and says where the grid's text
/// belongs; a change of dump saves the old one first.
class ShownDump {
public:
    ShownDump(MappingObject& object, ControlState& state, DesignerViews& views, Platform& platform, DumpLookup& lookup)
        : object_(object), state_(state), views_(views), platform_(platform), lookup_(lookup)
    {
    }

    /// Fills lstTargetFields with the fields of the current dump's table.
    void RefreshTargetList();

    /// Shows a dump whole: source fields, and rows and rules of its table.
    void ShowDump(std::int16_t IntDump);

    /// Fills the rule column from the document.
    void LoadDumpRules(std::int16_t IntDump);

    /// Writes the rule column to the document as the rules of the dump; nothing for "" and "0".
    void SaveDumpRules(const Text& StrDump);

    /// In a multi-target object: fields, rows and rules of the table that the shown dump fills.
    void RefreshTargetFields();

    /// Shows the table of the dump in the tag, and the description of the one given, in the labels and CmbTargetTable.
    void ShowDumpTarget(const Text& StrDump);

    void CmbDump_Click();
    void CmbDump_LostFocus();
    void Command1_Click();

    /// The dump that is selected in CmbDump. Raises ObjectVariableNotSet when none is.
    [[nodiscard]] std::int16_t SelectedDump() const;

    /// The dump whose number stands in the caption of Details. Raises SubscriptOutOfRange for a caption without one.
    [[nodiscard]] std::int16_t DumpInCaption() const;
    [[nodiscard]] bool CaptionHasDump() const;

private:
    void BuildRuleRows(const Text& StrTable);
    void ShowSourceFields();
    void ShowSelectedDumpInCaption();
    enum class Labels { Table, TableAndDescription };
    void LeaveShownDump(Labels labels);
    [[nodiscard]] Text AskForTargetTable();
    [[nodiscard]] Text CommentOf(std::int16_t IntDump) const;

    MappingObject& object_;
    ControlState& state_;
    DesignerViews& views_;
    Platform& platform_;
    DumpLookup& lookup_;
};

} // namespace rulemesh
