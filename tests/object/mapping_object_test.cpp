#include "object/mapping_object.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/failure.h"
#include "base/failure_of.h"
#include "object/object_copy.h"

namespace rulemesh {
namespace {

class MappingObjectTest : public testing::Test {
protected:
    explicit MappingObjectTest(TextView StrTable = u"tgtab001") { state_.StrTargetTable = StrTable; }

    void Load(const std::string& xml) { ASSERT_TRUE(document_.loadXML(xml)); }
    [[nodiscard]] std::string Xml() const { return document_.xmlUtf8(); }

    XmlDocument document_;
    ControlState state_;
    MappingObject object_{document_, state_};
};

TEST_F(MappingObjectTest, SetNodeTextWritesTheNodeThatGetNodeFinds)
{
    Load(R"(<tgtab001><QUERY ST="a">1</QUERY><QUERY ST="b">2</QUERY><PREC/></tgtab001>)");
    EXPECT_TRUE(object_.SetNodeText(u"/tgtab001/QUERY", u"x", u"ST", u"b"));
    EXPECT_TRUE(object_.SetNodeText(u"/tgtab001/QUERY", u"y"));
    EXPECT_TRUE(object_.SetNodeText(u"/tgtab001/PREC", u""));
    EXPECT_EQ(Xml(), R"(<tgtab001><QUERY ST="a">y</QUERY><QUERY ST="b">x</QUERY><PREC/></tgtab001>)");
}

TEST_F(MappingObjectTest, SetNodeTextMakesNothing)
{
    const std::string xml = R"(<tgtab001><QUERY ST="a">1</QUERY></tgtab001>)";
    Load(xml);
    EXPECT_FALSE(object_.SetNodeText(u"/tgtab001/QUERY", u"x", u"ST", u"b"));
    EXPECT_FALSE(object_.SetNodeText(u"/tgtab001/VAR", u"x"));
    EXPECT_EQ(state_.IntErrorCode, 0);
    EXPECT_FALSE(object_.SetNodeText(u"/tgtab001/QUERY", u"x", u"ST", u"it's"));
    EXPECT_EQ(state_.IntErrorCode, 5);
    EXPECT_EQ(Xml(), xml);
}

TEST_F(MappingObjectTest, SettersTellTrueWhetherTheElementWasThereOrNot)
{
    Load("<tgtab001><VAR>v</VAR></tgtab001>");
    EXPECT_TRUE(object_.SetFunctionsText(u"f"));
    EXPECT_TRUE(object_.SetVariablesText(u""));
    EXPECT_EQ(Xml(), "<tgtab001><VAR></VAR><FUNCTIONS>f</FUNCTIONS></tgtab001>");
}

TEST_F(MappingObjectTest, GettersReadTheTextAsItIsStored)
{
    Load(R"(<tgtab001><SRCTBL>a,b</SRCTBL><PREC>p&amp;lt;</PREC><QUERY ST="a">qa</QUERY><QUERY ST="b">qb</QUERY>)"
         "<FUNCTIONS>f\ng</FUNCTIONS><VAR>v~|~w</VAR></tgtab001>");
    EXPECT_EQ(object_.Read().GetSourceTablesText(), u"a,b");
    EXPECT_EQ(object_.Read().GetPreconditionText(), u"p&lt;");
    EXPECT_EQ(object_.Read().GetQueryText(u"b"), u"qb");
    EXPECT_EQ(object_.Read().GetQueryText(u"c"), u"");
    EXPECT_EQ(object_.Read().GetFunctionsText(), u"f\ng");
    EXPECT_EQ(object_.Read().GetVariablesText(), u"v~|~w");
}

TEST_F(MappingObjectTest, SettersReplaceTheText)
{
    Load("<tgtab001><FUNCTIONS>f<x/></FUNCTIONS><VAR/></tgtab001>");
    object_.SetFunctionsText(u"a < b");
    object_.SetVariablesText(u"v");
    EXPECT_EQ(Xml(), "<tgtab001><FUNCTIONS>a &lt; b</FUNCTIONS><VAR>v</VAR></tgtab001>");
}

TEST_F(MappingObjectTest, SettersMakeWhatIsMissing)
{
    Load("<tgtab001><PREC/></tgtab001>");
    object_.SetVariablesText(u"v");
    object_.SetFunctionsText(u"f");
    EXPECT_EQ(Xml(), "<tgtab001><PREC/><VAR>v</VAR><FUNCTIONS>f</FUNCTIONS></tgtab001>");
}

TEST_F(MappingObjectTest, SettersFailOnAnEmptyDocument)
{
    EXPECT_EQ(FailureOf([&] { object_.SetFunctionsText(u"f"); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { object_.SetVariablesText(u"v"); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(Xml(), "");
}

TEST_F(MappingObjectTest, NothingIsAppendedBehindWhatStandsBeforeTheRoot)
{
    for (const std::string before : {"<?xml version=\"1.0\"?>", "<!--c-->", "<?p i?>"}) {
        Load(before + "<tgtab001><PREC>p</PREC></tgtab001>");
        EXPECT_EQ(object_.Read().GetPreconditionText(), u"p");
        EXPECT_EQ(FailureOf([&] { object_.SetFunctionsText(u"f"); }), FailureCode::ObjectVariableNotSet);
        EXPECT_EQ(FailureOf([&] { object_.CreateDumpNode(1, u""); }), FailureCode::ObjectVariableNotSet);
        EXPECT_EQ(Xml(), before + "<tgtab001><PREC>p</PREC></tgtab001>");
    }
}

TEST_F(MappingObjectTest, AShorterCodeMissesEveryPathAndAppendsAgain)
{
    Load("<tgtab1><PREC>p</PREC><FUNCTIONS>f</FUNCTIONS></tgtab1>");
    state_.StrTargetTable = u"tgtab1  ";
    EXPECT_EQ(object_.Read().GetPreconditionText(), u"");
    object_.SetFunctionsText(u"g");
    object_.SetFunctionsText(u"h");
    EXPECT_EQ(Xml(), "<tgtab1><PREC>p</PREC><FUNCTIONS>f</FUNCTIONS><FUNCTIONS>g</FUNCTIONS>"
                     "<FUNCTIONS>h</FUNCTIONS></tgtab1>");
}

TEST_F(MappingObjectTest, GetDumpNodeLooksForThePlainNumber)
{
    Load(R"(<tgtab001><DUMP No="05"/><DUMP No="5" TT="a"/><DUMP No="5" TT="b"/><DUMP No="-2" TT="c"/></tgtab001>)");
    EXPECT_EQ(object_.Read().GetDumpNode(5).Table(), u"a");
    EXPECT_EQ(object_.Read().GetDumpNode(-2).Table(), u"c");
    EXPECT_FALSE(object_.Read().GetDumpNode(50));
}

TEST_F(MappingObjectTest, CreateDumpNodeWritesAnEmptyCommentToo)
{
    Load("<tgtab001/>");
    object_.CreateDumpNode(7, u"| seven");
    object_.CreateDumpNode(0, u"");
    EXPECT_EQ(Xml(), R"(<tgtab001><DUMP No="7" TXT="| seven"/><DUMP No="0" TXT=""/></tgtab001>)");
}

TEST_F(MappingObjectTest, GetRuleTextFindsTheFieldInUpperCase)
{
    Load(R"(<tgtab001><DUMP No="1"><ITEM> a
b </ITEM><code>c</code></DUMP></tgtab001>)");
    EXPECT_EQ(object_.GetRuleText(1, u"item"), u"a\nb");
    EXPECT_EQ(object_.GetRuleText(1, u"ITEM"), u"a\nb");
    EXPECT_EQ(object_.GetRuleText(1, u"code"), u"");
}

TEST_F(MappingObjectTest, GetRuleTextMakesAMissingDumpOnce)
{
    Load("<tgtab001/>");
    EXPECT_EQ(object_.GetRuleText(4, u"ITEM"), u"");
    EXPECT_EQ(object_.GetRuleText(4, u"ITEM"), u"");
    EXPECT_EQ(Xml(), R"(<tgtab001><DUMP No="4"/></tgtab001>)");
}

TEST_F(MappingObjectTest, GetRuleTextMakesTheDumpsFromOneOn)
{
    Load("<tgtab001/>");
    EXPECT_EQ(object_.GetRuleText(1, u"ITEM"), u"");
    EXPECT_EQ(Xml(), R"(<tgtab001><DUMP No="1"/></tgtab001>)");
}

TEST_F(MappingObjectTest, GetRuleTextMakesNoDumpForZeroAndBelow)
{
    Load("<tgtab001/>");
    EXPECT_EQ(object_.GetRuleText(0, u"ITEM"), u"");
    EXPECT_EQ(object_.GetRuleText(-1, u"ITEM"), u"");
    EXPECT_EQ(Xml(), "<tgtab001/>");
}

TEST_F(MappingObjectTest, WhatIsAppendedGoesToTheFirstNodeWhateverItIs)
{
    for (const std::string head : {"<!--c-->", "<?p i?>", "<?xml version=\"1.0\"?>"}) {
        const std::string xml = head + "<tgtab001/>";
        Load(xml);
        const auto failsAndAppendsNothing = [&](auto append) {
            EXPECT_EQ(FailureOf(append), FailureCode::ObjectVariableNotSet) << head;
            EXPECT_EQ(Xml(), xml);
        };
        failsAndAppendsNothing([&] { static_cast<void>(object_.GetRuleText(4, u"ITEM")); });
        failsAndAppendsNothing([&] { object_.CreateDumpNode(4, u""); });
        failsAndAppendsNothing([&] { object_.SetFunctionsText(u"f"); });
        failsAndAppendsNothing([&] { object_.SetVariablesText(u"v"); });
        EXPECT_EQ(object_.GetRuleText(0, u"ITEM"), u""); // nothing is appended for 0
    }
}

TEST_F(MappingObjectTest, ReadingWritesNothing)
{
    const std::string xml = R"(<tgtab001><DUMP No="1"/><TARTAB><TGTAB001/></TARTAB></tgtab001>)";
    Load(xml);
    state_.BoolMultiTarget = true;
    const MappingReader& reader = object_.Read();
    EXPECT_EQ(reader.GetDumpNode(1).Table(), u"");
    EXPECT_FALSE(reader.GetDumpNode(2));
    EXPECT_FALSE(reader.Precondition());
    EXPECT_EQ(reader.GetDumpTargetDescription(1), u"");
    EXPECT_EQ(Xml(), xml);
    EXPECT_EQ(object_.GetDumpTargetTable(1), u"tgtab001"); // this one writes
    EXPECT_EQ(Xml(), R"(<tgtab001><DUMP No="1" TT="tgtab001"/><TARTAB><TGTAB001/></TARTAB></tgtab001>)");
}

TEST_F(MappingObjectTest, SetRuleMakesReplacesAndRemovesARecord)
{
    Load(R"(<tgtab001><DUMP No="1"><B TEXT="note" TYPE="0">b</B></DUMP></tgtab001>)");
    const DumpRecord dump = object_.Read().GetDumpNode(1);
    object_.SetRule(dump, u"A", u"x\r\ny");
    object_.SetRule(dump, u"B", u"c");
    object_.SetRule(dump, u"C", u"");
    EXPECT_EQ(Xml(), "<tgtab001><DUMP No=\"1\"><B TEXT=\"note\" TYPE=\"0\">c</B><A TEXT=\"\" TYPE=\"1\">x&#13;\ny</A>"
                     "</DUMP></tgtab001>");
    object_.SetRule(dump, u"B", u"");
    object_.SetRule(dump, u"A", u"");
    EXPECT_EQ(Xml(), R"(<tgtab001><DUMP No="1"></DUMP></tgtab001>)");
}

TEST_F(MappingObjectTest, ANewRecordHasNoteTypeAndText)
{
    Load(R"(<tgtab001><DUMP No="1"/></tgtab001>)");
    const DumpRecord dump = object_.Read().GetDumpNode(1);
    object_.AppendRule(dump, u"A", u"x < 1");
    object_.AppendRule(dump, u"B", u"x\r\ny");
    object_.AppendRule(dump, u"C", u"x\ny");
    EXPECT_EQ(Xml(),
              "<tgtab001><DUMP No=\"1\"><A TEXT=\"\" TYPE=\"0\">x &lt; 1</A><B TEXT=\"\" TYPE=\"1\">x&#13;\ny</B>"
              "<C TEXT=\"\" TYPE=\"0\">x\ny</C></DUMP></tgtab001>");
}

TEST_F(MappingObjectTest, ANoteIsSetWhereThereIsSomethingToNote)
{
    Load(R"(<tgtab001><PREC/><DUMP No="1"><A>a</A></DUMP></tgtab001>)");
    const DumpRecord dump = object_.Read().GetDumpNode(1);
    EXPECT_TRUE(object_.SetNote(object_.Read().Precondition(), u"p"));
    EXPECT_FALSE(object_.SetNote(object_.Read().Query(u"srtab001"), u"q"));
    EXPECT_TRUE(object_.SetNote(dump.Rule(u"A"), u"r"));
    object_.SetRuleNote(dump, u"A", u"s");
    object_.SetRuleNote(dump, u"B", u"t");
    EXPECT_EQ(Xml(), R"(<tgtab001><PREC TEXT="p"/><DUMP No="1"><A TEXT="s">a</A><B TEXT="t"/></DUMP></tgtab001>)");
}

TEST_F(MappingObjectTest, EnsureDumpMakesAMissingOneAlone)
{
    Load(R"(<tgtab001><DUMP No="1"/></tgtab001>)");
    object_.EnsureDump(1, u"| one");
    object_.EnsureDump(2, u"| two");
    EXPECT_EQ(Xml(), R"(<tgtab001><DUMP No="1"/><DUMP No="2" TXT="| two"/></tgtab001>)");
}

TEST_F(MappingObjectTest, PruningTakesOutWhatIsNotListed)
{
    Load(R"(<tgtab001><QUERY ST="a"/><DUMP No="1"/><QUERY ST="b"/><DUMP No="2"/></tgtab001>)");
    object_.PruneQueries({u"b"});
    object_.PruneDumps({0, 1});
    EXPECT_EQ(Xml(), R"(<tgtab001><DUMP No="1"/><QUERY ST="b"/></tgtab001>)");
}

TEST_F(MappingObjectTest, ARecordOfAReplacedObjectFails)
{
    Load(R"(<tgtab001><PREC>p</PREC></tgtab001>)");
    const ScriptRecord former = object_.Read().Precondition();
    Load(R"(<tgtab001><PREC>q</PREC></tgtab001>)");
    EXPECT_EQ(FailureOf([&] { object_.SetScript(former, u"x"); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(former.Script()); }), FailureCode::ObjectVariableNotSet);
    EXPECT_EQ(Xml(), "<tgtab001><PREC>q</PREC></tgtab001>");
}

TEST(ObjectCopyTest, GoesByTheNameOfItsRoot)
{
    ObjectCopy copy(R"(<abc><PREC>p</PREC><MSCRIPT><T1/><T2/></MSCRIPT></abc>)");
    EXPECT_TRUE(copy.IsLoaded());
    EXPECT_EQ(copy.Read().GetPreconditionText(), u"p");
    EXPECT_EQ(copy.Read().TablesOnOffer(), (std::vector<Text>{u"T1", u"T2"}));
    copy.Object().SetFunctionsText(u"f");
    EXPECT_EQ(copy.XmlUtf8(), "<abc><PREC>p</PREC><MSCRIPT><T1/><T2/></MSCRIPT><FUNCTIONS>f</FUNCTIONS></abc>");
}

TEST(ObjectCopyTest, OfNoXmlIsEmpty)
{
    const ObjectCopy copy("<abc>");
    EXPECT_FALSE(copy.IsLoaded());
    EXPECT_EQ(copy.Read().RootName(), u"");
    EXPECT_TRUE(copy.Read().Dumps().empty());
}

} // namespace
} // namespace rulemesh
