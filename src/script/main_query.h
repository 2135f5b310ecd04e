#pragma once

#include <cstdint>
#include <vector>

#include "script/control_events.h"
#include "script/script_scanner.h"

namespace rulemesh {

/// The main queries: one script for each migrate table, shown one at a time in txtMainQuery: QueryTable says which.
/// The scripts decide which dumps exist; a save compares the dumps before and after it and guards against their loss.
class MainQueries {
public:
    MainQueries(MappingObject& object, ControlState& state, DesignerViews& views, Platform& platform,
                ControlEvents& events, ScriptScanner& scanner)
        : object_(object), state_(state), views_(views), platform_(platform), events_(events), scanner_(scanner)
    {
    }

    /// Shows the script of a table; "" empties the box.
    void ShowMigrateQuery(const Text& StrTable);

    /// Stores the script of a table. False when nothing was written: an empty script never is, and a failure is
    /// recorded as an error.
    bool SaveQuery(TextView StrTable, TextView StrText) { return object_.SetQuery(StrTable, StrText); }

    /// The full save of the script in the box, with the warnings about lost dumps.
    void SaveMainQuery();

    /// Reads the dumps that the stored scripts name, in order of first appearance.
    void CollectDumps(std::vector<std::int16_t>& IntNumbers, std::vector<Text>& StrTexts);

    /// Whether the query of the table in the box has a note.
    [[nodiscard]] bool HasMainQueryNote() const;

    /// The property MainQuery. Setting it is a full save, as SaveMainQuery: it may show messages and ask for lost
    /// dumps.
    void MainQuery(const Text& StrText);

    void lstMigrateSource_ItemClick(ListRow row);
    void txtMainQuery_GotFocus();
    void txtMainQuery_KeyDown(std::int16_t& KeyCode, std::int16_t Shift);
    void cmdBuildMQ_Click();

private:
    void IndexDumps(const std::vector<std::int16_t>& IntNumbers, const Text& StrTable,
                    const std::vector<Text>& StrTexts);

    MappingObject& object_;
    ControlState& state_;
    DesignerViews& views_;
    Platform& platform_;
    ControlEvents& events_;
    ScriptScanner& scanner_;
};

} // namespace rulemesh
