#include "document/xml_parser.h"

#include <array>
#include <cstdint>
#include <cstring>

#include "document/xml_attribute_names.h"
#include "document/xml_characters.h"
#include "document/xml_declaration.h"
#include "document/xml_scan.h"

// One pass over the text that checks everything and builds nothing but the outline. Every function reads from `at_`,
// leaves it behind what it has read and returns false at the first fault. The zero behind the text is no character of
// XML, so it ends every loop; only what comes between "end of a construct" and "end of the text" compares with end_.

namespace rulemesh::xml {

namespace {

class Parser {
public:
    Parser(std::string_view text, Outline& outline) noexcept
        : begin_(text.data()), end_(text.data() + text.size()), at_(text.data()), outline_(outline)
    {
    }

    bool Document();

private:
    // An open element: where it starts and how long its name is.
    struct Open {
        const char* start;
        std::size_t nameLength;
    };

    bool Misc();
    bool Content();
    bool StartTag();
    bool Attribute();
    bool EndTag();
    bool Comment();
    bool Instruction();
    bool CharacterData();
    bool MarkupInContent();
    bool Text();
    bool Value(char quote);
    bool Reference();
    bool CharacterReference();
    bool Name();
    bool Until(char second, char first, const char* from);

    [[nodiscard]] bool StartsWith(std::string_view text) const noexcept
    {
        return std::string_view(at_, static_cast<std::size_t>(end_ - at_)).substr(0, text.size()) == text;
    }
    [[nodiscard]] bool SkipCharacter() noexcept;
    [[nodiscard]] std::size_t Offset(const char* at) const noexcept { return static_cast<std::size_t>(at - begin_); }

    void Push(const char* start, std::size_t nameLength);
    void Pop();
    [[nodiscard]] bool IsListed(std::size_t depth) const noexcept { return depth < 64 || depth % 8 == 0; }

    const char* begin_;
    const char* end_;
    const char* at_;
    Outline& outline_;
    std::vector<Open> open_;
    std::size_t listed_ = 0; // the innermost open element in the outline's list; the `end` of each names the next outer
    AttributeNames attributes_;
};

bool Parser::Document()
{
    if (StartsWith("<?xml") && Is(Space, at_[5])) {
        const std::size_t length = DeclarationLength(at_);
        if (length == 0)
            return false;
        outline_.first = {0, length};
        at_ += length;
    }
    if (!Misc())
        return false;
    outline_.root.start = Offset(at_);
    if (!StartTag() || (!open_.empty() && !Content()))
        return false;
    outline_.root.end = Offset(at_);
    return Misc() && at_ == end_;
}

// White space, comments and instructions outside the root; a document type declaration is left where it stands, and
// fails there as a start tag.
bool Parser::Misc()
{
    for (;;) {
        at_ = SkipSpaces(at_);
        const char* const start = at_;
        if (StartsWith("<!--")) {
            if (!Comment())
                return false;
        } else if (StartsWith("<?")) {
            if (!Instruction())
                return false;
        } else {
            return true;
        }
        if (outline_.root.end == 0 && outline_.first.end == 0)
            outline_.first = {Offset(start), Offset(at_)};
    }
}

// From behind the root's start tag to behind its end tag.
bool Parser::Content()
{
    while (!open_.empty()) {
        if (!Text())
            return false;
        const char next = at_[1];
        if (next == '/') {
            if (!EndTag())
                return false;
        } else if (next == '!' || next == '?') {
            if (!MarkupInContent())
                return false;
        } else if (!StartTag()) {
            return false;
        }
    }
    return true;
}

bool Parser::MarkupInContent()
{
    if (StartsWith("<!--"))
        return Comment();
    if (StartsWith("<![CDATA["))
        return CharacterData();
    return StartsWith("<?") && Instruction();
}

bool Parser::StartTag()
{
    const char* const start = at_;
    if (*at_ != '<')
        return false;
    ++at_;
    if (!Name())
        return false;
    const auto nameLength = static_cast<std::size_t>(at_ - start) - 1;
    attributes_.Clear();
    for (;;) {
        const char* const end = at_;
        at_ = SkipSpaces(at_);
        if (*at_ == '>') {
            ++at_;
            Push(start, nameLength);
            return true;
        }
        if (*at_ == '/') {
            at_ += 2;
            return at_[-1] == '>';
        }
        if (at_ == end || !Attribute())
            return false;
    }
}

bool Parser::Attribute()
{
    const char* const name = at_;
    if (!Name())
        return false;
    if (!attributes_.Add({name, static_cast<std::size_t>(at_ - name)}, static_cast<std::size_t>(end_ - name)))
        return false;
    if (*at_ != '=') {
        at_ = SkipSpaces(at_);
        if (*at_ != '=')
            return false;
    }
    ++at_;
    if (*at_ != '"' && *at_ != '\'')
        at_ = SkipSpaces(at_);
    const char quote = *at_;
    if (quote != '"' && quote != '\'')
        return false;
    ++at_;
    return Value(quote);
}

bool Parser::Value(char quote)
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

bool Parser::EndTag()
{
    const Open& open = open_.back();
    at_ += 2;
    if (static_cast<std::size_t>(end_ - at_) < open.nameLength ||
        std::memcmp(at_, open.start + 1, open.nameLength) != 0)
        return false;
    at_ += open.nameLength;
    if (*at_ != '>') {
        at_ = SkipSpaces(at_);
        if (*at_ != '>')
            return false;
    }
    ++at_;
    Pop();
    return true;
}

// Character data up to the next "<", which must come.
bool Parser::Text()
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

bool Parser::Reference()
{
    ++at_;
    if (*at_ == '#')
        return CharacterReference();
    for (const std::string_view entity : {"lt;", "gt;", "amp;", "quot;", "apos;"}) {
        if (StartsWith(entity)) {
            at_ += entity.size();
            return true;
        }
    }
    return false;
}

bool Parser::CharacterReference()
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

bool Parser::Comment()
{
    at_ += 4;
    const char* const body = at_;
    if (!Until('-', '-', body))
        return false;
    const std::string_view text(body, static_cast<std::size_t>(at_ - body) - 3);
    return text.find("--") == std::string_view::npos && !text.ends_with('-');
}

bool Parser::Instruction()
{
    at_ += 2;
    const char* const target = at_;
    if (!Name())
        return false;
    const bool reserved = at_ - target == 3 && (target[0] | 0x20) == 'x' && (target[1] | 0x20) == 'm' &&
                          (target[2] | 0x20) == 'l';
    if (reserved)
        return false;
    if (at_[0] == '?' && at_[1] == '>') {
        at_ += 2;
        return true;
    }
    return Is(Space, *at_) && Until('?', '\0', at_);
}

bool Parser::CharacterData()
{
    at_ += 9;
    return Until(']', ']', at_);
}

// Reads behind the first ">" that `second`, and before it `first` unless that is zero, precede; neither lies before
// `from`.
bool Parser::Until(char second, char first, const char* from)
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

bool Parser::Name()
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

// Over characters beyond ASCII, at least one.
bool Parser::SkipCharacter() noexcept
{
    do {
        const Character next = DecodeCharacter(at_);
        if (next.length == 0)
            return false;
        at_ += next.length;
    } while (!IsAscii(*at_));
    return true;
}

void Parser::Push(const char* start, std::size_t nameLength)
{
    if (IsListed(open_.size())) {
        outline_.large.push_back({Offset(start), listed_});
        listed_ = outline_.large.size() - 1;
    }
    open_.push_back({start, nameLength});
}

void Parser::Pop()
{
    open_.pop_back();
    if (!IsListed(open_.size()))
        return;
    Slice& element = outline_.large[listed_];
    listed_ = element.end;
    element.end = Offset(at_);
    if (element.Length() < LargeElement)
        outline_.large.pop_back(); // it is the last: what it holds is smaller and gone already
}

} // namespace

bool Parse(std::string_view text, Outline& outline) { return Parser(text, outline).Document(); }

} // namespace rulemesh::xml
