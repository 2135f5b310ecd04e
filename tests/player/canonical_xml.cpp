#include "player/canonical_xml.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <vector>

namespace rulemesh::player {

namespace {

constexpr std::string_view WhiteSpace = " \t\r\n";

std::string WithLineFeeds(std::string_view text)
{
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool pair = text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
        if (!pair)
            result.push_back(text[at] == '\r' ? '\n' : text[at]);
    }
    return result;
}

void AppendUtf8(std::string& bytes, unsigned long point)
{
    const auto push = [&](unsigned long byte) { bytes.push_back(static_cast<char>(byte)); };
    const int tails = point < 0x80 ? 0 : point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
    constexpr unsigned long Leads[] = {0x00, 0xC0, 0xE0, 0xF0};
    push(Leads[tails] | (point >> (6 * tails)));
    for (int tail = tails - 1; tail >= 0; --tail)
        push(0x80 | ((point >> (6 * tail)) & 0x3F));
}

std::string Resolve(std::string_view name)
{
    static const std::map<std::string_view, std::string> named = {
        {"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"apos", "'"}};
    if (const auto found = named.find(name); found != named.end())
        return found->second;
    if (name.size() < 2 || name[0] != '#')
        throw std::runtime_error("unknown reference &" + std::string(name) + ";");
    std::string bytes;
    AppendUtf8(bytes, name[1] == 'x' ? std::stoul(std::string(name.substr(2)), nullptr, 16)
                                     : std::stoul(std::string(name.substr(1))));
    return bytes;
}

std::string Decoded(std::string_view text)
{
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::size_t end = text[at] == '&' ? text.find(';', at) : std::string_view::npos;
        if (text[at] != '&') {
            result.push_back(text[at]);
        } else if (end == std::string_view::npos) {
            throw std::runtime_error("a bare &");
        } else {
            result += Resolve(text.substr(at + 1, end - at - 1));
            at = end;
        }
    }
    return result;
}

std::string Escaped(std::string_view text)
{
    std::string result;
    for (const char character : text) {
        switch (character) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        case '\r':
            result += "&#13;";
            break;
        default:
            result.push_back(character);
        }
    }
    return result;
}

class Reader {
public:
    explicit Reader(std::string_view xml) : text_(WithLineFeeds(xml)) {}

    std::string Read()
    {
        if (rest_.starts_with("\xEF\xBB\xBF"))
            rest_.remove_prefix(3);
        while (!rest_.empty()) {
            if (rest_.starts_with("<![CDATA["))
                AddText(std::string(Between("<![CDATA[", "]]>")));
            else if (rest_.starts_with("<!--"))
                result_ += "<!--" + std::string(Between("<!--", "-->")) + "-->";
            else if (rest_.starts_with("<?"))
                AddInstruction(Between("<?", "?>"));
            else if (rest_.starts_with("</"))
                AddEndTag(Between("</", ">"));
            else if (rest_.front() == '<')
                AddStartTag();
            else
                AddText(Decoded(Taken(std::min(rest_.find('<'), rest_.size()))));
        }
        if (!open_.empty() || !hadRoot_)
            throw std::runtime_error(hadRoot_ ? "<" + open_.back() + "> is not closed" : "no root element");
        return std::move(result_);
    }

private:
    std::string_view Taken(std::size_t length)
    {
        const std::string_view taken = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return taken;
    }

    std::string_view Between(std::string_view opening, std::string_view closing)
    {
        const std::size_t end = rest_.find(closing, opening.size());
        if (end == std::string_view::npos)
            throw std::runtime_error("no " + std::string(closing) + " behind " + std::string(opening));
        const std::string_view inside = rest_.substr(opening.size(), end - opening.size());
        rest_.remove_prefix(end + closing.size());
        return inside;
    }

    void SkipWhiteSpace() { Taken(std::min(rest_.find_first_not_of(WhiteSpace), rest_.size())); }

    void AddText(const std::string& text)
    {
        if (!open_.empty())
            result_ += Escaped(text);
        else if (text.find_first_not_of(WhiteSpace) != std::string::npos)
            throw std::runtime_error("text outside the root");
    }

    void AddInstruction(std::string_view inside)
    {
        std::string instruction(inside);
        if (instruction.starts_with("xml "))
            std::replace(instruction.begin(), instruction.end(), '\'', '"');
        result_ += "<?" + instruction + "?>";
    }

    void AddEndTag(std::string_view inside)
    {
        const std::string name(inside.substr(0, inside.find_first_of(WhiteSpace)));
        if (open_.empty() || open_.back() != name)
            throw std::runtime_error("</" + name + "> closes nothing");
        open_.pop_back();
        result_ += "</" + name + ">";
    }

    void AddStartTag()
    {
        if (open_.empty() && hadRoot_)
            throw std::runtime_error("a second root");
        hadRoot_ = true;
        Taken(1);
        const std::string name(Taken(std::min(rest_.find_first_of(" \t\r\n/>"), rest_.size())));
        std::map<std::string, std::string> attributes;
        for (SkipWhiteSpace(); !rest_.empty() && rest_.front() != '>' && rest_.front() != '/'; SkipWhiteSpace())
            AddAttribute(attributes);
        const bool empty = rest_.starts_with("/>");
        if (!empty && !rest_.starts_with(">"))
            throw std::runtime_error("<" + name + " breaks off");
        Taken(empty ? 2 : 1);

        result_ += "<" + name;
        for (const auto& [key, value] : attributes)
            result_ += " " + key + "=\"" + Escaped(value) + "\"";
        result_ += ">";
        if (empty)
            result_ += "</" + name + ">";
        else
            open_.push_back(name);
    }

    void AddAttribute(std::map<std::string, std::string>& attributes)
    {
        const std::string key(Taken(std::min(rest_.find_first_of(" \t\r\n="), rest_.size())));
        SkipWhiteSpace();
        if (!rest_.starts_with("="))
            throw std::runtime_error("attribute " + key + " has no value");
        Taken(1);
        SkipWhiteSpace();
        if (!rest_.starts_with("\"") && !rest_.starts_with("'"))
            throw std::runtime_error("attribute " + key + " has no quotes");
        const std::string quote(1, rest_.front());
        std::string value(Between(quote, quote));
        for (char& character : value)
            character = character == '\t' || character == '\n' ? ' ' : character;
        if (!attributes.emplace(key, Decoded(value)).second)
            throw std::runtime_error("attribute " + key + " comes twice");
    }

    std::string text_;
    std::string_view rest_ = text_;
    std::string result_;
    std::vector<std::string> open_;
    bool hadRoot_ = false;
};

} // namespace

std::string CanonicalXml(std::string_view xml) { return Reader(xml).Read(); }

} // namespace rulemesh::player
