#pragma once

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

#include "base/text.h"

namespace rulemesh {

/// The rule of a field for which nothing better was found.
inline constexpr TextView DefaultRule = u"default()";

/// What guessing reads of a field, as its list shows it. The texts are borrowed.
struct GuessField {
    TextView Name;
    TextView Type;
    TextView Length;
    TextView Domain;
    TextView Enums;
};

/// A guessed rule, and how it came about. Sources are places in the list of sources, from 0.
struct ExplainedGuess {
    enum class Reason { Name, Domain, Default };

    Text StrRule;
    Reason Why = Reason::Default;
    std::optional<std::size_t> Source = {}; // whose rule it is
    std::vector<std::size_t> Others = {};   // what the same pass matched and did not take, in the order of the list
};

/// Finds the rule that a target field without one gets when it is compared with all source fields in their order.
///
/// The comparison is a walk over every source field for every target field, in which the first rule that isn't blank
/// stays. Only a source whose field part is the target's field part, or the target's field without its index, ever has
/// a rule to give; so the sources are joined by field part once, and a target looks at its few partners alone, in the
/// same order.
class Guess {
public:
    /// The sources in the order of their list; their texts must outlive the guess.
    explicit Guess(std::vector<GuessField> sources);

    /// The rule for a target field; `default()` when no source has one to give.
    [[nodiscard]] Text RuleFor(const GuessField& target) const;

    /// The same rule with its reasons; looks at every partner, where RuleFor stops at the first that decides.
    [[nodiscard]] ExplainedGuess Explain(const GuessField& target) const;

private:
    struct Proposal {
        Text StrRule;         // "" when there is none
        bool Matched = false; // a source matched, even if it had no rule to give
    };

    [[nodiscard]] Proposal ProposeByName(const GuessField& target) const;
    [[nodiscard]] Text ProposeByDomain(const GuessField& target) const;
    [[nodiscard]] bool ExplainByName(const GuessField& target, ExplainedGuess& explained) const;
    void ExplainByDomain(const GuessField& target, ExplainedGuess& explained) const;
    [[nodiscard]] std::vector<std::size_t> PartnersOf(const GuessField& target) const;

    std::vector<GuessField> sources_;
    std::unordered_map<TextView, std::vector<std::size_t>> byFieldPart_;
};

} // namespace rulemesh
