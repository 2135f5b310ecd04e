#include <gmock/gmock.h>

#include "base/failure.h"
#include "base/failure_of.h"
#include "engine/engine_bench.h"
#include "engine/field_rows.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MapTest : public EngineBench {
protected:
    void SetUp() override
    {
        Load(
            R"(<TARTAB><TGTAB001><NAME No="1" TYPE="S"/><PRICE__2 No="2" TYPE="D"/><BORN No="3" TYPE="T"/>)"
            R"(<NOWHERE TYPE="S"/></TGTAB001></TARTAB><DUMP No="1"/>)"
            R"(<SRCTAB><SRTAB001><A FNo="1" TYPE="S"/><B FNo="2" TYPE="M"/><C FNo="3" TYPE="K"/></SRTAB001></SRCTAB>)");
        FillTargetFields(views_.lstTargetFields, TableRecord(access_.GetNode(u"/tgtab001/TARTAB/TGTAB001")));
        FillSourceFields(views_.lstSourceFields, TableRecord(access_.GetNode(u"/tgtab001/SRCTAB/SRTAB001")));
        views_.lstTargetFields.Sorted(false);
        for (const Text key : {u"tgtab001.name", u"tgtab001.price(2)", u"tgtab001.born"})
            views_.RulesGrid.AddItem({key, u" "});
    }

    void Map(int target, const std::vector<int>& ticked)
    {
        views_.lstTargetFields.Select(target, true);
        for (const int row : ticked)
            views_.lstSourceFields.Check(row, true);
        mapping_.CmdMap_Click();
    }

    [[nodiscard]] int Ticks() const
    {
        int ticks = 0;
        for (int row = 1; row <= views_.lstSourceFields.Count(); ++row)
            ticks += views_.lstSourceFields.At(row).Checked ? 1 : 0;
        return ticks;
    }
};

TEST_F(MapTest, ARuleGoesIntoABlankCellAlone)
{
    mapping_.SetRuleIfEmpty(u"name", u" r ");
    mapping_.SetRuleIfEmpty(u"name", u"s");
    mapping_.SetRuleIfEmpty(u"price(2)", u"p");
    EXPECT_THAT(Rules(), ElementsAre(u" r ", u"p", u" "));
    EXPECT_EQ(views_.RulesGrid.Row(), 0);
}

TEST_F(MapTest, AFieldWithoutANumberIsPassedOver)
{
    mapping_.SetRuleIfEmpty(u"nowhere", u"r");
    EXPECT_THAT(Rules(), ElementsAre(u" ", u" ", u" "));
}

TEST_F(MapTest, ARowBelowSixteenBitsIsAnOverflow)
{
    access_.GetNode(u"/tgtab001/TARTAB/TGTAB001/NOWHERE").setNamedItem(u"No", u"-32768");
    EXPECT_EQ(FailureOf([&] { mapping_.SetRuleIfEmpty(u"nowhere", u"r"); }), FailureCode::Overflow);
    access_.GetNode(u"/tgtab001/TARTAB/TGTAB001/NOWHERE").setNamedItem(u"No", u"-32767");
    EXPECT_EQ(FailureOf([&] { mapping_.SetRuleIfEmpty(u"nowhere", u"r"); }), std::nullopt);
    EXPECT_THAT(Rules(), ElementsAre(u" ", u" ", u" "));
}

TEST_F(MapTest, AFieldThatTheTableLacksIsAFailure)
{
    EXPECT_EQ(FailureOf([&] { mapping_.SetRuleIfEmpty(u"other", u"r"); }), FailureCode::ObjectVariableNotSet);
}

TEST_F(MapTest, WithoutATargetNothingHappens)
{
    views_.lstSourceFields.Check(1, true);
    mapping_.CmdMap_Click();
    EXPECT_EQ(Ticks(), 1);
    EXPECT_THAT(platform_.Messages, IsEmpty());
}

TEST_F(MapTest, TickedFieldsAreConvertedAndJoined)
{
    Map(2, {1, 2, 3});
    EXPECT_EQ(Rules()[1], u"srtab001.a,srtab001.b,srtab001.c");
    EXPECT_EQ(Ticks(), 0);
    Map(3, {3, 1});
    EXPECT_EQ(Rules()[2], u"srtab001.a,utc(srtab001.c,0,2)"); // the order of the list
}

TEST_F(MapTest, AnEmptyPieceLeavesItsCommaOnlyBehindAnother)
{
    Map(1, {1, 2});
    EXPECT_EQ(Rules()[0], u"srtab001.a,");
    views_.RulesGrid.TextMatrix(0, 1, u"");
    Map(1, {2, 3});
    EXPECT_EQ(Rules()[0], u"srtab001.c");
}

TEST_F(MapTest, WithoutAPieceTheUserIsAskedForASource)
{
    Map(1, {});
    Map(1, {2});
    ASSERT_EQ(platform_.Messages.size(), 2U);
    EXPECT_EQ(platform_.Messages[0].Text, u"Please choose a source field to map");
    EXPECT_EQ(platform_.Messages[0].Title, u"");
    EXPECT_EQ(platform_.Messages[0].Icon, MessageIcon::None);
    EXPECT_THAT(platform_.Messages[0].Buttons, ElementsAre(MessageButton::Ok));
    EXPECT_EQ(platform_.Messages[1].Text, platform_.Messages[0].Text);
    EXPECT_EQ(Ticks(), 0);
}

TEST_F(MapTest, AnOccupiedCellKeepsItsRuleAndTheTicksGo)
{
    views_.RulesGrid.TextMatrix(0, 1, u"typed");
    Map(1, {1});
    EXPECT_EQ(Rules()[0], u"typed");
    EXPECT_EQ(Ticks(), 0);
    EXPECT_THAT(platform_.Messages, IsEmpty());
}

TEST_F(MapTest, TheDocumentWaitsForASave)
{
    const std::string before = Below();
    Map(1, {1});
    EXPECT_EQ(Below(), before);
}

TEST_F(MapTest, MoreFieldsThanSixteenBitsAreAnOverflow)
{
    views_.lstTargetFields.Select(1, true);
    while (views_.lstSourceFields.Count() < 32767)
        views_.lstSourceFields.Add({u"", u"999", u"srtab001.x", u"Long"});
    EXPECT_EQ(FailureOf([&] { mapping_.CmdMap_Click(); }), std::nullopt);
    views_.lstSourceFields.Add({u"", u"999", u"srtab001.x", u"Long"});
    EXPECT_EQ(FailureOf([&] { mapping_.CmdMap_Click(); }), FailureCode::Overflow);
}

} // namespace
} // namespace rulemesh
