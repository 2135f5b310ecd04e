#include "object/document_access.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/failure.h"
#include "base/failure_of.h"

namespace rulemesh {
namespace {

class DocumentAccessTest : public testing::Test {
protected:
    explicit DocumentAccessTest(TextView StrTable = u"tgtab001") { state_.StrTargetTable = StrTable; }

    void Load(const std::string& xml) { ASSERT_TRUE(document_.loadXML(xml)); }
    [[nodiscard]] std::string Xml() const { return document_.xmlUtf8(); }

    XmlDocument document_;
    ControlState state_;
    DocumentAccess access_{document_, state_};
};

TEST_F(DocumentAccessTest, RootPathHoldsAllEightCharacters)
{
    EXPECT_EQ(access_.RootPath(u"SRCTBL"), u"/tgtab001/SRCTBL");
    state_.StrTargetTable = u"tgt1    ";
    EXPECT_EQ(access_.RootPath(u"TARTAB/X"), u"/tgt1    /TARTAB/X");
}

TEST_F(DocumentAccessTest, GetNodeTakesTheFirstInDocumentOrder)
{
    Load(R"(<tgtab001><DUMP No="3" T="a"/><DUMP No="4"/><DUMP No="3" T="b"/></tgtab001>)");
    EXPECT_EQ(GetAttribute(access_.GetNode(u"/tgtab001/DUMP"), u"T"), u"a");
    EXPECT_EQ(GetAttribute(access_.GetNode(u"/tgtab001/DUMP", u"No", u"3"), u"T"), u"a");
    EXPECT_EQ(GetAttribute(access_.GetNode(u"/tgtab001/DUMP", u"T", u"b"), u"No"), u"3");
}

TEST_F(DocumentAccessTest, GetNodeComparesNamesAndKeysExactly)
{
    Load(R"(<tgtab001><QUERY ST="srtab001"/></tgtab001>)");
    EXPECT_TRUE(access_.GetNode(u"/tgtab001/QUERY", u"ST", u"srtab001"));
    EXPECT_FALSE(access_.GetNode(u"/tgtab001/query"));
    EXPECT_FALSE(access_.GetNode(u"/TGTAB001/QUERY"));
    EXPECT_FALSE(access_.GetNode(u"/tgtab001/QUERY", u"st", u"srtab001"));
    EXPECT_FALSE(access_.GetNode(u"/tgtab001/QUERY", u"ST", u"SRTAB001"));
    EXPECT_FALSE(access_.GetNode(u"/tgtab001/QUERY", u"ST", u""));
    EXPECT_EQ(state_.IntErrorCode, 0);
}

TEST_F(DocumentAccessTest, GetNodeKeepsTheFirstFailureAlone)
{
    Load("<tgtab001><QUERY ST=\"o'neil\"/></tgtab001>");
    EXPECT_FALSE(access_.GetNode(u"/tgtab001/QUERY", u"ST", u"o'neil"));
    EXPECT_EQ(state_.IntErrorCode, 5);
    EXPECT_FALSE(state_.StrErrorText.empty());

    const Text StrFirst = state_.StrErrorText;
    access_.RecordError(7, u"another failure", 2001, u"Error Getting Node (GetNode)");
    EXPECT_FALSE(access_.GetNode(u"/tgtab001//QUERY"));
    EXPECT_EQ(state_.IntErrorCode, 5);
    EXPECT_EQ(state_.StrErrorText, StrFirst);
}

TEST_F(DocumentAccessTest, RecordErrorPrefersTheFailuresOwnNumber)
{
    access_.RecordError(7, u"own", 2001, u"default");
    EXPECT_EQ(state_.IntErrorCode, 7);
    EXPECT_EQ(state_.StrErrorText, u"own");
}

TEST_F(DocumentAccessTest, RecordErrorTakesTheDefaultForNumberZero)
{
    access_.RecordError(0, u"own", 2001, u"default");
    EXPECT_EQ(state_.IntErrorCode, 2001);
    EXPECT_EQ(state_.StrErrorText, u"default");
}

TEST_F(DocumentAccessTest, GetNodeTextIsEmptyForAnAbsentAndForAnEmptyNode)
{
    Load("<tgtab001><PREC/><VAR>\n x \n</VAR></tgtab001>");
    EXPECT_EQ(access_.GetNodeText(u"/tgtab001/PREC"), u"");
    EXPECT_EQ(access_.GetNodeText(u"/tgtab001/SRCTBL"), u"");
    EXPECT_EQ(access_.GetNodeText(u"/tgtab001/VAR"), u"x");
}

TEST_F(DocumentAccessTest, GetAttributeReadsAnAbsentOneAsEmpty)
{
    Load(R"(<tgtab001 A="" B="x&#10;y"/>)");
    const XmlNode root = document_.documentElement();
    EXPECT_EQ(GetAttribute(root, u"A"), u"");
    EXPECT_EQ(GetAttribute(root, u"B"), u"x\ny");
    EXPECT_EQ(GetAttribute(root, u"C"), u"");
    EXPECT_EQ(FailureOf([] { static_cast<void>(GetAttribute({}, u"A")); }), FailureCode::ObjectVariableNotSet);
}

TEST_F(DocumentAccessTest, SetAttributeReplacesOrAdds)
{
    Load(R"(<tgtab001 A="1"/>)");
    EXPECT_TRUE(SetAttribute(document_.documentElement(), u"A", u"2"));
    EXPECT_TRUE(SetAttribute(document_.documentElement(), u"B", u""));
    EXPECT_EQ(Xml(), R"(<tgtab001 A="2" B=""/>)");
    EXPECT_FALSE(SetAttribute({}, u"A", u"3"));
}

TEST_F(DocumentAccessTest, AppendChildGivesAtMostOneAttribute)
{
    Load("<tgtab001><PREC/></tgtab001>");
    const XmlNode root = document_.documentElement();
    EXPECT_EQ(AppendChild(document_, root, u"SRCTBL").baseName(), u"SRCTBL");
    EXPECT_EQ(GetAttribute(AppendChild(document_, root, u"QUERY", u"ST", u"a'b"), u"ST"), u"a'b");
    EXPECT_EQ(Xml(), "<tgtab001><PREC/><SRCTBL/><QUERY ST=\"a'b\"/></tgtab001>");
    EXPECT_FALSE(AppendChild(document_, {}, u"SRCTBL"));
}

TEST(DecodeEntities, GoesByFiveStepsInTheirOrder)
{
    const std::vector<std::pair<Text, Text>> cases = {
        {u"", u""},
        {u"a&lt;b&gt;c", u"a<b>c"},
        {u"&LT;&Gt;&aMp;&QUOT;", u"<>&\""},
        {u"&amp;lt;", u"&lt;"},
        {u"a&amp;amp;b", u"a&amp;b"},
        {u"&amp;quot;", u"\""}, // the quote comes behind the ampersand
        {u"&lt;gt;", u"<gt;"},
        {u"&&lt;lt;", u"&<lt;"},
        {u"&apos;&#60;", u"&apos;&#60;"},
        {u"&lt &gt", u"&lt &gt"},
        {u"a\nb", u"a\r\nb"},
        {u"a\r\nb", u"a\r\r\nb"},
        {u"a\rb", u"a\rb"},
    };
    for (const auto& [stored, shown] : cases)
        EXPECT_EQ(DecodeEntities(stored), shown);
}

} // namespace
} // namespace rulemesh
