#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "base/text.h"
#include "object/dump_number.h"
#include "object/grid_dump.h"
#include "object/table_code.h"

namespace rulemesh {

/// Length of a table code, and of StrTargetTable.
inline constexpr std::size_t TableCodeLength = 8;

/// The panels that take the place of the two scripts.
enum class TextPanel { None, Functions, Variables };

/// The fields of one control. A list is never empty: "nothing" is one element that holds 0 or "".
struct ControlState {
    bool BoolEditorOpen = false;
    bool BoolEdit = false;
    bool BoolMultiTarget = false;
    bool BoolSyntaxHighlight = false;

    /// The dumps as the scripts name them now, and as they did before the last save of a main query.
    std::vector<std::int16_t> IntDumpNumbers{0};
    std::vector<std::int16_t> IntPriorDumpNumbers{0};
    std::vector<Text> StrDumpTexts{u""};
    std::vector<Text> StrPriorDumpTexts{u""};

    /// The root element's name: always 8 characters, filled with blanks.
    Text StrTargetTable = Text(TableCodeLength, u' ');

    /// The tables named by the precondition, and the copies that a save of it compares.
    std::vector<Text> StrMigrateTables{u""};
    std::vector<Text> StrPriorMigrateTables{u""};
    std::vector<Text> StrNewMigrateTables{u""};

    /// The first error that was caught without being shown.
    std::int16_t IntErrorCode = 0;
    Text StrErrorText;

    Text StrEditor;

    /// By dump number: the migrate table whose script named it first, and its latest comment.
    std::unordered_map<std::int16_t, Text> DumpSourceTables;
    std::unordered_map<std::int16_t, Text> DumpComments;

    /// What the views hold. Their tags and captions are made from these and not read back.
    GridDump DumpInGrid;                     // the tag of CmbDump: where the rules in the grid belong
    std::optional<DumpNumber> DumpInDetails; // the dump that was loaded last and stands in the caption of Details
    TableCode QueryTable;                    // the tag of txtMainQuery: the table whose script it holds
    TextPanel OpenPanel = TextPanel::None;

    friend bool operator==(const ControlState&, const ControlState&) = default;
};

} // namespace rulemesh
