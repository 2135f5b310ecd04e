#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/text.h"

namespace rulemesh {

/// A name that is like another one.
struct NearName {
    enum class Why {
        Spelling,     // the same but for case, underscores, an index or digits at the end
        Order,        // the same words in another order
        Abbreviation, // the same words, some of them shortened
        Likeness      // much the same letters
    };

    std::size_t Place = 0; // among the candidates, from 0
    double Score = 0;      // above 0, at most 1
    Why Reason = Why::Likeness;

    friend bool operator==(const NearName&, const NearName&) = default;
};

/// Ranks the names of fields by their likeness to one, for a person to choose from. Names are taken without their
/// tables, as the lists show them. The candidates are prepared once and asked many times.
class NearNames {
public:
    explicit NearNames(const std::vector<TextView>& candidates);

    /// At most so many are answered.
    static constexpr std::size_t Most = 7;

    /// The candidates that are like a name, best first, of equal ones the first.
    [[nodiscard]] std::vector<NearName> Of(TextView StrField) const;

private:
    // What of a name is compared.
    struct Shape {
        explicit Shape(TextView StrField);

        Text Letters;                     // in lower case, without what separates words and without digits at the end
        std::vector<Text> Words;          // in order of the alphabet
        std::vector<Text> FullWords;      // the same without abbreviations
        Text FullLetters;                 // the full words in the order of the name
        std::vector<std::uint32_t> Pairs; // of neighbouring full letters, sorted
    };

    [[nodiscard]] static NearName Compare(const Shape& a, const Shape& b);

    std::vector<Shape> candidates_;
};

} // namespace rulemesh
