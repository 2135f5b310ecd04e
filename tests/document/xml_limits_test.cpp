#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "document/xml_document.h"

// Depth and numbers that a document may have. What would take the square of its size here takes minutes or the whole
// call stack, and so does not pass unnoticed.

namespace rulemesh {
namespace {

constexpr int Depth = 1000000;
constexpr int Many = 50000;

std::string Repeated(std::string_view text, int count)
{
    std::string result;
    result.reserve(text.size() * static_cast<std::size_t>(count));
    for (int done = 0; done < count; ++done)
        result += text;
    return result;
}

TEST(XmlLimits, AMillionLevelsAreLoadedReadWalkedClonedAndWritten)
{
    const std::string text = Repeated("<a>", Depth) + "x" + Repeated("</a>", Depth);
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(text));
    EXPECT_EQ(document.documentElement().text(), u"x");
    EXPECT_EQ(document.getElementsByTagName(u"a").size(), static_cast<std::size_t>(Depth));
    XmlNode node = document.documentElement();
    while (node.hasChildNodes())
        node = node.firstChild();
    node.setNamedItem(u"k", u"1");
    const XmlNode clone = document.documentElement().cloneNode();
    EXPECT_EQ(clone.text(), u"x");
    document.documentElement().appendChild(clone);
    EXPECT_EQ(document.xmlUtf8().size(), 2 * text.size() + 2 * std::string(" k=\"1\"").size());
}

TEST(XmlLimits, AMillionLevelsAreBuilt)
{
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(std::string("<a/>")));
    XmlNode node = document.documentElement();
    for (int level = 1; level < Depth; ++level)
        node = node.appendChild(document.createNode(u"a"));
    node.text(u"x");
    EXPECT_EQ(document.documentElement().text(), u"x");
    EXPECT_EQ(document.xmlUtf8(), Repeated("<a>", Depth) + "x" + Repeated("</a>", Depth));
}

TEST(XmlLimits, AMillionOpenTagsAreRefused)
{
    EXPECT_FALSE(XmlDocument().loadXML(Repeated("<a>", Depth)));
    EXPECT_FALSE(XmlDocument().loadXML(Repeated("<a>", Depth) + Repeated("</a>", Depth - 1)));
}

TEST(XmlLimits, NamesOfAMillionCharactersMustMatchToTheLast)
{
    const std::string name(std::size_t{2} * Depth, 'a');
    EXPECT_TRUE(XmlDocument().loadXML("<" + name + "></" + name + ">"));
    EXPECT_FALSE(XmlDocument().loadXML("<" + name + "></" + name.substr(1) + "b>"));
    EXPECT_FALSE(XmlDocument().loadXML("<" + name + "></" + name.substr(1) + ">"));
    EXPECT_FALSE(XmlDocument().loadXML("<" + name + "></" + name + "a>"));
}

TEST(XmlLimits, AMillionStepsMakeAPath)
{
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(Repeated("<a>", Depth) + Repeated("</a>", Depth)));
    Text path;
    for (int level = 0; level < Depth; ++level)
        path += u"/a";
    EXPECT_TRUE(document.selectSingleNode(path));
    EXPECT_FALSE(document.selectSingleNode(path + u"/a"));
}

TEST(XmlLimits, AHundredThousandAttributesAreCheckedReadAndWritten)
{
    std::string text = "<a";
    for (int number = 0; number < 2 * Many; ++number)
        text += " attribute" + std::to_string(number) + "='" + std::to_string(number) + "'";
    EXPECT_FALSE(XmlDocument().loadXML(text + " attribute7=''/>"));
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(text + "/>"));
    const XmlNode root = document.documentElement();
    for (int number = 0; number < 2 * Many; ++number) {
        const std::string digits = std::to_string(number);
        const Text value(digits.begin(), digits.end());
        EXPECT_EQ(root.getNamedItem(u"attribute" + value), value);
        root.setNamedItem(u"new" + value, value);
    }
    EXPECT_EQ(root.getNamedItem(u"new99999"), u"99999");
}

TEST(XmlLimits, ManyAttributesWithNamesOfOneBeginningAndEndAreChecked)
{
    std::string text = "<a";
    for (int number = 0; number < Many; ++number)
        text += " beginning" + std::to_string(number) + "ending12=''";
    EXPECT_TRUE(XmlDocument().loadXML(text + "/>"));
    EXPECT_FALSE(XmlDocument().loadXML(text + " beginning31ending12=''/>"));
}

TEST(XmlLimits, ManyChildrenAreAppendedFoundAndRemovedOneByOne)
{
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(std::string("<r><d No='first'/></r>")));
    const XmlNode root = document.documentElement();
    const auto find = [&](int number) {
        const std::string digits = std::to_string(number);
        return document.selectSingleNode(u"/r/d", u"No", Text(digits.begin(), digits.end()));
    };
    for (int number = 0; number < Many; ++number) {
        EXPECT_FALSE(find(number));
        const std::string digits = std::to_string(number);
        const XmlNode child = document.createNode(u"d");
        child.setNamedItem(u"No", Text(digits.begin(), digits.end()));
        root.appendChild(child);
        EXPECT_EQ(find(number), child);
    }
    for (int number = 0; number < Many; ++number) {
        root.removeChild(find(number));
        EXPECT_FALSE(find(number));
        EXPECT_EQ(document.selectSingleNode(u"/r/d"), root.firstChild());
    }
    EXPECT_EQ(document.xmlUtf8(), "<r><d No='first'/></r>");
}

TEST(XmlLimits, ManyLoadedChildrenAreReplacedAndRemovedFromEitherEnd)
{
    XmlDocument document;
    ASSERT_TRUE(document.loadXML("<r>" + Repeated("<d/> ", Many + 1) + "</r>"));
    const XmlNode root = document.documentElement();
    std::vector<XmlNode> children = root.childNodes();
    for (std::size_t at = children.size(); at-- > 0;) {
        const XmlNode made = document.createNode(at % 2 == 0 ? u"e" : u"d");
        root.replaceChild(made, children[at]);
        EXPECT_EQ(document.selectSingleNode(u"/r/e"), at % 2 == 0 ? made : children[at + 1]);
        children[at] = made;
    }
    for (std::size_t at = children.size(); at-- > 0;)
        root.removeChild(children[at]);
    EXPECT_EQ(document.xmlUtf8(), "<r>" + Repeated(" ", Many + 1) + "</r>");
}

TEST(XmlLimits, AKeyThatIsChangedAgainAndAgainIsFound)
{
    XmlDocument document;
    ASSERT_TRUE(document.loadXML("<r>" + Repeated("<d/>", 100) + "</r>"));
    const XmlNode child = document.documentElement().firstChild();
    for (int number = 0; number < Many; ++number) {
        child.setNamedItem(u"k", number % 2 == 0 ? u"even" : u"odd");
        EXPECT_EQ(document.selectSingleNode(u"/r/d", u"k", u"even"), number % 2 == 0 ? child : XmlNode());
    }
}

} // namespace
} // namespace rulemesh
