#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "document/xml_document.h"

using namespace rulemesh;

namespace {

// A promise that was broken ends the run, and the fuzzer keeps the input.
void Require(bool holds)
{
    if (!holds)
        std::abort();
}

// Touches every element and edits some, chosen by their place.
void Edit(XmlDocument& document)
{
    std::size_t count = 0;
    for (XmlNode node = document.documentElement(); node && count < 200; ++count) {
        static_cast<void>(node.getNamedItem(u"k"));
        if (count % 3 == 1)
            node.setNamedItem(u"k", node.text());
        if (count % 5 == 2)
            node.appendChild(node.cloneNode());
        if (count % 7 == 3 && node.hasChildNodes())
            node.removeChild(node.firstChild());
        if (count % 11 == 4)
            node.text(node.text() + u"<&\r\n");
        const XmlNode child = node.firstChild();
        node = child ? child : node.nextSibling();
    }
}

} // namespace

// What loads must come back as it was, in UTF-16 as in UTF-8; what was edited must load again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    XmlDocument document;
    if (!document.loadXML(text))
        return 0;
    const std::string back = document.xmlUtf8();
    Require(back == (text.starts_with("\xEF\xBB\xBF") ? text.substr(3) : text));
    XmlDocument twin;
    Require(twin.loadXML(document.xml()) && twin.xmlUtf8() == back);
    Require(twin.documentElement().text() == document.documentElement().text());
    Edit(document);
    const std::string edited = document.xmlUtf8();
    Require(twin.loadXML(edited));
    Require(twin.documentElement().baseName() == document.documentElement().baseName());
    return 0;
}
