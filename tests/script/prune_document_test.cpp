#include "script/prune_document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "support/script_bench.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PruneDocument : public ScriptBench {
protected:
    // What the root holds after a run on an object that held this.
    std::string Pruned(const std::string& below)
    {
        Load(below);
        pruning_.PruneDocument();
        return Below();
    }
};

TEST_F(PruneDocument, RemovesQueriesOfTablesThatAreNotMigrated)
{
    EXPECT_EQ(Pruned(R"(<PREC>migrate abcde123 dump 1</PREC><QUERY ST="fghij456">x</QUERY>)"
                     R"(<QUERY ST="abcde123">y</QUERY><QUERY ST="ABCDE123">z</QUERY><DUMP No="1"/>)"),
              R"(<PREC>migrate abcde123 dump 1</PREC><QUERY ST="abcde123">y</QUERY><DUMP No="1"/>)");
}

TEST_F(PruneDocument, KeepsBothQueriesOfATableThatIsMigrated)
{
    const std::string below = R"(<PREC>migrate abcde123 dump 1</PREC><QUERY ST="abcde123">x</QUERY>)"
                              R"(<QUERY ST="abcde123">y</QUERY><DUMP No="1"/>)";
    EXPECT_EQ(Pruned(below), below);
}

TEST_F(PruneDocument, MakesNoQueryForATableWithoutAScript)
{
    EXPECT_EQ(Pruned(R"(<PREC>migrate abcde123 dump 1</PREC><DUMP No="1"/>)"),
              R"(<PREC>migrate abcde123 dump 1</PREC><DUMP No="1"/>)");
}

TEST_F(PruneDocument, KeepsAQueryOfNoTableWhileNothingIsMigrated)
{
    EXPECT_EQ(Pruned(R"(<PREC>dump 1</PREC><QUERY ST="">x</QUERY><QUERY ST="abcde123">y</QUERY><DUMP No="1"/>)"),
              R"(<PREC>dump 1</PREC><QUERY ST="">x</QUERY><DUMP No="1"/>)");
}

TEST_F(PruneDocument, RaisesAFailureForAQueryWithoutATable)
{
    EXPECT_EQ(FailureOf([this] { Pruned("<PREC>x</PREC><QUERY>x</QUERY>"); }), FailureCode::ObjectVariableNotSet);
}

TEST_F(PruneDocument, TakesNoTablesFromAnEmptyPreconditionOverFromBefore)
{
    state_.StrMigrateTables = {u"abcde123"};
    EXPECT_EQ(Pruned(R"(<PREC/><QUERY ST="abcde123">dump 1</QUERY><DUMP No="0"/>)"), R"(<PREC/><DUMP No="0"/>)");
    EXPECT_THAT(state_.StrMigrateTables, ElementsAre(u""));
}

TEST_F(PruneDocument, DrawsTheMigrateListAnewAndComplainsOnceMore)
{
    Pruned(R"(<PREC>migrate abcde123 migrate abc</PREC>)");
    EXPECT_THAT(RowsOf(views_.lstMigrateSource), ElementsAre(u"migrate abcde123", u""));
    EXPECT_THAT(Boxes(), ElementsAre(u"critical: Table Name not Valid"));
}

TEST_F(PruneDocument, MakesTheDumpsThatTheScriptsName)
{
    EXPECT_EQ(Pruned(R"(<PREC>dump 5 | five</PREC><FUNCTIONS>dump 6</FUNCTIONS>)"),
              R"(<PREC>dump 5 | five</PREC><FUNCTIONS>dump 6</FUNCTIONS><DUMP No="5" TXT="| five"/>)"
              R"(<DUMP No="6" TXT=""/>)");
}

TEST_F(PruneDocument, RemovesTheDumpsThatNoScriptNamesWithTheirRules)
{
    EXPECT_EQ(Pruned(R"(<PREC>dump 5</PREC><DUMP No="4"><PRICE TEXT="rule"/></DUMP><DUMP No="5"><PRICE/></DUMP>)"),
              R"(<PREC>dump 5</PREC><DUMP No="5"><PRICE/></DUMP>)");
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(PruneDocument, MakesDumpZeroWhenNoScriptNamesADump)
{
    EXPECT_EQ(Pruned("<PREC>x</PREC>"), R"(<PREC>x</PREC><DUMP No="0" TXT=""/>)");
}

TEST_F(PruneDocument, KeepsDumpZeroWhenNoScriptNamesADump)
{
    EXPECT_EQ(Pruned(R"(<PREC>x</PREC><DUMP No="0" TXT="| kept"/><DUMP No="1"/>)"),
              R"(<PREC>x</PREC><DUMP No="0" TXT="| kept"/>)");
}

TEST_F(PruneDocument, RemovesDumpZeroWhenAScriptNamesAnother)
{
    EXPECT_EQ(Pruned(R"(<PREC>dump 1</PREC><DUMP No="0"/><DUMP No="1"/>)"), R"(<PREC>dump 1</PREC><DUMP No="1"/>)");
}

TEST_F(PruneDocument, KeepsEveryDumpOfANumberThatAScriptNames)
{
    const std::string below = R"(<PREC>dump 5</PREC><DUMP No="5"><A/></DUMP><DUMP No="5"><B/></DUMP>)";
    EXPECT_EQ(Pruned(below), below);
}

TEST_F(PruneDocument, ReadsANumberInAnyForm)
{
    EXPECT_EQ(Pruned(R"(<PREC>dump 5</PREC><DUMP No="05"/><DUMP No="4.6"/><DUMP No="5.6"/>)"),
              R"(<PREC>dump 5</PREC><DUMP No="05"/><DUMP No="4.6"/><DUMP No="5" TXT=""/>)");
}

TEST_F(PruneDocument, RaisesAFailureForADumpWhoseNumberIsNone)
{
    EXPECT_EQ(FailureOf([this] { Pruned(R"(<PREC>dump 5</PREC><DUMP No="x"/>)"); }), FailureCode::TypeMismatch);
    EXPECT_EQ(FailureOf([this] { Pruned(R"(<PREC>dump 5</PREC><DUMP/>)"); }), FailureCode::TypeMismatch);
    EXPECT_EQ(FailureOf([this] { Pruned(R"(<PREC>dump 5</PREC><DUMP No="40000"/>)"); }), FailureCode::Overflow);
}

TEST_F(PruneDocument, CountsNoDumpsOfAQueryThatItRemoved)
{
    EXPECT_EQ(Pruned(R"(<PREC>dump 1</PREC><QUERY ST="abcde123">dump 2</QUERY><DUMP No="1"/><DUMP No="2"/>)"),
              R"(<PREC>dump 1</PREC><DUMP No="1"/>)");
}

TEST_F(PruneDocument, KeepsTheWhiteSpaceAroundWhatItRemoves)
{
    EXPECT_EQ(Pruned("\n <PREC>dump 1</PREC>\n <DUMP No=\"2\"/>\n <DUMP No=\"1\"/>\n"),
              "\n <PREC>dump 1</PREC>\n \n <DUMP No=\"1\"/>\n");
}

} // namespace
} // namespace rulemesh
