#pragma once

#include <cstdint>
#include <vector>

#include "object/mapping_object.h"
#include "platform/platform.h"
#include "script/statements.h"
#include "views/designer_views.h"

namespace rulemesh {

/// Takes out of scripts what ties them to the mapping object: the dumps and the tables that their statements name.
/// Complaints are shown to the user each time that a script is scanned.
class ScriptScanner {
public:
    ScriptScanner(MappingObject& object, ControlState& state, DesignerViews& views, Platform& platform)
        : object_(object), state_(state), views_(views), platform_(platform)
    {
    }

    /// Enters the dumps that the script names in the two lists. Raises Overflow for a number past 16 bits.
    void ScanDumpKeywords(TextView StrText, std::vector<std::int16_t>& IntNumbers, std::vector<Text>& StrTexts);

    /// Makes StrMigrateTables the tables that the precondition names, and shows them; an empty text changes nothing.
    /// True when a text was read to its end. A failure is recorded as an error: a precondition of more than 32,767
    /// characters, which names no tables.
    bool ParseMigrateKeywords(TextView StrText);

    /// Shows StrMigrateTables in lstMigrateSource, with an empty row behind each.
    void FillMigrateList();

private:
    void AddMigrateTable(const Statement& migrate);
    bool RegisterDump(std::int16_t IntDump, std::vector<std::int16_t>& IntNumbers, const Text& StrText,
                      std::vector<Text>& StrTexts);
    void ReadMigrateTables(TextView StrText);
    void RefuseTable(const Text& StrText);
    void Complain(const Statement& dump);

    MappingObject& object_;
    ControlState& state_;
    DesignerViews& views_;
    Platform& platform_;
};

/// Whether a list of that kind holds nothing: its one element is 0 or "".
[[nodiscard]] bool IsEmptyList(const std::vector<std::int16_t>& IntNumbers) noexcept;
[[nodiscard]] bool IsEmptyList(const std::vector<Text>& StrTexts) noexcept;

/// Exact comparison, case included.
[[nodiscard]] bool IsInStringList(const std::vector<Text>& StrTexts, TextView StrValue) noexcept;
[[nodiscard]] bool IsInDumpList(const std::vector<std::int16_t>& IntNumbers, std::int16_t IntDump) noexcept;

} // namespace rulemesh
