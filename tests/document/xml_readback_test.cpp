#include <string>

#include <gtest/gtest.h>

#include "document/xml_document.h"

namespace rulemesh {
namespace {

class XmlReadBack : public testing::Test {
protected:
    XmlNode Root(std::string text)
    {
        EXPECT_TRUE(document_.loadXML(std::move(text)));
        return document_.documentElement();
    }
    [[nodiscard]] std::string Back() const { return document_.xmlUtf8(); }

    // What comes back when the text of the root is written.
    std::string WithText(std::string text, TextView written, CarriageReturns returns = CarriageReturns::AsLineEnds)
    {
        Root(std::move(text)).text(written, returns);
        return Back();
    }

    // What comes back when the attribute `k` of the root is written.
    std::string WithValue(std::string text, TextView written)
    {
        Root(std::move(text)).setNamedItem(u"k", written);
        return Back();
    }

    XmlDocument document_;
};

TEST_F(XmlReadBack, IsByteForByteWhatCameIn)
{
    const std::string text = " \r\n<?xml-p  x ?><!-- & -->\n<a  b = '&#x41;&quot;'\tc=\"\r\n\"  ><b/><b /><b></b >"
                             "<![CDATA[ ]]>&#13;\r\n&lt;\r\u00E4\U0001F600</a\n> <!----> ";
    Root(text);
    EXPECT_EQ(Back(), text);
}

TEST_F(XmlReadBack, IsTheSameAfterLookingAtEverything)
{
    const std::string text = "<a x='1'> <b> <c/>t</b> <!-- --><b k='2'/> </a>";
    const XmlNode root = Root(text);
    EXPECT_EQ(root.childNodes().at(0).childNodes().size(), 1U);
    EXPECT_EQ(document_.selectSingleNode(u"/a/b", u"k", u"2").text(), u"");
    EXPECT_EQ(Back(), text);
}

TEST_F(XmlReadBack, KeepsThePlacesAroundAWrittenText)
{
    Root("<?p?> <a> <b x = '1' >old</b > <c/> </a>\n").firstChild().text(u"new");
    EXPECT_EQ(Back(), "<?p?> <a> <b x = '1' >new</b > <c/> </a>\n");
}

TEST_F(XmlReadBack, EscapesWrittenText)
{
    EXPECT_EQ(WithText("<a>x</a>", u"1 < 2 && 3 > 2 \"'\t]]>"), "<a>1 &lt; 2 &amp;&amp; 3 &gt; 2 \"'\t]]&gt;</a>");
    EXPECT_EQ(WithText("<a/>", u"&lt;"), "<a>&amp;lt;</a>");
}

TEST_F(XmlReadBack, OpensAnEmptyTagForATextAndKeepsItForNone)
{
    EXPECT_EQ(WithText("<a b='1' />", u"x"), "<a b='1' >x</a>");
    EXPECT_EQ(WithText("<a/>", u""), "<a/>");
    EXPECT_EQ(WithText("<a/>", u" \r\n"), "<a/>");
    EXPECT_EQ(WithText("<a>x</a >", u""), "<a></a >");
}

TEST_F(XmlReadBack, GivesTheFormThatCameWhenTheTextReadsTheSame)
{
    EXPECT_EQ(WithText("<a>&#65;&gt;<![CDATA[<]]></a>", u"A><"), "<a>&#65;&gt;<![CDATA[<]]></a>");
    EXPECT_EQ(WithText("<a>\n one <!-- c -->\n</a>", u"one"), "<a>\n one <!-- c -->\n</a>");
    EXPECT_EQ(WithText("<a> one </a>", u"\tone\r\n"), "<a> one </a>");
    EXPECT_EQ(WithText("<a>one</a>", u"One"), "<a>One</a>");
}

TEST_F(XmlReadBack, CountsLineEndsAsXmlCountsThem)
{
    EXPECT_EQ(WithText("<a>1\r\n2\r3\n4</a>", u"1\r\n2\r\n3\n4"), "<a>1\r\n2\r3\n4</a>");
    EXPECT_EQ(WithText("<a>1&#13;&#10;2</a>", u"1\r\n2"), "<a>1&#13;&#10;2</a>");
    EXPECT_EQ(WithText("<a>1\n2</a>", u"1\r2"), "<a>1\n2</a>");
    EXPECT_EQ(WithText("<a>1\n2</a>", u"1\r\r\n2"), "<a>1&#13;\n2</a>");
    EXPECT_EQ(WithValue("<a k='1\n2'/>", u"1\r\n2"), "<a k=\"1&#13;&#10;2\"/>");
}

TEST_F(XmlReadBack, ReturnsToTheFormThatCameAfterAnotherText)
{
    const XmlNode root = Root("<a>&#65;</a>");
    root.text(u"B");
    EXPECT_EQ(Back(), "<a>B</a>");
    root.text(u"A");
    EXPECT_EQ(Back(), "<a>&#65;</a>");
}

TEST_F(XmlReadBack, DoesNotReviveRemovedChildren)
{
    const XmlNode root = Root("<a><b/></a>");
    root.removeChild(root.firstChild());
    root.text(u"");
    EXPECT_EQ(Back(), "<a></a>");
}

TEST_F(XmlReadBack, WritesLineEndsAsTheTextThatCame)
{
    EXPECT_EQ(WithText("<a>1\n2</a>", u"x\r\ny"), "<a>x\ny</a>");
    EXPECT_EQ(WithText("<a>1\r\n2\n</a>", u"x\r\ny"), "<a>x\r\ny</a>");
    EXPECT_EQ(WithText("<a>1</a>", u"x\r\ny"), "<a>x\r\ny</a>");
    EXPECT_EQ(WithText("<a>1\r2</a>", u"x\r\ny"), "<a>x\r\ny</a>");
    EXPECT_EQ(WithText("<a>1\r2\n</a>", u"x\r\ny\nz"), "<a>x\ny\nz</a>");
}

TEST_F(XmlReadBack, WritesALoneCarriageReturnAsReference)
{
    EXPECT_EQ(WithText("<a>1\n2</a>", u"x\ry\r\r\nz\r"), "<a>x&#13;y&#13;\nz&#13;</a>");
}

TEST_F(XmlReadBack, KeepsTheCarriageReturnsOfARule)
{
    EXPECT_EQ(WithText("<a>1\n2</a>", u"x\r\ny", CarriageReturns::Kept), "<a>x&#13;\ny</a>");
    EXPECT_EQ(WithText("<a>1&#13;\n2</a>", u"1\r\n2", CarriageReturns::Kept), "<a>1&#13;\n2</a>");
}

TEST_F(XmlReadBack, GivesBackTheFormThatCameWhenOnlyLineEndsDiffer)
{
    EXPECT_EQ(WithText("<a>1\n2</a>", u"1\r\n2", CarriageReturns::Kept), "<a>1\n2</a>");
    EXPECT_EQ(WithText("<a>1&#13;\n2</a>", u"1\n2"), "<a>1&#13;\n2</a>");
    EXPECT_EQ(WithText("<a>1&#13;\n2</a>", u"1\r\n2"), "<a>1&#13;\n2</a>");
    EXPECT_EQ(WithText("<a> 1&#13;2 </a>", u"1\n2"), "<a> 1&#13;2 </a>");
}

TEST_F(XmlReadBack, HoldsWrittenTextAsItStandsInMemory)
{
    const XmlNode root = Root("<a>1\n2</a>");
    root.text(u"  x\r\ny\r\t");
    EXPECT_EQ(root.text(), u"x\r\ny");
    root.text(u"1\r\n2");
    EXPECT_EQ(root.text(), u"1\r\n2");
    EXPECT_EQ(Back(), "<a>1\n2</a>");
}

TEST_F(XmlReadBack, ReplacesCharactersThatXmlCannotHold)
{
    const Text lone(1, char16_t(0xD800));
    const Text zero(1, u'\0');
    const XmlNode root = Root("<a/>");
    root.text(u"1" + zero + u"\u0001\u001F\t\n\u007F\uFFFE\uFFFF" + lone + u"\U0001F600");
    EXPECT_EQ(root.text(), u"1\uFFFD\uFFFD\uFFFD\t\n\u007F\uFFFD\uFFFD\uFFFD\U0001F600");
    root.setNamedItem(u"k", u"\u0002" + lone);
    EXPECT_EQ(root.getNamedItem(u"k"), u"\uFFFD\uFFFD");
    EXPECT_TRUE(XmlDocument().loadXML(document_.xml()));
}

TEST_F(XmlReadBack, ChangesOnlyTheAttributeThatWasWritten)
{
    EXPECT_EQ(WithValue("<a  j='1'\n k = '2'  l=\"3\" />", u"x"), "<a  j='1'\n k=\"x\"  l=\"3\" />");
    EXPECT_EQ(WithValue("<a  j = '1' ><b/></a>", u"x"), "<a  j = '1' k=\"x\" ><b/></a>");
    EXPECT_EQ(WithValue("<a/>", u""), "<a k=\"\"/>");
}

TEST_F(XmlReadBack, EscapesWrittenValues)
{
    EXPECT_EQ(WithValue("<a/>", u"1 < 2 & \"3\" > '2'\t\r\n"),
              "<a k=\"1 &lt; 2 &amp; &quot;3&quot; > '2'&#9;&#13;&#10;\"/>");
}

TEST_F(XmlReadBack, GivesTheAttributeThatCameWhenTheValueReadsTheSame)
{
    EXPECT_EQ(WithValue("<a k = '&#65;\n&quot;'/>", u"A \""), "<a k = '&#65;\n&quot;'/>");
    EXPECT_EQ(WithValue("<a k='A'/>", u"A "), "<a k=\"A \"/>");
}

TEST_F(XmlReadBack, WritesAValueThatDiffersInItsLineEndsAlone)
{
    EXPECT_EQ(WithValue("<a k='1&#10;2'/>", u"1\r\n2"), "<a k=\"1&#13;&#10;2\"/>");
    EXPECT_EQ(WithValue("<a k='1&#13;&#10;2'/>", u"1\n2"), "<a k=\"1&#10;2\"/>");
    EXPECT_EQ(WithValue("<a k='1&#13;2'/>", u"1\n2"), "<a k=\"1&#10;2\"/>");
    EXPECT_EQ(WithValue("<a k='1&#xD;&#xA;2'/>", u"1\r\n2"), "<a k='1&#xD;&#xA;2'/>");
}

TEST_F(XmlReadBack, LeavesTheSpaceAroundARemovedChild)
{
    const XmlNode root = Root("<a>\n <b/>\n <c>x</c> <!-- c -->\n</a>");
    root.removeChild(root.firstChild());
    EXPECT_EQ(Back(), "<a>\n \n <c>x</c> <!-- c -->\n</a>");
    root.removeChild(root.firstChild());
    EXPECT_EQ(Back(), "<a>\n \n  <!-- c -->\n</a>");
}

TEST_F(XmlReadBack, AppendsAtTheEndWithoutSpace)
{
    const XmlNode root = Root("<a>\n <b/>\n</a>");
    root.appendChild(document_.createNode(u"c")).text(u"<");
    root.appendChild(document_.createNode(u"d")).setNamedItem(u"k", u"1");
    EXPECT_EQ(Back(), "<a>\n <b/>\n<c>&lt;</c><d k=\"1\"/></a>");
}

TEST_F(XmlReadBack, OpensAnEmptyTagForAChild)
{
    Root("<a x='1'/>").appendChild(document_.createNode(u"b"));
    EXPECT_EQ(Back(), "<a x='1'><b/></a>");
}

TEST_F(XmlReadBack, MovesARemovedElementAsItIs)
{
    const XmlNode root = Root("<a><b x = '1' > t </b ><c/></a>");
    const XmlNode moved = root.removeChild(root.firstChild());
    root.firstChild().appendChild(moved);
    EXPECT_EQ(Back(), "<a><c><b x = '1' > t </b ></c></a>");
}

TEST_F(XmlReadBack, PutsAReplacementInTheSamePlace)
{
    const XmlNode root = Root("<a> <b/> <c/> <d/> </a>");
    root.replaceChild(document_.createNode(u"x"), root.childNodes().at(1));
    EXPECT_EQ(Back(), "<a> <b/> <x/> <d/> </a>");
    root.removeChild(root.childNodes().at(1));
    EXPECT_EQ(Back(), "<a> <b/>  <d/> </a>");
}

TEST_F(XmlReadBack, EmptiesAnElementWithAllThatStandsInIt)
{
    const XmlNode root = Root("<a> <b x='1' >\n t <c/><!-- --> <c/>\n</b > </a>");
    root.firstChild().removeChildren();
    EXPECT_EQ(Back(), "<a> <b x='1' ></b > </a>");
    EXPECT_EQ(root.firstChild().text(), u"");
}

TEST_F(XmlReadBack, EndsEmptyWhenThereWereNoChildElements)
{
    Root("<a> <!-- c --> </a>").removeChildren();
    EXPECT_EQ(Back(), "<a></a>");
}

TEST_F(XmlReadBack, ClonesKeepTheFormThatCame)
{
    const XmlNode root = Root("<a><b x = '1' > &#65; <c/></b ></a>");
    root.appendChild(root.firstChild().cloneNode());
    EXPECT_EQ(Back(), "<a><b x = '1' > &#65; <c/></b ><b x = '1' > &#65; <c/></b ></a>");
}

TEST_F(XmlReadBack, ClonesKeepEditsAndStandAlone)
{
    const XmlNode root = Root("<a><b> <c/> <d>1</d> </b></a>");
    const XmlNode original = root.firstChild();
    original.selectSingleNode(u"d").text(u"x\r\ny", CarriageReturns::Kept);
    original.removeChild(original.firstChild());
    original.setNamedItem(u"k", u"1");
    original.appendChild(document_.createNode(u"e"));
    const XmlNode clone = original.cloneNode();
    original.setNamedItem(u"k", u"2");
    original.removeChildren();
    root.replaceChild(clone, original);
    EXPECT_EQ(Back(), "<a><b k=\"1\">  <d>x&#13;\ny</d> <e/></b></a>");
}

TEST_F(XmlReadBack, AClonedWrittenTextStillReadsTheSame)
{
    const XmlNode root = Root("<a><b>&#65;</b></a>");
    root.firstChild().text(u"A");
    root.appendChild(root.firstChild().cloneNode());
    EXPECT_EQ(Back(), "<a><b>&#65;</b><b>&#65;</b></a>");
}

TEST_F(XmlReadBack, WritesAppendedChildrenBehindAWrittenText)
{
    const XmlNode root = Root("<a>1<b/></a>");
    root.text(u"1");
    root.appendChild(document_.createNode(u"c"));
    EXPECT_EQ(Back(), "<a>1<c/></a>");
    EXPECT_EQ(root.childNodes().size(), 1U);
}

} // namespace
} // namespace rulemesh
