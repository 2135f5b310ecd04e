#pragma once

#include <cstdint>
#include <vector>

#include "document/document_access.h"
#include "platform/platform.h"
#include "views/designer_views.h"

namespace rulemesh {

/// Searches scripts for the two keywords that tie them to the mapping object, `dump` and `migrate`. A script is text
/// in which a keyword is searched as a bare substring, in any case, and then tested for what surrounds the hit; there
/// is no grammar. Complaints are shown to the user each time that a script is scanned.
class ScriptScanner {
public:
    ScriptScanner(DocumentAccess& document, ControlState& state, DesignerViews& views, Platform& platform)
        : document_(document), state_(state), views_(views), platform_(platform)
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

    /// The first word of the text, as ReadWord reads it; one that is too long is recorded as an error and reads as "".
    TextView NextWord(TextView StrText, std::int32_t& LngPosition);

private:
    bool AddMigrateTable(TextView StrName);
    bool RegisterDump(std::int16_t IntDump, std::vector<std::int16_t>& IntNumbers, const Text& StrText,
                      std::vector<Text>& StrTexts);
    void ReadMigrateTables(TextView StrText);

    DocumentAccess& document_;
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
