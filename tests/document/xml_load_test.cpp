#include <string>

#include <gtest/gtest.h>

#include "document/xml_document.h"

namespace rulemesh {
namespace {

bool Loads(std::string text) { return XmlDocument().loadXML(std::move(text)); }

struct Verdict {
    const char* text;
    bool isWellFormed;
};

void PrintTo(const Verdict& verdict, std::ostream* stream) { *stream << verdict.text; }

class LoadXml : public testing::TestWithParam<Verdict> {};

TEST_P(LoadXml, ChecksWellFormedness) { EXPECT_EQ(Loads(GetParam().text), GetParam().isWellFormed); }

INSTANTIATE_TEST_SUITE_P(Documents, LoadXml,
                         testing::Values(Verdict{"", false}, Verdict{" ", false}, Verdict{"a", false},
                                         Verdict{"<a/>", true}, Verdict{"<a></a>", true}, Verdict{"<a>", false},
                                         Verdict{"<a></b>", false}, Verdict{"<a></ab>", false},
                                         Verdict{"<ab></a>", false}, Verdict{"<a></a >", true},
                                         Verdict{"<a></ a>", false}, Verdict{"< a/>", false}, Verdict{"<a/ >", false},
                                         Verdict{"<a/><b/>", false}, Verdict{"<a/>text", false},
                                         Verdict{"text<a/>", false}, Verdict{" \t\r\n<a/> \t\r\n", true},
                                         Verdict{"<a/", false}, Verdict{"<a", false}, Verdict{"<", false}));

INSTANTIATE_TEST_SUITE_P(Attributes, LoadXml,
                         testing::Values(Verdict{"<a b='1'/>", true}, Verdict{"<a b=\"'\" c='\"'/>", true},
                                         Verdict{"<a b = '1' />", true}, Verdict{"<a b='1'c='2'/>", false},
                                         Verdict{"<a b='1' b='2'/>", false}, Verdict{"<a b='1' B='2'/>", true},
                                         Verdict{"<a abcdefgh='1' abcdefghi='2' abcdefghj='3'/>", true},
                                         Verdict{"<a abcdefghi='1' x='2' abcdefghi='3'/>", false},
                                         Verdict{"<a b/>", false}, Verdict{"<a b=1/>", false},
                                         Verdict{"<a b='<'/>", false}, Verdict{"<a b='>'/>", true},
                                         Verdict{"<a b='&'/>", false}, Verdict{"<a b='&lt;'/>", true},
                                         Verdict{"<a b='\n'/>", true}, Verdict{"<a b='1/>", false},
                                         Verdict{"<a></a b='1'>", false}, Verdict{"<a :='1' xmlns:='2'/>", true}));

INSTANTIATE_TEST_SUITE_P(Text, LoadXml,
                         testing::Values(Verdict{"<a>]]></a>", false}, Verdict{"<a>]]&gt;</a>", true},
                                         Verdict{"<a>]>]] ></a>", true}, Verdict{"<a>></a>", true},
                                         Verdict{"<a>&</a>", false}, Verdict{"<a>& lt;</a>", false},
                                         Verdict{"<a>&lt</a>", false}, Verdict{"<a>&nbsp;</a>", false},
                                         Verdict{"<a>&lt;&gt;&amp;&quot;&apos;</a>", true},
                                         Verdict{"<a>&#9;&#xA;&#xd7FF;&#xE000;&#x10FFFF;</a>", true},
                                         Verdict{"<a>&#0;</a>", false}, Verdict{"<a>&#x1F;</a>", false},
                                         Verdict{"<a>&#xD800;</a>", false}, Verdict{"<a>&#xFFFE;</a>", false},
                                         Verdict{"<a>&#x110000;</a>", false},
                                         Verdict{"<a>&#99999999999999999999;</a>", false}, Verdict{"<a>&#;</a>", false},
                                         Verdict{"<a>&#x;</a>", false}, Verdict{"<a>&#X41;</a>", false},
                                         Verdict{"<a>\x01</a>", false}, Verdict{"<a>\x7F</a>", true}));

INSTANTIATE_TEST_SUITE_P(
    OtherMarkup, LoadXml,
    testing::Values(Verdict{"<a><![CDATA[<&]] >]]></a>", true}, Verdict{"<a><![CDATA[]]></a>", true},
                    Verdict{"<a><![CDATA[]]]]></a>", true}, Verdict{"<a><![CDATA[]></a>", false},
                    Verdict{"<a><![cdata[]]></a>", false}, Verdict{"<![CDATA[]]><a/>", false},
                    Verdict{"<!----><a/>", true}, Verdict{"<!-- - --><a/>", true}, Verdict{"<!-- -- --><a/>", false},
                    Verdict{"<!-- ---><a/>", false}, Verdict{"<!--><a/>", false}, Verdict{"<!---><a/>", false},
                    Verdict{"<a><!-- < & > --></a>", true}, Verdict{"<?p?><a/>", true}, Verdict{"<?p ?><a/>", true},
                    Verdict{"<?p x > ? ?><a/>", true}, Verdict{"<?p+?><a/>", false}, Verdict{"<? ?><a/>", false},
                    Verdict{"<?p x><a/>", false}, Verdict{"<?XML x?><a/>", false}, Verdict{"<?xmla x?><a/>", true},
                    Verdict{"<!DOCTYPE a><a/>", false}, Verdict{"<!-- <!DOCTYPE a> --><a/>", true},
                    Verdict{"<a/><!-- x --> <?p x?>", true}));

INSTANTIATE_TEST_SUITE_P(
    Declaration, LoadXml,
    testing::Values(Verdict{"<?xml version='1.0'?><a/>", true}, Verdict{"<?xml version=\"1.17\" ?><a/>", true},
                    Verdict{"<?xml version='1.0' encoding='UTF-16' standalone='no'?><a/>", true},
                    Verdict{"<?xml version='1.0' standalone='yes'?><a/>", true},
                    Verdict{"<?xml version='1.0' standalone='YES'?><a/>", false},
                    Verdict{"<?xml version='1.0' standalone='yes' encoding='UTF-8'?><a/>", false},
                    Verdict{"<?xml version='1.0'encoding='UTF-8'?><a/>", false},
                    Verdict{"<?xml version='1.0' encoding='-8'?><a/>", false}, Verdict{"<?xml?><a/>", false},
                    Verdict{"<?xml version='1.'?><a/>", false}, Verdict{"<?xml version='2.0'?><a/>", false},
                    Verdict{"<?xml encoding='UTF-8'?><a/>", false}, Verdict{" <?xml version='1.0'?><a/>", false},
                    Verdict{"<a><?xml version='1.0'?></a>", false}, Verdict{"<?xml version='1.0'?>", false}));

INSTANTIATE_TEST_SUITE_P(
    BeyondAscii, LoadXml,
    testing::Values(Verdict{"<\u00C0\u00B7/>", true}, Verdict{"<\u00B7/>", false}, Verdict{"<a\u00D7/>", false},
                    Verdict{"<\U00010000 \u0391='\U0001F600'/>", true}, Verdict{"<\U000F0000/>", false},
                    Verdict{"<a>\uFFFD\U0010FFFF</a>", true}, Verdict{"<a>\uFFFE</a>", false},
                    Verdict{"<a>\xED\xA0\x80</a>", false}, Verdict{"<a>\xC0\x80</a>", false},
                    Verdict{"<a>\xC3</a>", false}, Verdict{"<a>\xE2\x82</a>", false}, Verdict{"<a>\xFF</a>", false},
                    Verdict{"<a>\xF4\x90\x80\x80</a>", false}, Verdict{"<a>\xE0\x80\x80</a>", false},
                    Verdict{"<a b='\xC3\xA4'></a>", true}, Verdict{"<a b='\xC3'></a>", false}));

TEST(LoadXmlText, RefusesAZeroInsideAndBehindTheDocument)
{
    EXPECT_FALSE(Loads(std::string("<a>\0</a>", 8)));
    EXPECT_FALSE(Loads(std::string("<a/>\0", 5)));
}

TEST(LoadXmlText, RefusesEveryBeginningOfADocument)
{
    const std::string text = "<?xml version='1.0'?><!--c--><?p d?><a b=\"1\"><b c='&#65;'>t&amp;<![CDATA[x]]></b></a>";
    ASSERT_TRUE(Loads(text));
    for (std::size_t length = 0; length < text.size(); ++length)
        EXPECT_FALSE(Loads(text.substr(0, length))) << length;
}

TEST(LoadXmlText, DropsAByteOrderMark)
{
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(std::string("\xEF\xBB\xBF<a/>")));
    EXPECT_EQ(document.xmlUtf8(), "<a/>");
    ASSERT_TRUE(document.loadXML(TextView(u"\uFEFF<a/>")));
    EXPECT_EQ(document.xml(), u"<a/>");
    EXPECT_FALSE(document.loadXML(TextView(u"\uFEFF\uFEFF<a/>")));
}

TEST(LoadXmlText, RefusesALoneSurrogate)
{
    XmlDocument document;
    EXPECT_FALSE(document.loadXML(Text(u"<a>") + char16_t(0xD800) + u"</a>"));
    EXPECT_FALSE(document.loadXML(Text(u"<a>") + char16_t(0xDC00) + char16_t(0xD800) + u"</a>"));
    EXPECT_TRUE(document.loadXML(Text(u"<a>") + char16_t(0xD800) + char16_t(0xDC00) + u"</a>"));
}

TEST(LoadXmlText, IsEmptyAfterAFailedLoad)
{
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(std::string("<a/>")));
    ASSERT_FALSE(document.loadXML(std::string("<a>")));
    EXPECT_EQ(document.xml(), u"");
    EXPECT_FALSE(document.documentElement());
    EXPECT_FALSE(document.firstChild());
    EXPECT_FALSE(document.selectSingleNode(u"/a"));
    EXPECT_TRUE(document.getElementsByTagName(u"a").empty());
}

TEST(LoadXmlText, ReplacesWhatWasLoadedBefore)
{
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(std::string("<a><b/></a>")));
    document.documentElement().removeChildren();
    ASSERT_TRUE(document.loadXML(std::string("<c/>")));
    EXPECT_EQ(document.xml(), u"<c/>");
    EXPECT_FALSE(document.selectSingleNode(u"/a"));
}

TEST(LoadXmlText, GivesTheSameCharactersBackAsUtf16)
{
    // Long enough to pass through the conversion in several pieces, with characters of each length at all offsets.
    Text text = u"<a>";
    for (int count = 0; count < 9000; ++count)
        text.append(static_cast<std::size_t>(count % 19), u'x').append(u"\u00E4\u20AC\U0001F600");
    text += u"</a>";
    XmlDocument document;
    ASSERT_TRUE(document.loadXML(text));
    EXPECT_EQ(document.xml(), text);
}

} // namespace
} // namespace rulemesh
