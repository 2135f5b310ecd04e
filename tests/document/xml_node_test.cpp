#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/failure.h"
#include "document/xml_document.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;

template <typename Action> std::optional<FailureCode> FailureOf(Action action)
{
    try {
        action();
        return std::nullopt;
    } catch (const Failure& failure) {
        return failure.Code();
    }
}

std::vector<Text> NamesOf(const std::vector<XmlNode>& nodes)
{
    std::vector<Text> names;
    names.reserve(nodes.size());
    for (const XmlNode& node : nodes)
        names.push_back(node.baseName());
    return names;
}

class XmlNodeReading : public testing::Test {
protected:
    XmlNode Root(std::string text)
    {
        EXPECT_TRUE(document_.loadXML(std::move(text)));
        return document_.documentElement();
    }

    XmlDocument document_;
};

TEST_F(XmlNodeReading, NamesKeepTheirPrefix) { EXPECT_EQ(Root("<x:a.b-c_1/>").baseName(), u"x:a.b-c_1"); }

TEST_F(XmlNodeReading, TextIsTrimmedOfFourKindsOfSpaceOnly)
{
    EXPECT_EQ(Root("<a> \t\r\n one  two \n</a>").text(), u"one  two");
    EXPECT_EQ(Root("<a>&#13;&#10;&#9; one&#32;</a>").text(), u"one");
    EXPECT_EQ(Root("<a>\u00A0one\u00A0</a>").text(), u"\u00A0one\u00A0");
    EXPECT_EQ(Root("<a> \n </a>").text(), u"");
}

TEST_F(XmlNodeReading, TextHasLineFeedsForLineEnds)
{
    EXPECT_EQ(Root("<a>1\r\n2\r3\n4\r\r\n5<![CDATA[6\r\n7\r8]]></a>").text(), u"1\n2\n3\n4\n\n56\n7\n8");
    EXPECT_EQ(Root("<a>1&#13;&#10;2&#xD;3</a>").text(), u"1\r\n2\r3");
    EXPECT_EQ(Root("<a>1\r<!-- -->\n2</a>").text(), u"1\n\n2");
}

TEST_F(XmlNodeReading, TextResolvesReferencesOnce)
{
    EXPECT_EQ(Root("<a>&lt;&gt;&amp;&quot;&apos;&#65;&#x1F600;&amp;lt;</a>").text(), u"<>&\"'A\U0001F600&lt;");
}

TEST_F(XmlNodeReading, TextHoldsThatOfEverythingBelow)
{
    EXPECT_EQ(Root("<a>1<b x='no'>2<c/><d>3</d></b><!-- no --><?no no?><![CDATA[<4>]]>5</a>").text(), u"123<4>5");
}

TEST_F(XmlNodeReading, AttributeValuesAreNormalised)
{
    const XmlNode root = Root("<a v='1\t2\r\n3\r4\n5 &#9;&#13;&#10; &lt;&quot;' w=\"'\" x = ''/>");
    EXPECT_EQ(root.getNamedItem(u"v"), u"1 2 3 4 5 \t\r\n <\"");
    EXPECT_EQ(root.getNamedItem(u"w"), u"'");
    EXPECT_EQ(root.getNamedItem(u"x"), u"");
    EXPECT_EQ(root.getNamedItem(u"y"), std::nullopt);
    EXPECT_EQ(root.getNamedItem(u"V"), std::nullopt);
}

TEST_F(XmlNodeReading, ChildrenAreChildElements)
{
    const XmlNode root = Root("<a> t <b/><!-- <no/> --><c><no/></c><?no <no/>?><![CDATA[<no/>]]><d x='/>'/></a>");
    EXPECT_THAT(NamesOf(root.childNodes()), ElementsAre(u"b", u"c", u"d"));
    EXPECT_EQ(root.firstChild().baseName(), u"b");
    EXPECT_EQ(root.firstChild().nextSibling().baseName(), u"c");
    EXPECT_FALSE(root.firstChild().nextSibling().nextSibling().nextSibling());
    EXPECT_FALSE(root.nextSibling());
}

TEST_F(XmlNodeReading, WhiteSpaceAndCommentsAreNoChildren)
{
    const XmlNode root = Root("<a> <!-- x --> text </a>");
    EXPECT_FALSE(root.hasChildNodes());
    EXPECT_FALSE(root.firstChild());
    EXPECT_TRUE(root.childNodes().empty());
    EXPECT_TRUE(Root("<a> <b/> </a>").hasChildNodes());
}

TEST_F(XmlNodeReading, ANodeIsTheSameHoweverItIsReached)
{
    const XmlNode root = Root("<a><b/></a>");
    EXPECT_EQ(root.firstChild(), document_.selectSingleNode(u"/a/b"));
    EXPECT_EQ(root.firstChild(), root.childNodes().at(0));
    EXPECT_NE(root.firstChild(), root);
}

TEST_F(XmlNodeReading, ElementsByTagNameComeInDocumentOrder)
{
    const XmlNode root = Root("<b i='0'><a i='1'><b i='2'><b i='3'/></b></a><c/><b i='4'/></b>");
    std::vector<Text> found;
    for (const XmlNode& node : document_.getElementsByTagName(u"b"))
        found.push_back(*node.getNamedItem(u"i"));
    EXPECT_THAT(found, ElementsAre(u"0", u"2", u"3", u"4"));
    EXPECT_EQ(document_.getElementsByTagName(u"b").front(), root);
    EXPECT_TRUE(document_.getElementsByTagName(u"x").empty());
}

TEST(DocumentFirstChild, IsTheRootWhenNothingButSpaceStandsBeforeIt)
{
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(std::string(" \n<a/><!-- behind -->")));
    EXPECT_EQ(document.firstChild(), document.documentElement());
}

class DocumentFirstNode : public testing::TestWithParam<const char*> {};

TEST_P(DocumentFirstNode, IsNoElementAndTakesNoChildren)
{
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(std::string(GetParam()) + "<a/>"));
    const XmlNode first = document.firstChild();
    ASSERT_TRUE(first);
    EXPECT_NE(first, document.documentElement());
    const XmlNode child = document.createNode(u"b");
    EXPECT_EQ(FailureOf([&] { first.appendChild(child); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { first.removeChild(child); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { first.removeChildren(); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { first.setNamedItem(u"x", u""); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { first.text(u"x"); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(first.text(), u"");
    EXPECT_EQ(first.getNamedItem(u"version"), std::nullopt);
    EXPECT_FALSE(first.hasChildNodes());
    EXPECT_FALSE(first.selectSingleNode(u"a"));
    EXPECT_EQ(document.xmlUtf8(), std::string(GetParam()) + "<a/>");
}

INSTANTIATE_TEST_SUITE_P(BeforeTheRoot, DocumentFirstNode,
                         testing::Values("<?xml version='1.0'?>", "<!-- c -->", "<?p d?>", "\n<!-- c -->\n<?p d?>\n"));

TEST(NullNode, RaisesObjectVariableNotSetFromEveryMember)
{
    const XmlNode null;
    EXPECT_FALSE(null);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(null.baseName()); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(null.text()); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { null.text(u""); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(null.getNamedItem(u"a")); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { null.setNamedItem(u"a", u""); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(null.hasChildNodes()); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(null.firstChild()); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(null.nextSibling()); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(null.childNodes()); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(null.selectSingleNode(u"a")); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { null.removeChildren(); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(null.cloneNode()); }), FailureCode::ObjectVariableNotSet);
}

TEST(NullNode, RaisesWhenItIsGivenAsAChild)
{
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(std::string("<a><b/></a>")));
    const XmlNode root = document.documentElement();
    EXPECT_EQ(FailureOf([&] { root.appendChild({}); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { root.removeChild({}); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { root.replaceChild({}, root.firstChild()); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { root.replaceChild(document.createNode(u"c"), {}); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(document.xmlUtf8(), "<a><b/></a>");
}

} // namespace
} // namespace rulemesh
