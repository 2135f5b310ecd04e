#pragma once

#include <string_view>

namespace rulemesh::xml {

/// Walks over a text and checks the constructs of XML that hold no others. Every function reads from `at_`, leaves it
/// behind what it has read and returns false at the first fault. A zero must stand behind the text: as it is no
/// character of XML, it ends every loop.
class Cursor {
protected:
    explicit Cursor(std::string_view text) noexcept
        : begin_(text.data()), end_(text.data() + text.size()), at_(text.data())
    {
    }

    bool Name();

    /// From behind the quote to behind the other.
    bool Value(char quote);

    /// Character data up to the next "<", which must come.
    bool Text();

    /// These stand at their first character.
    bool Comment();
    bool Instruction();
    bool CharacterData();

    [[nodiscard]] bool StartsWith(std::string_view text) const noexcept
    {
        return std::string_view(at_, static_cast<std::size_t>(end_ - at_)).substr(0, text.size()) == text;
    }

    const char* const begin_;
    const char* const end_;
    const char* at_;

private:
    bool Reference();
    bool CharacterReference();
    bool Until(char second, char first, const char* from);
    [[nodiscard]] bool SkipCharacter() noexcept;
    [[nodiscard]] bool Skip(std::string_view text) noexcept
    {
        for (const char byte : text) {
            if (*at_++ != byte)
                return false;
        }
        return true;
    }
};

} // namespace rulemesh::xml
