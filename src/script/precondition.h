#pragma once

#include "script/main_query.h"
#include "script/source_tables.h"

namespace rulemesh {

/// The precondition script: its migrate statements decide which tables the object migrates, and with that whether the
/// rules tab can be opened.
class PreConditions {
public:
    PreConditions(MappingObject& object, ControlState& state, DesignerViews& views, Platform& platform,
                  ControlEvents& events, ScriptScanner& scanner, MainQueries& queries, SourceTableList& sourceTables)
        : object_(object), state_(state), views_(views), platform_(platform), events_(events), scanner_(scanner),
          queries_(queries), sourceTables_(sourceTables)
    {
    }

    /// Brings the stored script into its box.
    void ShowPreCondition();

    /// Stores the script of the box, after a warning when migrate statements went. Raises ObjectVariableNotSet when the
    /// object has no PREC.
    void SavePreCondition();

    /// Works out the migrate tables of the stored script, enters an unknown one in the source tables, and opens the
    /// rules tab only while all of them are source tables and stand in the catalogue.
    void AnalysePreCondition();

    [[nodiscard]] bool HasPreConditionNote() const;

    /// The property PreCondition. Setting it is a save, as SavePreCondition: it may ask, and raises what that raises.
    void PreCondition(const Text& StrText);

    void txtPreCondition_GotFocus() { RefreshNoteButton(); }
    void txtPreCondition_KeyDown(std::int16_t& KeyCode, std::int16_t Shift);
    void CmdBuildPre_Click();

private:
    void RefreshNoteButton();
    [[nodiscard]] bool MigrateStatementsLost() const;
    [[nodiscard]] bool AddFirstUnknownTable();
    [[nodiscard]] bool CatalogueHasMigrateTables() const;

    MappingObject& object_;
    ControlState& state_;
    DesignerViews& views_;
    Platform& platform_;
    ControlEvents& events_;
    ScriptScanner& scanner_;
    MainQueries& queries_;
    SourceTableList& sourceTables_;
};

} // namespace rulemesh
