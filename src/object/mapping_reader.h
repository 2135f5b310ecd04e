#pragma once

#include <cstdint>
#include <vector>

#include "object/document_access.h"
#include "object/records.h"

namespace rulemesh {

/// Reads a mapping object: by path, each time anew. Never writes into its document; all that it may leave behind is the
/// record of an error in the state. What is missing reads as a null record or "", never as an error.
class MappingReader {
public:
    MappingReader(const XmlDocument& document, ControlState& state) : document_(document), access_(document, state) {}

    /// The name of the root element; "" in an empty document.
    [[nodiscard]] Text RootName() const;

    [[nodiscard]] Text GetFunctionsText() const { return RootChildText(u"FUNCTIONS"); }
    [[nodiscard]] Text GetVariablesText() const { return RootChildText(u"VAR"); }
    [[nodiscard]] Text GetPreconditionText() const { return RootChildText(u"PREC"); }
    [[nodiscard]] Text GetSourceTablesText() const { return RootChildText(u"SRCTBL"); }
    [[nodiscard]] Text GetQueryText(TextView StrTable) const;

    [[nodiscard]] ScriptRecord Precondition() const;
    [[nodiscard]] ScriptRecord Query(TextView StrTable) const;

    /// The main queries, all of them, whatever table they name or don't.
    [[nodiscard]] std::vector<ScriptRecord> Queries() const;

    /// The texts in which a dump or a function may be named: precondition, functions and all main queries.
    [[nodiscard]] std::vector<ScriptRecord> Scripts() const;

    /// The catalogue's table of a name in any case, or null.
    [[nodiscard]] TableRecord SourceTable(TextView StrTable) const;
    [[nodiscard]] TableRecord TargetTable(TextView StrTable) const;
    [[nodiscard]] std::vector<TableRecord> TargetTables() const;

    /// Whether each dump names its own table. A table name that makes its path malformed raises TypeMismatch.
    [[nodiscard]] bool CheckMscripts() const { return static_cast<bool>(MscriptNode()); }

    /// The tables that a dump may fill; none in a single-target object. Raises what CheckMscripts raises.
    [[nodiscard]] std::vector<Text> TablesOnOffer() const;

    /// The dump of a number, the first of several; or null.
    [[nodiscard]] DumpRecord GetDumpNode(std::int16_t IntDump) const;
    [[nodiscard]] std::vector<DumpRecord> Dumps() const;

    /// How many elements DUMP there are, wherever they stand.
    [[nodiscard]] std::size_t CountDumpElements() const;

    [[nodiscard]] Text GetDumpTargetDescription(std::int16_t IntDump) const;

    /// Remembers the first failure for the life of the control, the default one when IntCode is 0. Shows nothing.
    void RecordError(int IntCode, const Text& StrText, int IntDefaultCode, const Text& StrDefaultText) const
    {
        access_.RecordError(IntCode, StrText, IntDefaultCode, StrDefaultText);
    }

private:
    [[nodiscard]] Text RootChildText(TextView StrName) const { return access_.GetNodeText(access_.RootPath(StrName)); }
    [[nodiscard]] XmlNode MscriptNode() const;

    const XmlDocument& document_;
    DocumentAccess access_;
};

} // namespace rulemesh
