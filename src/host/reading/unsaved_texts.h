#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/text.h"
#include "object/grid_dump.h"

namespace rulemesh {

class ctlRulemesh;

/// What a user has typed into the designer that is not in its document yet.
struct UnsavedTexts {
    Text PreCondition;
    Text QueryTable; // "" when no query is shown
    Text Query;
    std::optional<Text> Functions; // while the panel is open
    std::optional<Text> Variables;
    GridDump Dump;           // whose rules are shown
    Text DumpTable;          // the target table that is chosen, which a dump without an element fills
    std::vector<Text> Rules; // by row, an open cell as it stands

    friend bool operator==(const UnsavedTexts&, const UnsavedTexts&) = default;
};

/// Looks at the boxes; saves nothing and asks nothing.
[[nodiscard]] UnsavedTexts TakeUnsavedTexts(ctlRulemesh& control);

/// An object (UTF-8) with the unsaved texts in it, written by the operations of the designer's own saves. A script that
/// its box shows as the object holds it changes nothing, nor does what no save could store.
[[nodiscard]] std::string WithUnsavedTexts(std::string object, const UnsavedTexts& texts);

/// The object with everything that the user has typed so far. Saves nothing and asks nothing.
[[nodiscard]] std::string ObjectAsItStands(ctlRulemesh& control);

} // namespace rulemesh
