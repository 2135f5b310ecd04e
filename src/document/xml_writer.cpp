#include "document/xml_writer.h"

#include <string_view>

#include "document/xml_characters.h"
#include "document/xml_decode.h"
#include "document/xml_text.h"
#include "document/xml_walk.h"

namespace rulemesh::xml {

namespace {

constexpr std::string_view KeptReturn = "&#13;";

// Copies the text, with what `escape` gives for a character in its place; it gives nothing for one that stays.
template <typename Escape>
void AppendEscaped(std::string& output, std::string_view text, const char* special, Escape escape)
{
    for (;;) {
        const std::size_t stop = text.find_first_of(special);
        output.append(text.substr(0, stop));
        if (stop == std::string_view::npos)
            return;
        output.append(escape(text, stop));
        text.remove_prefix(stop + 1);
    }
}

void AppendValue(std::string& output, std::string_view value)
{
    AppendEscaped(output, value, "&<\"\t\r\n", [](std::string_view text, std::size_t at) -> std::string_view {
        switch (text[at]) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '"':
            return "&quot;";
        case '\t':
            return "&#9;";
        case '\r':
            return KeptReturn;
        default:
            return "&#10;";
        }
    });
}

bool HasPlainLineFeeds(std::string_view loaded) noexcept
{
    return loaded.find('\n') != std::string_view::npos && loaded.find("\r\n") == std::string_view::npos;
}

// Whether a carriage return is the first half of a line end, which a parser reads as one line feed.
bool IsLineEnd(std::string_view text, std::size_t at, CarriageReturns returns) noexcept
{
    return returns == CarriageReturns::AsLineEnds && at + 1 < text.size() && text[at + 1] == '\n';
}

// A carriage return and line feed, and a carriage return alone, as the one line feed that a parser makes of them.
std::string FoldLineEnds(std::string_view text)
{
    std::string folded;
    folded.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isReturn = text[at] == '\r';
        if (isReturn && at + 1 < text.size() && text[at + 1] == '\n')
            continue;
        folded.push_back(isReturn ? '\n' : text[at]);
    }
    return folded;
}

class Writer {
public:
    explicit Writer(Store& store) : store_(store) {}

    bool Open(NodeIndex node);
    void Close(NodeIndex node);
    void Whole(NodeIndex node) { Loaded(store_.At(node).loaded); }
    void Loaded(Slice slice) { output_.append(store_.Loaded().substr(slice.start, slice.Length())); }

    [[nodiscard]] std::string Document();
    [[nodiscard]] std::string Element(NodeIndex element);
    [[nodiscard]] std::string Head(NodeIndex element);

private:
    void StartTag(NodeIndex node, bool isEmptyTag);
    void Attributes(const AttributeList& attributes);
    void Attribute(const AttributeList::Attribute& attribute);
    void WrittenText(const Details& details);
    [[nodiscard]] bool ReadsAsLoaded(NodeIndex node, const Details& details) const;
    [[nodiscard]] bool IsEmptyTag(NodeIndex node) const;
    [[nodiscard]] bool HasContent(NodeIndex node) const;
    [[nodiscard]] std::string_view LineEnd();

    Store& store_;
    std::string output_;
    std::string_view lineEnd_; // empty until a text asks for it
};

std::string Writer::Document()
{
    const std::string_view loaded = store_.Loaded();
    const NodeIndex root = store_.Root();
    if (!store_.IsEdited())
        return std::string(loaded);
    output_.reserve(loaded.size() + loaded.size() / 16);
    const Slice place = store_.At(root).loaded;
    output_.append(loaded.substr(0, place.start));
    Walk(store_, *this).From(root);
    output_.append(loaded.substr(place.end));
    return std::move(output_);
}

std::string Writer::Element(NodeIndex element)
{
    Walk(store_, *this).From(element);
    return std::move(output_);
}

std::string Writer::Head(NodeIndex element)
{
    StartTag(element, false);
    if (const Details* const details = store_.DetailsOf(element))
        WrittenText(*details);
    return std::move(output_);
}

bool Writer::Open(NodeIndex node)
{
    const Details* const details = store_.DetailsOf(node);
    if (details != nullptr && details->content == Content::Written && store_.At(node).childCount == 0 &&
        ReadsAsLoaded(node, *details)) {
        const Parts parts = store_.PartsOf(node);
        StartTag(node, parts.isEmptyTag);
        Loaded({parts.tagEnd, store_.At(node).loaded.end});
        return false;
    }
    StartTag(node, IsEmptyTag(node));
    if (details != nullptr)
        WrittenText(*details);
    return true;
}

void Writer::Close(NodeIndex node)
{
    if (IsEmptyTag(node))
        return;
    const Node& element = store_.At(node);
    const Parts parts = element.loaded.end != 0 ? store_.PartsOf(node) : Parts{};
    if (element.loaded.end != 0 && !parts.isEmptyTag)
        Loaded({parts.content.end, element.loaded.end});
    else
        output_.append("</").append(store_.Names().At(element.name)).append(">");
}

// Whether the element is written as <X/>: when it has no content and came so, or is new.
bool Writer::IsEmptyTag(NodeIndex node) const
{
    return !HasContent(node) && (store_.At(node).loaded.end == 0 || store_.PartsOf(node).isEmptyTag);
}

bool Writer::HasContent(NodeIndex node) const
{
    if (store_.At(node).childCount != 0)
        return true;
    const Details* const details = store_.DetailsOf(node);
    return details != nullptr && !details->written.empty();
}

void Writer::StartTag(NodeIndex node, bool isEmptyTag)
{
    const Node& element = store_.At(node);
    const Details* const details = store_.DetailsOf(node);
    const AttributeList* const attributes = details != nullptr ? details->attributes.get() : nullptr;
    if (element.loaded.end == 0) {
        output_.append("<").append(store_.Names().At(element.name));
        if (attributes != nullptr)
            Attributes(*attributes);
        output_.append(isEmptyTag ? "/>" : ">");
        return;
    }
    const Parts parts = store_.PartsOf(node);
    const std::size_t close = parts.tagEnd - (parts.isEmptyTag ? 2 : 1);
    if (attributes != nullptr) {
        const std::size_t nameEnd = element.loaded.start + 1 + store_.Names().At(element.name).size();
        Loaded({element.loaded.start, nameEnd});
        Attributes(*attributes);
        Loaded({attributes->LoadedEnd(), close});
    } else {
        Loaded({element.loaded.start, close});
    }
    output_.append(isEmptyTag ? "/>" : ">");
}

void Writer::Attributes(const AttributeList& attributes)
{
    for (const AttributeList::Attribute& attribute : attributes.All())
        Attribute(attribute);
}

// The white space before a loaded attribute stays, and its form where it holds exactly what it held: unlike a text, a
// value whose line ends were written anew is another value.
void Writer::Attribute(const AttributeList::Attribute& attribute)
{
    const bool isLoaded = attribute.whole.end != 0;
    const std::string_view loaded = store_.Loaded();
    const std::string_view value = loaded.substr(attribute.value.start, attribute.value.Length());
    if (!attribute.written || (isLoaded && *attribute.written == AttributeValue(value))) {
        Loaded(attribute.whole);
        return;
    }
    std::size_t nameStart = attribute.whole.start;
    while (isLoaded && Is(Space, loaded[nameStart]))
        ++nameStart;
    if (isLoaded)
        Loaded({attribute.whole.start, nameStart});
    else
        output_.push_back(' ');
    output_.append(store_.Names().At(attribute.name)).append("=\"");
    AppendValue(output_, *attribute.written);
    output_.push_back('"');
}

void Writer::WrittenText(const Details& details)
{
    AppendEscaped(output_, details.written, "&<>\r", [&](std::string_view text, std::size_t at) -> std::string_view {
        switch (text[at]) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        default:
            // The line feed of the line end comes by itself.
            return !IsLineEnd(text, at, details.returns) ? KeptReturn : LineEnd().substr(0, LineEnd().size() - 1);
        }
    });
}

// Whether the text that was written reads like what came, line ends counted as a parser counts them: a script that
// went through a text box and back is no change.
bool Writer::ReadsAsLoaded(NodeIndex node, const Details& details) const
{
    const std::string loaded = LoadedText(store_, node);
    return FoldLineEnds(TrimSpace(details.written)) == FoldLineEnds(TrimSpace(loaded));
}

std::string_view Writer::LineEnd()
{
    if (lineEnd_.empty())
        lineEnd_ = HasPlainLineFeeds(store_.Loaded()) ? "\n" : "\r\n";
    return lineEnd_;
}

} // namespace

std::string Write(Store& store) { return Writer(store).Document(); }

std::string WriteElement(Store& store, NodeIndex element) { return Writer(store).Element(element); }

std::string WriteHead(Store& store, NodeIndex element) { return Writer(store).Head(element); }

} // namespace rulemesh::xml
