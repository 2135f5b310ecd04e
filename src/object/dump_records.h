#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "object/document_access.h"

namespace rulemesh {

/// The rules of a grid, by row from 0.
using RuleTexts = std::vector<TextView>;

/// The dumps of an object as its document holds them: the tables that they fill, and their rule records. Knows no view,
/// so that it serves the shown object and any copy of it.
class DumpRecords {
public:
    DumpRecords(DocumentAccess& document, ControlState& state) : document_(document), state_(state) {}

    /// The table that a dump fills. A dump that names none gets StrTargetTable written into it by this read.
    [[nodiscard]] Text GetDumpTargetTable(std::int16_t IntDump);
    [[nodiscard]] Text GetDumpTargetDescription(std::int16_t IntDump) const;

    /// The catalogue's element of a target table named in any case, or null.
    [[nodiscard]] XmlNode CatalogueTable(TextView StrTable) const;

    /// The catalogue's element of the table that a dump fills, or null; for dump 0, and in a single-target object, that
    /// of StrTargetTable.
    [[nodiscard]] XmlNode TableOfDump(std::int16_t IntDump);

    /// The element MSCRIPT, by which each dump names its own table; null in a single-target object. A table name that
    /// makes its path malformed raises TypeMismatch.
    [[nodiscard]] XmlNode MscriptNode() const;
    [[nodiscard]] bool CheckMscripts() const { return static_cast<bool>(MscriptNode()); }

    /// The element of a dump. A missing one is made; in a multi-target object it then fills the table that is asked
    /// for.
    XmlNode DumpToFill(std::int16_t IntDump, const std::function<Text()>& askForTable);

    /// Makes the rules of a column the records of a dump. The field whose `No` is n has the rule of row n - 1; ""
    /// removes its record. Raises what the conversion of a `No` raises, and InvalidPropertyArrayIndex for a field
    /// without a record whose row the column lacks; the fields before it are saved by then.
    void SaveRules(XmlNode dump, XmlNode table, const RuleTexts& rules);

    /// The row of a field of the catalogue, from 0. Raises what the conversion of its `No` raises.
    [[nodiscard]] static std::int16_t RowOf(XmlNode field);

    /// Appends a record for a rule without a note.
    void AppendRule(XmlNode dump, TextView StrFieldNode, TextView StrRule);

protected:
    DocumentAccess& document_;
    ControlState& state_;

private:
    void SaveRule(XmlNode dump, XmlNode field, const RuleTexts& rules);
};

/// The element of a dump that must be there. Raises ObjectVariableNotSet, which names the dump, for the null handle.
XmlNode RequireDump(XmlNode dump, std::int16_t IntDump);

} // namespace rulemesh
