#include "script/field_names.h"

#include <algorithm>

#include "script/keywords.h"

namespace rulemesh {

namespace {

bool IsDigit(char16_t character) noexcept { return character >= u'0' && character <= u'9'; }

// Letters of any alphabet: what lies outside ASCII belongs to a word.
bool IsWordCharacter(char16_t character) noexcept
{
    return IsDigit(character) || (character >= u'a' && character <= u'z') || (character >= u'A' && character <= u'Z') ||
           character == u'_' || character >= 0x80;
}

bool IsQuote(char16_t character) noexcept { return character == u'\'' || character == u'"'; }

// The digits of "3" and "1,3"; "" for anything else.
TextView IndexIn(TextView StrBrackets) noexcept
{
    constexpr TextView first = u"1,";
    if (StrBrackets.starts_with(first))
        StrBrackets.remove_prefix(first.size());
    return std::all_of(StrBrackets.begin(), StrBrackets.end(), IsDigit) ? StrBrackets : TextView();
}

} // namespace

std::optional<FieldName> FieldNameCursor::Next()
{
    while (position_ < text_.size()) {
        const char16_t character = text_[position_];
        if (IsQuote(character)) {
            position_ = BehindQuote(position_);
            continue;
        }
        if (!IsWordCharacter(character)) {
            ++position_;
            continue;
        }
        const std::size_t start = position_;
        position_ = WordEnd(start);
        if (std::optional<FieldName> name = NameAt(start, position_)) {
            position_ = start + name->Length;
            return name;
        }
    }
    return std::nullopt;
}

// The name whose table is the word between the two.
std::optional<FieldName> FieldNameCursor::NameAt(std::size_t start, std::size_t end) const
{
    const TextView StrTable = text_.substr(start, end - start);
    const bool isPartOfName = start > 0 && text_[start - 1] == u'.';
    if (isPartOfName || !IsTableCode(StrTable))
        return std::nullopt;
    FieldName name = {.Position = start, .Length = end - start, .Table = StrTable, .Field = {}, .Index = {}};
    if (end < text_.size() && text_[end] == u'.')
        AddField(name, end + 1);
    return name;
}

void FieldNameCursor::AddField(FieldName& name, std::size_t start) const
{
    std::size_t behind = WordEnd(start);
    if (behind == start)
        return;
    name.Field = text_.substr(start, behind - start);
    if (behind < text_.size() && text_[behind] == u'(') {
        const std::size_t close = text_.find_first_not_of(u"0123456789,", behind + 1);
        if (close != TextView::npos && text_[close] == u')')
            name.Index = IndexIn(text_.substr(behind + 1, close - behind - 1));
        if (!name.Index.empty())
            behind = close + 1;
    }
    name.Length = behind - name.Position;
}

std::size_t FieldNameCursor::WordEnd(std::size_t position) const noexcept
{
    while (position < text_.size() && IsWordCharacter(text_[position]))
        ++position;
    return position;
}

std::size_t FieldNameCursor::BehindQuote(std::size_t position) const noexcept
{
    const char16_t stops[] = {text_[position], u'\r', u'\n'};
    const std::size_t stop = text_.find_first_of(TextView(stops, std::size(stops)), position + 1);
    const bool closes = stop != TextView::npos && text_[stop] == text_[position];
    return closes ? stop + 1 : position + 1;
}

} // namespace rulemesh
