#pragma once

#include <optional>
#include <vector>

#include "base/text.h"

namespace rulemesh {

/// What the user did to the text of one box, to be taken back and done again. Characters that are typed one behind the
/// other, and ones that are deleted so, are one step.
class EditHistory {
public:
    /// A text to put into the box, with the caret behind so many characters.
    struct Step {
        Text Whole;
        std::size_t Caret = 0;
    };

    /// The user changed the text. What had been taken back is forgotten.
    void Note(TextView before, TextView after);

    /// The text as it was before the last change that is still done, if there is one; `now` is the text of the box.
    [[nodiscard]] std::optional<Step> Undo(TextView now);

    /// The text with the last change that was taken back, if there is one.
    [[nodiscard]] std::optional<Step> Redo(TextView now);

    [[nodiscard]] bool CanUndo() const noexcept { return done_ > 0; }
    [[nodiscard]] bool CanRedo() const noexcept { return done_ < changes_.size(); }

    /// Another text came into the box.
    void Clear() noexcept;

private:
    struct Change {
        std::size_t From = 0;
        Text Removed;
        Text Inserted;
    };

    [[nodiscard]] static bool Continues(const Change& last, const Change& next) noexcept;

    std::vector<Change> changes_;
    std::size_t done_ = 0;
};

} // namespace rulemesh
