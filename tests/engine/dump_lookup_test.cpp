#include "engine/dump_lookup.h"

#include "base/failure.h"
#include "base/failure_of.h"
#include "engine/engine_bench.h"

namespace rulemesh {
namespace {

using DumpLookupTest = EngineBench;

TEST_F(DumpLookupTest, TargetTableIsStampedIntoADumpThatNamesNone)
{
    Load(R"(<DUMP No="1"/><DUMP No="2" TT=""/><DUMP No="3" TT="tgtab002"/>)");
    EXPECT_EQ(object_.GetDumpTargetTable(1), u"tgtab001");
    EXPECT_EQ(object_.GetDumpTargetTable(2), u"tgtab001");
    EXPECT_EQ(object_.GetDumpTargetTable(3), u"tgtab002");
    EXPECT_EQ(Below(), R"(<DUMP No="1" TT="tgtab001"/><DUMP No="2" TT="tgtab001"/><DUMP No="3" TT="tgtab002"/>)");
}

TEST_F(DumpLookupTest, AMissingDumpHasTheMainTableAndIsNotMade)
{
    Load("");
    EXPECT_EQ(object_.GetDumpTargetTable(4), u"tgtab001");
    EXPECT_EQ(object_.Read().GetDumpTargetDescription(4), u"");
    EXPECT_EQ(Below(), "");
}

TEST_F(DumpLookupTest, TheDescriptionIsOnlyRead)
{
    Load(R"(<DUMP No="1" TT_DESC="Items &amp; kits"/><DUMP No="2"/>)");
    EXPECT_EQ(object_.Read().GetDumpTargetDescription(1), u"Items & kits");
    EXPECT_EQ(object_.Read().GetDumpTargetDescription(2), u"");
    EXPECT_EQ(Below(), R"(<DUMP No="1" TT_DESC="Items &amp; kits"/><DUMP No="2"/>)");
}

constexpr const char* TwoTables = R"(<TARTAB><TGTAB001><A No="1"/></TGTAB001><TGTAB002><B No="1"/></TGTAB002></TARTAB>)"
                                  R"(<DUMP No="1" TT="tgtab001"/><DUMP No="2" TT="TgTab002"/><DUMP No="3"/>)";

TEST_F(DumpLookupTest, ASingleTargetObjectHasOneTableForEveryDump)
{
    Load(TwoTables);
    for (const std::int16_t dump : std::vector<std::int16_t>{0, 1, 2, 9})
        EXPECT_EQ(lookup_.GetTargetTableNode(dump).Name(), u"TGTAB001");
    EXPECT_EQ(Below(), TwoTables);
}

TEST_F(DumpLookupTest, AMultiTargetObjectGoesByTheDump)
{
    Load(TwoTables);
    state_.BoolMultiTarget = true;
    EXPECT_EQ(lookup_.GetTargetTableNode(1).Name(), u"TGTAB001");
    EXPECT_EQ(lookup_.GetTargetTableNode(2).Name(), u"TGTAB002");
    EXPECT_EQ(lookup_.GetTargetTableNode(9).Name(), u"TGTAB001");
    EXPECT_EQ(Below(), TwoTables);
    EXPECT_EQ(lookup_.GetTargetTableNode(3).Name(), u"TGTAB001");
    EXPECT_NE(Below().find(R"(<DUMP No="3" TT="tgtab001"/>)"), std::string::npos);
}

TEST_F(DumpLookupTest, TheCurrentDumpIsTheOneInTheGrid)
{
    Load(TwoTables);
    state_.BoolMultiTarget = true;
    NameDumps({{1, u""}, {2, u""}});
    EXPECT_EQ(lookup_.GetTargetTableNode(0).Name(), u"TGTAB001"); // the first of the list
    state_.DumpInGrid = GridDump(DumpNumber(2), GridDump::Digits::Two);
    EXPECT_EQ(lookup_.GetTargetTableNode(0).Name(), u"TGTAB002");
    state_.DumpInGrid = GridDump(DumpNumber(0));
    EXPECT_EQ(lookup_.GetTargetTableNode(0).Name(), u"TGTAB001");
}

TEST_F(DumpLookupTest, ATableWithoutCatalogueIsNull)
{
    Load(R"(<TARTAB><tgtab001/></TARTAB><DUMP No="1" TT="other001"/>)");
    EXPECT_FALSE(lookup_.GetTargetTableNode(0)); // the catalogue names tables in upper case
    state_.BoolMultiTarget = true;
    EXPECT_FALSE(lookup_.GetTargetTableNode(1));
}

TEST_F(DumpLookupTest, FieldNumberIsFoundByTheDisplayName)
{
    Load(R"(<TARTAB><TGTAB001><ITEM No="1"/><PRICE__2 No="17"/><X No="ab"/><Y/><Z No="2.5"/></TGTAB001></TARTAB>)");
    EXPECT_EQ(lookup_.GetFieldNumber(u"item"), 1);
    EXPECT_EQ(lookup_.GetFieldNumber(u"price(2)"), 17);
    EXPECT_EQ(lookup_.GetFieldNumber(u"x"), 0);
    EXPECT_EQ(lookup_.GetFieldNumber(u"y"), 0);
    EXPECT_EQ(lookup_.GetFieldNumber(u"z"), 2);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(lookup_.GetFieldNumber(u"none")); }),
              FailureCode::ObjectVariableNotSet);
}

TEST_F(DumpLookupTest, ARuleOrANoteCountsAsRule)
{
    Load(R"(<DUMP No="1"/><DUMP No="2"><A TEXT="" TYPE="0"> </A></DUMP><DUMP No="3"><A> </A><B TEXT="7"/></DUMP>)"
         "<DUMP No=\"4\"><A>x</A></DUMP>");
    NameDumps({{1, u""}, {2, u""}, {3, u""}, {4, u""}});
    for (const auto& [index, has] : std::vector<std::pair<int, bool>>{{0, false}, {1, false}, {2, true}, {3, true}}) {
        views_.CmbDump.ListIndex(index);
        EXPECT_EQ(lookup_.DumpHasRules(), has) << index;
    }
}

TEST_F(DumpLookupTest, RulesOfNoDumpAreAFailure)
{
    Load("");
    NameDumps({{1, u""}});
    EXPECT_EQ(FailureOf([&] { static_cast<void>(lookup_.DumpHasRules()); }), FailureCode::ObjectVariableNotSet);
    views_.CmbDump.ListIndex(0); // a dump without an element
    EXPECT_EQ(FailureOf([&] { static_cast<void>(lookup_.DumpHasRules()); }), FailureCode::ObjectVariableNotSet);
}

TEST_F(DumpLookupTest, MscriptMakesAMultiTargetObject)
{
    Load("<TARTAB/>");
    EXPECT_FALSE(object_.Read().CheckMscripts());
    Load("<MSCRIPT/>");
    EXPECT_TRUE(object_.Read().CheckMscripts());
}

// Recording the failure fails in its turn: nothing is kept, and the host sees a type mismatch.
TEST_F(DumpLookupTest, ACheckThatFailsRecordsNothing)
{
    Load("<MSCRIPT/>");
    state_.StrTargetTable = u"o'neil01";
    EXPECT_EQ(FailureOf([&] { static_cast<void>(object_.Read().CheckMscripts()); }), FailureCode::TypeMismatch);
    EXPECT_EQ(state_.IntErrorCode, 0);
    EXPECT_EQ(state_.StrErrorText, u"");
}

} // namespace
} // namespace rulemesh
