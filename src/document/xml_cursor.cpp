#include "document/xml_cursor.h"

#include "document/xml_scan.h"

namespace rulemesh::xml {

bool Cursor::Name()
{
    if (!Is(NameStart, *at_)) {
        if (IsAscii(*at_))
            return false;
        const Character first = DecodeCharacter(at_);
        if (first.length == 0 || !IsNameStart(first.point))
            return false;
        at_ += first.length;
    }
    for (;;) {
        at_ = SkipNameBytes(at_, end_);
        if (IsAscii(*at_))
            return true;
        const Character next = DecodeCharacter(at_);
        if (next.length == 0 || !IsNameCharacter(next.point))
            return false;
        at_ += next.length;
    }
}

bool Cursor::Value(char quote)
{
    for (;;) {
        at_ = SkipPlainValue(at_, end_, quote);
        if (*at_ == quote) {
            ++at_;
            return true;
        }
        if (*at_ == '&' ? !Reference() : !SkipCharacter())
            return false;
    }
}

// Character data up to the next "<", which must come.
bool Cursor::Text()
{
    for (;;) {
        at_ = SkipPlainText(at_, end_);
        switch (*at_) {
        case '<':
            return true;
        case '&':
            if (!Reference())
                return false;
            break;
        case '>':
            // What stands before character data ends in ">" or ";", so that it can't lend a bracket.
            if (at_[-1] == ']' && at_[-2] == ']')
                return false;
            ++at_;
            break;
        default:
            if (!SkipCharacter())
                return false;
        }
    }
}

bool Cursor::Reference()
{
    ++at_;
    switch (*at_) {
    case '#':
        return CharacterReference();
    case 'l':
        return Skip("lt;");
    case 'g':
        return Skip("gt;");
    case 'a':
        return at_[1] == 'm' ? Skip("amp;") : Skip("apos;");
    default:
        return Skip("quot;");
    }
}

bool Cursor::CharacterReference()
{
    ++at_;
    const bool hexadecimal = *at_ == 'x';
    if (hexadecimal)
        ++at_;
    const char* const digits = at_;
    char32_t point = 0;
    for (;; ++at_) {
        const int digit = DigitValue(*at_, hexadecimal);
        if (digit < 0)
            break;
        point = point * (hexadecimal ? 16 : 10) + static_cast<char32_t>(digit);
        if (point > 0x10FFFF)
            return false;
    }
    if (at_ == digits || *at_ != ';' || !IsCharacter(point))
        return false;
    ++at_;
    return true;
}

bool Cursor::Comment()
{
    at_ += 4;
    const char* const body = at_;
    if (!Until('-', '-', body))
        return false;
    const std::string_view text(body, static_cast<std::size_t>(at_ - body) - 3);
    return text.find("--") == std::string_view::npos && !text.ends_with('-');
}

bool Cursor::Instruction()
{
    at_ += 2;
    const char* const target = at_;
    if (!Name())
        return false;
    const bool reserved =
        at_ - target == 3 && (target[0] | 0x20) == 'x' && (target[1] | 0x20) == 'm' && (target[2] | 0x20) == 'l';
    if (reserved)
        return false;
    if (at_[0] == '?' && at_[1] == '>') {
        at_ += 2;
        return true;
    }
    return Is(Space, *at_) && Until('?', '\0', at_);
}

bool Cursor::CharacterData()
{
    at_ += 9;
    return Until(']', ']', at_);
}

// Reads behind the first ">" that `second`, and before it `first` unless that is zero, precede; neither lies before
// `from`.
bool Cursor::Until(char second, char first, const char* from)
{
    for (;;) {
        at_ = SkipPlainText(at_, end_);
        if (*at_ == '>') {
            ++at_;
            const auto length = at_ - from;
            if (length >= 2 && at_[-2] == second && (first == '\0' || (length >= 3 && at_[-3] == first)))
                return true;
        } else if (*at_ == '<' || *at_ == '&') {
            ++at_;
        } else if (!SkipCharacter()) {
            return false;
        }
    }
}

// Over characters beyond ASCII, at least one.
bool Cursor::SkipCharacter() noexcept
{
    do {
        const Character next = DecodeCharacter(at_);
        if (next.length == 0)
            return false;
        at_ += next.length;
    } while (!IsAscii(*at_));
    return true;
}

} // namespace rulemesh::xml
