#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/copy_dumps.h"
#include "engine/retarget.h"
#include "engine/rule_mapping.h"
#include "script/prune_document.h"
#include "shell/editor_bridge.h"
#include "shell/field_lists.h"
#include "shell/frm_txt_doc.h"
#include "shell/tab_flow.h"
#include "shell/text_notes.h"
#include "shell/work_watch.h"

namespace rulemesh {

/// The whole designer, seen from outside. A host hands it a mapping object as XML text and its settings, calls
/// ShowControl, and takes the object back through MappingObjectXML. A property is a pair of members of one name: the
/// one with an argument sets it, the one without reads it.
///
/// TargetTable, MappingObjectXML and Edit must be set before ShowControl. A failure that the control does not handle
/// comes out of the member that was called, as a Failure.
class ctlRulemesh {
public:
    /// Borrows the platform and the events, which must outlive the control.
    ctlRulemesh(Platform& platform, ControlEvents& events);
    ctlRulemesh(const ctlRulemesh&) = delete;
    ctlRulemesh& operator=(const ctlRulemesh&) = delete;

    /// Loads an object. A text that is not well-formed XML leaves an empty document and is told to nobody. The views
    /// change at ShowControl.
    void MappingObjectXML(TextView StrXml);
    void MappingObjectXML(std::string utf8);

    /// Saves every pending edit, brings the document in line with the scripts, leaves a copy file and returns the whole
    /// text. May ask the user what a save asks. Raises what a save or the copy file raises.
    [[nodiscard]] Text MappingObjectXML();
    [[nodiscard]] std::string MappingObjectXmlUtf8();

    /// The command of the external editor; blank for the platform's own.
    void Editor(Text StrEditor) { state_.StrEditor = std::move(StrEditor); }

    /// The name of the root element: cut to 8 characters or filled with blanks.
    void TargetTable(TextView StrTable);

    /// Whether the user may change the object. Setting it true after false unlocks nothing.
    void Edit(bool BoolEdit);

    /// The list of source tables, separated by ",". Setting it stores it and adds the tables that the list lacks.
    void SourceTables(TextView i_SourceTables);
    [[nodiscard]] Text SourceTables() const { return sourceTables_.SourceTables(); }

    /// Setting it saves: it may show messages and ask about migrate statements that went. Raises ObjectVariableNotSet
    /// when the object has no PREC.
    void PreCondition(const Text& StrText);

    /// The script in the box. Setting it saves it as the one of the table in the box; it may show messages and ask
    /// about dumps that went.
    void MainQuery(const Text& StrText);
    [[nodiscard]] Text MainQuery() const { return views_.txtMainQuery.Text(); }

    /// Reads as the number of the grid's current row, in decimal; is written into the grid's current cell.
    [[nodiscard]] Text FieldMapping() const { return grid_.FieldMapping(); }
    void FieldMapping(const Text& StrRule);

    /// Fills all views from the document.
    void ShowControl();

    /// Stores the number of a text that the host keeps: StrType "P" for the precondition, "M" for the query of table
    /// StrKey1, "D" for the rule of field StrKey2 in dump StrKey1.
    void SetTextNumber(TextView StrType, std::int32_t LngTextNumber, TextView StrKey1, TextView StrKey2);

    /// Gives the focus to the precondition, if that is visible.
    void Setfocus();

    /// The row of a qualified field name in lstTargetFields (from 1) and in RulesGrid (from 0); -1 for none.
    [[nodiscard]] std::int32_t GetListItemNumber(const Text& strFieldName) const
    {
        return grid_.ListRowOf(strFieldName).value_or(-1).Number();
    }
    [[nodiscard]] std::int32_t GetRowNumber(const Text& i_StrFieldName) const
    {
        return grid_.RowOf(i_StrFieldName).value_or(NoGridRow).Number();
    }

    /// Opens the edit box on the grid's current cell, as a key of that code does.
    void GridEdit(std::int16_t KeyAscii);

    /// Whether the script boxes colour their text.
    [[nodiscard]] bool Syntax_Highlight() const noexcept { return state_.BoolSyntaxHighlight; }
    void Syntax_Highlight(bool BoolHighlight);

    /// Whether a list has been given any element.
    template <typename Element> [[nodiscard]] static bool ArrayIsInitialized(const std::vector<Element>& arr) noexcept
    {
        return !arr.empty();
    }

    /// Takes the last change of the user's or the host's back, with everything as it stood right before it, and does it
    /// again. False, and nothing done, when there is none, while an action is running (a box, a form, the editor or an
    /// event is open), and in a read-only control. Reading MappingObjectXML counts as a change where it changed
    /// something; setting it, TargetTable or Edit to another value, and ShowControl, begin a new history.
    bool Undo() { return history_.Undo(); }
    bool Redo() { return history_.Redo(); }

    /// What Undo or Redo would do, in a word or two for a menu: "Guess". "" for nothing.
    [[nodiscard]] Text UndoText() const { return history_.UndoText(); }
    [[nodiscard]] Text RedoText() const { return history_.RedoText(); }

    /// The names of all changes, the oldest first: those that are done, then those that were taken back. GoToStep takes
    /// changes back or does them again until so many are done; false, and nothing done, like Undo.
    [[nodiscard]] std::vector<Text> StepNames() const { return history_.StepNames(); }
    [[nodiscard]] std::size_t StepsDone() const noexcept { return history_.StepsDone(); }
    bool GoToStep(std::size_t done) { return history_.GoToStep(done); }

    /// The most memory that the history may take, in bytes, about; 256 MB when nobody says. The oldest changes go
    /// first.
    void HistoryMemory(std::size_t bytes) { history_.Memory(bytes); }

    /// For front ends: the views, with the entrances of the user, and the size in twips that the host gives.
    [[nodiscard]] DesignerViews& Views() noexcept { return views_; }
    void Resize(int width, int height);

    /// The name of the root element when it is another than TargetTable, "" when it is the same or there is none. No
    /// path leads into such an object and its views stay empty, so a front end warns.
    [[nodiscard]] Text ForeignRoot() const;

    /// The tag of a view: of CmbDump the dump whose rules the grid shows, of txtMainQuery the table whose script it
    /// shows, "" of any other.
    [[nodiscard]] Text TagOf(const View& view) const;

    /// For looking in: nothing is saved, pruned or asked by these.
    [[nodiscard]] const ControlState& State() const noexcept { return state_; }
    [[nodiscard]] std::string DocumentAsItStands() const { return XmlDocument_.xmlUtf8(); }

private:
    void UserControl_Initialize();
    void WireHandlers();
    void UserControl_KeyDown(std::int16_t KeyCode, std::int16_t Shift);
    void UserControl_ExitFocus();
    void LockControls();
    void FillTargetTableCombo();
    void AfterLoad(bool loaded);
    void LeaveCopyFile(const std::string& StrXml);

    ControlState state_;
    XmlDocument XmlDocument_;
    DesignerViews views_;
    Moments moments_;
    History history_;
    WorkWatch watch_;
    Platform& platform_;
    MappingObject object_;
    ScriptScanner scanner_;
    SourceTableList sourceTables_;
    MainQueries queries_;
    PreConditions preConditions_;
    DocumentPruning pruning_;
    DumpLookup lookup_;
    ShownDump shownDump_;
    RuleMapping mapping_;
    DumpCopying copying_;
    FormTargetChooser chooser_;
    DumpRetargeting retargeting_;
    TextNotes notes_;
    RulesGridEditing grid_;
    FieldLists lists_;
    EditorBridge editor_;
    TextPanels panels_;
    Layout layout_;
    TabFlow tabs_;
};

} // namespace rulemesh
