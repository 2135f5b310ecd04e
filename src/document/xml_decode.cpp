#include "document/xml_decode.h"

#include <array>
#include <cstddef>

#include "document/xml_characters.h"
#include "document/xml_scan.h"

namespace rulemesh::xml {

namespace {

// `name` is what stands between "&" and ";".
void AppendReference(std::string& text, std::string_view name)
{
    if (name == "lt") {
        text.push_back('<');
    } else if (name == "gt") {
        text.push_back('>');
    } else if (name == "amp") {
        text.push_back('&');
    } else if (name == "quot") {
        text.push_back('"');
    } else if (name == "apos") {
        text.push_back('\'');
    } else {
        const bool hexadecimal = name[1] == 'x';
        char32_t point = 0;
        for (const char digit : name.substr(hexadecimal ? 2 : 1))
            point = point * (hexadecimal ? 16 : 10) + static_cast<char32_t>(DigitValue(digit, hexadecimal));
        std::array<char, 4> bytes;
        text.append(bytes.data(), PutUtf8(bytes.data(), point));
    }
}

// Drops the line feed behind a carriage return from the front of the rest.
void SkipLineFeed(std::string_view& rest) noexcept
{
    if (rest.starts_with('\n'))
        rest.remove_prefix(1);
}

void AppendWithLineFeeds(std::string& text, std::string_view raw)
{
    for (;;) {
        const std::size_t stop = raw.find('\r');
        text.append(raw.substr(0, stop));
        if (stop == std::string_view::npos)
            return;
        text.push_back('\n');
        raw.remove_prefix(stop + 1);
        SkipLineFeed(raw);
    }
}

void AppendCharacters(std::string& text, std::string_view raw)
{
    for (;;) {
        const std::size_t stop = raw.find('&');
        AppendWithLineFeeds(text, raw.substr(0, stop));
        if (stop == std::string_view::npos)
            return;
        const std::size_t end = raw.find(';', stop);
        AppendReference(text, raw.substr(stop + 1, end - stop - 1));
        raw.remove_prefix(end + 1);
    }
}

} // namespace

std::size_t MarkupLength(std::string_view content) noexcept
{
    if (content.starts_with("<!--"))
        return content.find("-->", 4) + 3;
    if (content.starts_with("<![CDATA["))
        return content.find("]]>", 9) + 3;
    if (content.starts_with("<?"))
        return content.find("?>", 2) + 2;
    return static_cast<std::size_t>(FindTagEnd(content.data() + 1, content.data() + content.size()) + 1 -
                                    content.data());
}

void AppendContentText(std::string& text, std::string_view content)
{
    while (!content.empty()) {
        const std::size_t markup = content.find('<');
        AppendCharacters(text, content.substr(0, markup));
        if (markup == std::string_view::npos)
            return;
        content.remove_prefix(markup);
        const std::size_t length = MarkupLength(content);
        if (content.starts_with("<![CDATA["))
            AppendWithLineFeeds(text, content.substr(9, length - 12));
        content.remove_prefix(length);
    }
}

std::string AttributeValue(std::string_view raw)
{
    std::string value;
    for (;;) {
        const std::size_t stop = raw.find_first_of("&\t\r\n");
        value.append(raw.substr(0, stop));
        if (stop == std::string_view::npos)
            return value;
        const char found = raw[stop];
        if (found == '&') {
            const std::size_t end = raw.find(';', stop);
            AppendReference(value, raw.substr(stop + 1, end - stop - 1));
            raw.remove_prefix(end + 1);
            continue;
        }
        value.push_back(' ');
        raw.remove_prefix(stop + 1);
        if (found == '\r')
            SkipLineFeed(raw);
    }
}

} // namespace rulemesh::xml
