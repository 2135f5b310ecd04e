#pragma once

#include <cstdint>

#include "base/text.h"

namespace rulemesh {

/// The values through which a control and the form FrmTxtDoc talk. There is one set for the whole process, as one such
/// form is open at a time.
struct SharedFormValues {
    Text StrDocText;             // note mode: the text as it stands, and the text to store
    bool BoolEditShared = false; // copy of the BoolEdit that was set last
    bool BoolTextMode = false;   // true: the form edits a note; false: it chooses a target table
    std::int16_t IntChooserDump = 0;
    Text StrChooserTables; // table codes, each followed by ";"
    Text StrChosenTable;   // the default answer, and the answer
};

[[nodiscard]] SharedFormValues& Shared() noexcept;

} // namespace rulemesh
