#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"

namespace rulemesh {

class ctlRulemesh;

/// What a user has typed into the designer that is not in its document yet.
struct UnsavedTexts {
    Text PreCondition;
    Text QueryTable; // "" when no query is shown
    Text Query;
    std::optional<Text> Functions; // while the panel is open
    std::optional<Text> Variables;
    std::optional<Text> Dump;                 // the dump whose rules are shown, while the rules are
    std::vector<std::pair<Text, Text>> Rules; // by qualified field name, an open cell as it stands

    friend bool operator==(const UnsavedTexts&, const UnsavedTexts&) = default;
};

/// Looks at the boxes; saves nothing and asks nothing.
[[nodiscard]] UnsavedTexts TakeUnsavedTexts(ctlRulemesh& control);

/// An object with the unsaved texts put where a save would put them. A text that the object holds already, a script for
/// a place that the object lacks, and an empty query, which no save stores either, change nothing. UTF-8.
[[nodiscard]] std::string WithUnsavedTexts(std::string object, const UnsavedTexts& texts);

/// The object with everything that the user has typed so far. Saves nothing and asks nothing.
[[nodiscard]] std::string ObjectAsItStands(ctlRulemesh& control);

} // namespace rulemesh
