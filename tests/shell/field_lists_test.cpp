#include "shell/field_lists.h"

#include <gmock/gmock.h>

#include "shell/designer_bench.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;

class FieldListsTest : public DesignerBench {
protected:
    FieldListsTest() { OpenRules(); }

    [[nodiscard]] static std::vector<int> SelectedIn(const ListView& list)
    {
        std::vector<int> rows;
        for (int row = 1; row <= list.Count(); ++row) {
            if (list.At(row).Selected)
                rows.push_back(row);
        }
        return rows;
    }
};

TEST_F(FieldListsTest, TheFocusScrollsToTheSelectedSource)
{
    views_.Tree.MoveFocus(views_.lstSourceFields); // nothing selected: the first row becomes it
    EXPECT_THAT(SelectedIn(views_.lstSourceFields), ElementsAre(1));
    EXPECT_EQ(views_.lstSourceFields.TakeScrollRequest(), 1);
    views_.lstSourceFields.Select(1, false);
    views_.lstSourceFields.Select(2, true);
    views_.Tree.MoveFocus(views_.CmdMap);
    views_.Tree.MoveFocus(views_.lstSourceFields);
    EXPECT_EQ(views_.lstSourceFields.TakeScrollRequest(), 2);
}

TEST_F(FieldListsTest, TheFocusOfAnEmptyListScrollsNowhere)
{
    views_.lstSourceFields.Clear();
    EXPECT_TRUE(views_.Tree.MoveFocus(views_.lstSourceFields));
    EXPECT_EQ(views_.lstSourceFields.TakeScrollRequest(), 0);
}

TEST_F(FieldListsTest, TheSelectionBecomesTheTickedRows)
{
    views_.lstSourceFields.UserClicksRow(1);
    views_.lstSourceFields.UserTicks(2, true);
    EXPECT_THAT(SelectedIn(views_.lstSourceFields), ElementsAre(2));
    views_.lstSourceFields.UserTicks(1, true);
    EXPECT_THAT(SelectedIn(views_.lstSourceFields), ElementsAre(1, 2));
    views_.lstSourceFields.UserTicks(2, false);
    EXPECT_THAT(SelectedIn(views_.lstSourceFields), ElementsAre(1));
}

TEST_F(FieldListsTest, AFieldWithoutANumberDoesNotMoveTheGrid)
{
    views_.lstTargetFields.Clear();
    views_.lstTargetFields.Add({u"", u"", u"", u"tgtab001.b"});
    views_.lstTargetFields.UserClicksRow(1);
    EXPECT_EQ(views_.RulesGrid.Row(), 0);
}

TEST_F(FieldListsTest, ColumnsAreThoseOfTheDesign)
{
    const auto captions = [](const ListView& list) {
        std::vector<Text> texts;
        for (const ListView::Column& column : list.Columns())
            texts.emplace_back(column.Caption);
        return texts;
    };
    EXPECT_THAT(captions(views_.lstTargetFields),
                ElementsAre(u"", u"", u"No", u"Field Name", u"Type", u"Length", u"Description", u"Alignment", u"Case",
                            u"Domain", u"Initial Value", u"DomEnum", u""));
    EXPECT_THAT(captions(views_.lstSourceFields),
                ElementsAre(u"", u"No", u"Field Name", u"Type", u"Length", u"Description", u"Alignment", u"Case",
                            u"Domain", u"Initial Value", u"DomEnum"));
    EXPECT_THAT(captions(views_.lstSourceTables), ElementsAre(u"SourceTable"));
    EXPECT_THAT(captions(views_.lstMigrateSource), ElementsAre(u"Main Query"));
}

TEST_F(FieldListsTest, NumbersAndLengthsStandOnTheRight)
{
    const auto right = [](const ListView& list) {
        std::vector<int> positions;
        for (std::size_t position = 0; position < list.Columns().size(); ++position) {
            if (list.Columns()[position].RightAligned)
                positions.push_back(static_cast<int>(position));
        }
        return positions;
    };
    EXPECT_THAT(right(views_.lstTargetFields), ElementsAre(2, 5));
    EXPECT_THAT(right(views_.lstSourceFields), ElementsAre(4));
}

} // namespace
} // namespace rulemesh
