#include "player/canonical_xml.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace rulemesh::player {

TEST(CanonicalXml, SortsAttributesAndForgetsQuotesAndEmptyForm)
{
    EXPECT_EQ(CanonicalXml("<a y='2'\n x=\"1\" />"), R"(<a x="1" y="2"></a>)");
}

TEST(CanonicalXml, ResolvesReferencesAndCData)
{
    EXPECT_EQ(CanonicalXml("<a>&#x41;<![CDATA[<]]>&#66;&apos;</a>"), "<a>A&lt;B'</a>");
    EXPECT_EQ(CanonicalXml("<a>&#x20AC;</a>"), "<a>\xE2\x82\xAC</a>");
}

TEST(CanonicalXml, KeepsAReferencedCarriageReturnApartFromALineEnd)
{
    EXPECT_EQ(CanonicalXml("<a>1\r\n2\r3</a>"), CanonicalXml("<a>1\n2\n3</a>"));
    EXPECT_NE(CanonicalXml("<a>1&#13;\n2</a>"), CanonicalXml("<a>1\n2</a>"));
}

TEST(CanonicalXml, ReadsWhiteSpaceInAttributesAsBlanksUnlessReferenced)
{
    EXPECT_EQ(CanonicalXml("<a x='1\t2\r\n3'/>"), CanonicalXml("<a x='1 2 3'/>"));
    EXPECT_NE(CanonicalXml("<a x='1&#9;2'/>"), CanonicalXml("<a x='1 2'/>"));
}

TEST(CanonicalXml, KeepsWhatADifferenceCanHideIn)
{
    EXPECT_NE(CanonicalXml("<a> <b/></a>"), CanonicalXml("<a><b/></a>"));
    EXPECT_NE(CanonicalXml("<a><!--1--></a>"), CanonicalXml("<a><!--2--></a>"));
    EXPECT_NE(CanonicalXml("<a><b/><c/></a>"), CanonicalXml("<a><c/><b/></a>"));
    EXPECT_NE(CanonicalXml("<a x='1'/>"), CanonicalXml("<a/>"));
    EXPECT_NE(CanonicalXml("<?p 1?><a/>"), CanonicalXml("<a/>"));
}

TEST(CanonicalXml, RefusesWhatIsNoTree)
{
    for (const char* text : {"", "<a>", "<a></b>", "<a/><b/>", "x<a/>", "<a x=1/>", "<a x='1' x='2'/>", "<a>&who;</a>"})
        EXPECT_THROW((void)CanonicalXml(text), std::runtime_error) << text;
}

} // namespace rulemesh::player
