#include "document/xml_parser.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "document/xml_attribute_names.h"
#include "document/xml_characters.h"
#include "document/xml_cursor.h"
#include "document/xml_declaration.h"
#include "document/xml_scan.h"

// One pass over the text that checks everything and builds nothing but the outline.

namespace rulemesh::xml {

namespace {

// The number of bits that are set one after the other from `from` on, the end of the set and what is behind it aside.
unsigned Run(std::uint64_t bits, unsigned from) noexcept
{
    return from < 64 ? static_cast<unsigned>(std::countr_one(bits >> from)) : 0;
}

class Parser : private Cursor {
public:
    Parser(std::string_view text, Outline& outline) noexcept : Cursor(text), outline_(outline) {}

    bool Document();

    /// How far it has read.
    [[nodiscard]] std::size_t Read() const noexcept { return Offset(at_); }

private:
    // An open element: where it starts and how long its name is. Packed, as there may be as many as the text is deep.
    struct Open {
        std::uint64_t start : 44;
        std::uint64_t nameLength : 20; // LongName when it is that or more
    };
    static constexpr std::size_t LongName = 0xFFFFF;

    bool Misc();
    bool Content();
    bool StartTag();
    bool SimpleAttributes();
    bool Attribute();
    bool EndTag();
    bool MarkupInContent();

    [[nodiscard]] std::size_t Offset(const char* at) const noexcept { return static_cast<std::size_t>(at - begin_); }

    void Push(const char* start, std::size_t nameLength);
    void Pop();
    [[nodiscard]] bool IsListed(std::size_t depth) const noexcept { return depth < 64 || depth % 8 == 0; }

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
        if (TagWindow::IsFast && *at_ == ' ' && !SimpleAttributes())
            return false;
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

// Reads on while attributes come one blank apart as name="value", of ASCII without references: as most do.
bool Parser::SimpleAttributes()
{
    const char* at = at_;
    unsigned offset = 1; // of the blank, from `at` on
    while (offset != 0 && end_ - at >= static_cast<std::ptrdiff_t>(TagWindow::Size)) {
        const TagWindow window(at);
        offset = 0;
        for (;;) {
            const unsigned name = offset + 1;
            const unsigned value = name + Run(window.names, name) + 2;
            const unsigned close = value + Run(~window.valueEnds, value);
            if (close >= TagWindow::Size)
                break; // goes on behind the window
            const bool isSimple = at[offset] == ' ' && Is(NameStart, at[name]) && at[value - 2] == '=' &&
                                  at[value - 1] == '"' && at[close] == '"';
            if (!isSimple) {
                at_ = at + offset;
                return true;
            }
            if (!attributes_.Add({at + name, value - 2 - name}, static_cast<std::size_t>(end_ - at - name)))
                return false;
            offset = close + 1;
        }
        at += offset;
    }
    at_ = at;
    return true;
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

bool Parser::EndTag()
{
    at_ += 2;
    const char* const name = begin_ + open_.back().start + 1;
    std::size_t length = open_.back().nameLength;
    if (length == LongName)
        length = NameAt(name, end_).size();
    if (static_cast<std::size_t>(end_ - at_) < length || std::memcmp(at_, name, length) != 0)
        return false;
    at_ += length;
    if (*at_ != '>') {
        at_ = SkipSpaces(at_);
        if (*at_ != '>')
            return false;
    }
    ++at_;
    Pop();
    return true;
}

void Parser::Push(const char* start, std::size_t nameLength)
{
    if (IsListed(open_.size())) {
        outline_.large.push_back({Offset(start), listed_});
        listed_ = outline_.large.size() - 1;
    }
    open_.push_back({Offset(start) & ((std::uint64_t{1} << 44) - 1), std::min(nameLength, LongName) & LongName});
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

std::size_t FaultIn(std::string_view text)
{
    Outline outline;
    Parser parser(text, outline);
    static_cast<void>(parser.Document());
    return parser.Read();
}

} // namespace rulemesh::xml
