#pragma once

#include <cstdint>
#include <vector>

#include "base/text.h"
#include "object/object_content.h"

namespace rulemesh {

/// Something in a mapping object that is wrong or that somebody should look at.
struct Finding {
    enum class Severity : std::uint8_t { Note, Warning, Error };

    TextView Kind; // a word of the language of findings: "no-rule"
    Severity How = Severity::Note;
    std::int16_t Dump = 0; // 0 for none
    Text Table = {};       // where it stands: the target table of a rule, the table of a script, the table at fault
    Text Field = {};       // as it is shown, without its table; "" for none
    int Line = 0;          // of a script, from 1; 0 for none
    Text Sentence = {};    // what is wrong and what to do

    friend bool operator==(const Finding&, const Finding&) = default;
};

/// The table name under which findings speak of the functions; "" is the precondition.
inline constexpr TextView FunctionsTable = u"FUNCTIONS";

/// "error", "warning" or "note".
[[nodiscard]] TextView SeverityWord(Finding::Severity severity) noexcept;

/// What is wrong with an object, ordered by dump, then line, then the order of the target table's fields, then kind.
/// Each rule and name, and each table at fault, is told once.
[[nodiscard]] std::vector<Finding> FindingsOf(const ObjectContent& object);

} // namespace rulemesh
