#include "script/keywords.h"

#include <algorithm>

#include "base/numbers.h"
#include "object/control_state.h"

namespace rulemesh {

namespace {

constexpr TextView White = u"\n\r\t ";
constexpr std::size_t CommentLimit = 250;

constexpr char16_t CharacterAt(TextView text, std::size_t position) noexcept
{
    return position >= 1 && position <= text.size() ? text[position - 1] : u' ';
}

constexpr bool IsWhite(char16_t character) noexcept { return White.find(character) != TextView::npos; }

constexpr bool IsLineEnd(char16_t character) noexcept { return character == u'\n' || character == u'\r'; }

} // namespace

TextView NextWord(TextView StrText) noexcept
{
    const std::size_t start = std::min(StrText.find_first_not_of(White), StrText.size());
    return StrText.substr(start, StrText.find_first_of(White, start) - start);
}

bool IsKeywordAt(TextView StrText, std::size_t LngPosition, std::size_t LngLength) noexcept
{
    const std::size_t behind = LngPosition + LngLength;
    // Strictly more: a keyword in front of one last character counts as followed by nothing.
    return StrText.size() > behind && IsWhite(CharacterAt(StrText, behind)) && HasWhiteInFront(StrText, LngPosition);
}

bool HasWhiteInFront(TextView StrText, std::size_t LngPosition) noexcept
{
    return LngPosition == 1 || IsWhite(CharacterAt(StrText, LngPosition - 1));
}

bool IsInComment(TextView StrText, std::size_t LngPosition)
{
    const std::size_t mark = StrText.substr(0, LngPosition - 1).find_last_of(u"|\n");
    return mark != TextView::npos && StrText[mark] == u'|';
}

Text GetDumpComment(TextView StrText)
{
    if (CharacterAt(StrText, 1) == u'|')
        return {};
    std::size_t position = 1;
    do {
        if (IsLineEnd(CharacterAt(StrText, position)) || position >= StrText.size() || position == CommentLimit)
            return {};
        ++position;
    } while (CharacterAt(StrText, position) != u'|');

    Text StrComment;
    for (; position <= StrText.size() && position != CommentLimit; ++position) {
        const char16_t character = CharacterAt(StrText, position);
        if (IsLineEnd(character))
            break;
        if (character >= 32 && character <= 126)
            StrComment.push_back(character);
    }
    return StrComment;
}

bool IsTableCode(TextView StrName)
{
    return StrName.size() == TableCodeLength && StrName.substr(0, 5).find_first_of(u"0123456789") == TextView::npos &&
           IsNumeric(StrName.substr(5));
}

} // namespace rulemesh
