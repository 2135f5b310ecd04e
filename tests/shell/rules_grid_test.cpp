#include "shell/rules_grid.h"

#include <gmock/gmock.h>

#include "base/failure.h"
#include "base/failure_of.h"
#include "shell/designer_bench.h"

namespace rulemesh {
namespace {

using testing::HasSubstr;

class RulesGridTest : public DesignerBench {
protected:
    RulesGridTest() { OpenRules(); }

    TextBox& box_ = views_.txtgrdline;
    Grid& grid_ = views_.RulesGrid;
};

TEST_F(RulesGridTest, TheBoxTakesTheGridsFont)
{
    grid_.Type({u"Courier", 12.0, true});
    control_.GridEdit(32);
    EXPECT_EQ(box_.Type(), (Font{u"Courier", 12.0, true}));
}

TEST_F(RulesGridTest, CodesUpToTheBlankKeepTheTextWithTheCaretBehindIt)
{
    grid_.Col(1);
    for (const std::int16_t code : std::vector<std::int16_t>{0, 8, 13, 27, 32}) {
        grid_.Text(u"rule");
        control_.GridEdit(code);
        EXPECT_EQ(box_.Text(), u"rule") << code;
        EXPECT_EQ(box_.SelStart(), 4U) << code;
        box_.Visible(false);
    }
}

TEST_F(RulesGridTest, TheCaretGoesNoFurtherThanTheThousandthCharacter)
{
    grid_.Col(1);
    grid_.Text(Text(1500, u'x'));
    control_.GridEdit(32);
    EXPECT_EQ(box_.SelStart(), 1000U);
}

TEST_F(RulesGridTest, AnyOtherCodeReplacesTheText)
{
    grid_.Col(1);
    for (const auto& [code, text] : std::vector<std::pair<std::int16_t, Text>>{
             {std::int16_t{33}, u"!"}, {std::int16_t{'x'}, u"x"}, {std::int16_t{0xE9}, u"\u00E9"}}) {
        control_.GridEdit(code);
        EXPECT_EQ(box_.Text(), text);
        EXPECT_EQ(box_.SelStart(), 1U);
    }
}

TEST_F(RulesGridTest, TheBoxLiesOverTheCell)
{
    control_.Resize(11700, 7755);
    grid_.Col(1);
    grid_.Row(2);
    control_.GridEdit(32);
    // The grid stands at 120, 240; its width is 11700 - 10 - 200 - 240 - 150.
    EXPECT_EQ(box_.Left(), 120 + 1700);
    EXPECT_EQ(box_.Top(), 240 + 2 * 310);
    EXPECT_EQ(box_.Width(), 11100 - 1700 - 150 - 70);
    EXPECT_EQ(box_.Height(), 310);
    EXPECT_TRUE(box_.Visible());
    EXPECT_EQ(views_.Tree.Focused(), &box_);
}

TEST_F(RulesGridTest, ALayoutPassClosesTheCellAndSavesIt)
{
    grid_.UserClicksCell(1, 1, Grid::Clicks::Double);
    box_.UserTypes(u"typed");
    control_.Resize(9000, 7755);
    EXPECT_FALSE(box_.Visible());
    EXPECT_EQ(grid_.Row(), 0);
    EXPECT_EQ(grid_.Col(), 0);
    EXPECT_THAT(control_.DocumentAsItStands(), HasSubstr(R"(<B TEXT="" TYPE="0">typed</B>)"));
}

TEST_F(RulesGridTest, ARowWithoutAListEntryIsAFailure)
{
    grid_.TextMatrix(1, 0, u"tgtab001.other");
    EXPECT_EQ(FailureOf([&] { grid_.UserClicksCell(1, 1, Grid::Clicks::Single); }), FailureCode::IndexOutOfBounds);
}

TEST_F(RulesGridTest, AnEmptyListIsLeftAlone)
{
    views_.lstTargetFields.Clear();
    EXPECT_EQ(FailureOf([&] { grid_.UserClicksCell(1, 1, Grid::Clicks::Single); }), std::nullopt);
    EXPECT_EQ(grid_.Row(), 1);
}

TEST_F(RulesGridTest, TheListFollowsTheGridAndScrolls)
{
    grid_.UserClicksCell(2, 1, Grid::Clicks::Single);
    EXPECT_EQ(views_.lstTargetFields.SelectedRow(), 3);
    EXPECT_EQ(views_.lstTargetFields.TakeScrollRequest(), 3);
}

TEST_F(RulesGridTest, AKeyThatIsNotThereLeavesTheRow)
{
    grid_.Row(2);
    grid_.TextMatrix(0, 0, u"renamed");
    EXPECT_EQ(control_.GetRowNumber(u"tgtab001.a"), -1);
    // The list still names the field; the grid has lost its row.
    views_.lstTargetFields.UserClicksRow(1);
    EXPECT_EQ(grid_.Row(), 2);
    EXPECT_EQ(grid_.TopRow(), 1);
}

TEST_F(RulesGridTest, TabTakesTheFocusToTheGrid)
{
    views_.lstSourceFields.SetFocus();
    grid_.KeyPress(9);
    EXPECT_EQ(views_.Tree.Focused(), &grid_);
}

TEST_F(RulesGridTest, EditingAnEmptyGridIsAFailure)
{
    RecordingPlatform platform;
    RecordingEvents events;
    ctlRulemesh empty(platform, events);
    EXPECT_EQ(FailureOf([&] { empty.GridEdit(32); }), FailureCode::InvalidPropertyArrayIndex);
    EXPECT_EQ(FailureOf([&] { empty.FieldMapping(u"x"); }), FailureCode::InvalidPropertyArrayIndex);
    EXPECT_EQ(empty.GetRowNumber(u"x"), -1);
    EXPECT_EQ(empty.GetListItemNumber(u"x"), -1);
    EXPECT_EQ(empty.FieldMapping(), u"0");
}

} // namespace
} // namespace rulemesh
