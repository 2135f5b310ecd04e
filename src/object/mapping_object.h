#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "object/mapping_reader.h"

namespace rulemesh {

/// The rules of a grid, by row from 0.
using RuleTexts = std::vector<TextView>;

/// What a save of a dump asks for, each when it gets there.
struct DumpToSave {
    std::function<Text()>
        AskForTable; ///< the table that a dump without an element is to fill, in a multi-target object
    std::function<TableRecord()> Table; ///< whose fields the rules belong to; null for none, and then nothing is saved
    std::function<RuleTexts()> Rules;
};

/// A mapping object: every change of its document goes through here, and is in the document when the call returns.
/// Knows no view, so that it serves the shown object and any copy of it.
///
/// Members that take a record raise ObjectVariableNotSet for a null one, where nothing else is said, and for one of an
/// object that was replaced.
class MappingObject {
public:
    MappingObject(XmlDocument& document, ControlState& state)
        : document_(document), state_(state), access_(document, state), reader_(document, state)
    {
    }

    /// Everything that can be read without a write.
    [[nodiscard]] const MappingReader& Read() const noexcept { return reader_; }

    // Reads that write.

    /// The rule of a field. For a number above 0 that has no DUMP yet this read makes one.
    [[nodiscard]] Text GetRuleText(std::int16_t IntDump, TextView StrField);

    /// The table that a dump fills. A dump that names none gets StrTargetTable written into it by this read.
    [[nodiscard]] Text GetDumpTargetTable(std::int16_t IntDump);

    /// The catalogue's table that a dump fills, or null; for dump 0, and in a single-target object, that of
    /// StrTargetTable. Writes what GetDumpTargetTable writes.
    [[nodiscard]] TableRecord TableOfDump(std::int16_t IntDump);

    // Scripts and notes.

    /// Replaces the text of the element that a path leads to. False, and nothing made, when there is none.
    bool SetNodeText(const Text& StrPath, TextView StrText, TextView StrKeyName = {}, TextView StrKeyValue = {});

    /// Make the element where it is missing; always true. Raise ObjectVariableNotSet when it can't be made.
    bool SetFunctionsText(TextView StrText) { return SetRootChildText(u"FUNCTIONS", StrText); }
    bool SetVariablesText(TextView StrText) { return SetRootChildText(u"VAR", StrText); }

    void SetScript(const ScriptRecord& script, TextView StrText);

    /// Stores the main query of a table. False when nothing was written: an empty script never is, and a failure is
    /// recorded as an error.
    bool SetQuery(TextView StrTable, TextView StrText);

    /// The list of source tables, which is made where it is missing; null in an empty document.
    ScriptRecord EnsureSourceTables();

    /// False for a null record.
    bool SetNote(const ScriptRecord& script, TextView StrNote) { return SetNoteOf(script, StrNote); }
    bool SetNote(const RuleRecord& rule, TextView StrNote) { return SetNoteOf(rule, StrNote); }

    /// The note of a field's rule; a field without a rule gets a record that holds the note alone.
    void SetRuleNote(const DumpRecord& dump, TextView StrField, TextView StrNote);

    // Dumps.

    /// Appends a dump with its number and, also when it is "", its comment.
    DumpRecord CreateDumpNode(std::int16_t IntDump, TextView StrText);

    /// The same for a number that has no dump yet.
    void EnsureDump(std::int16_t IntDump, TextView StrText);

    void SetDumpTable(const DumpRecord& dump, TextView StrTable);

    /// Removes what the scripts no longer ask for: main queries of tables that are not listed, and dumps of numbers
    /// that are not. Raise ObjectVariableNotSet for a query without a table, and what the conversion of a dump's number
    /// raises; what was removed before stays removed.
    void PruneQueries(const std::vector<Text>& StrTables);
    void PruneDumps(const std::vector<std::int16_t>& IntNumbers);

    // Rules.

    /// Makes the rules of a column the records of a dump, which is made if it is missing; nothing for "" and "0". The
    /// field whose `No` is n has the rule of row n - 1; "" removes its record. Raises what the conversion of a `No`
    /// raises, and InvalidPropertyArrayIndex for a field without a record whose row the column lacks; the fields before
    /// it are saved by then.
    void SaveDumpRules(const GridDump& shown, const DumpToSave& from);

    /// The rule of a field given by the name of its element; "" removes its record, its note with it.
    void SetRule(const DumpRecord& dump, TextView StrField, TextView StrRule);

    /// Appends a record for a rule without a note.
    void AppendRule(const DumpRecord& dump, TextView StrField, TextView StrRule);

    void RemoveRules(const DumpRecord& dump);

    /// Replaces all rules of a dump by those of another one, notes and all; whether there were any. A dump that is
    /// copied onto itself loses its rules before there is anything to copy.
    bool CopyRules(const DumpRecord& source, const DumpRecord& target);

    /// Puts a copy of a rule, its note with it, into every dump that fills the table or names none, but for the one of
    /// the number. Table names compare in any case.
    void SpreadRule(const RuleRecord& rule, TextView StrField, TextView StrTable, TextView StrExceptDump);

private:
    bool SetRootChildText(TextView StrName, TextView StrText);
    bool SetNoteOf(const Record& record, TextView StrNote);
    XmlNode DumpToFill(std::int16_t IntDump, const std::function<Text()>& askForTable);
    void SaveRule(const DumpRecord& dump, const FieldRecord& field, const RuleTexts& rules);
    void ReplaceRule(const DumpRecord& dump, const RuleRecord& former, TextView StrField, TextView StrRule);

    XmlDocument& document_;
    ControlState& state_;
    DocumentAccess access_;
    MappingReader reader_;
};

} // namespace rulemesh
