#include <gmock/gmock.h>

#include "shell/designer_bench.h"

namespace rulemesh {
namespace {

using ::testing::ElementsAre;

class HistorySteps : public DesignerBench {
protected:
    HistorySteps()
    {
        Open();
        control_.PreCondition(u"migrate srtab001 | one");
        views_.MainTab.UserClicksTab(1);
        views_.CmdGuess.UserClicks();
        control_.SourceTables(u"srtab001,srtab002");
    }
};

TEST_F(HistorySteps, AreListedFromTheOldestOn)
{
    EXPECT_THAT(control_.StepNames(), ElementsAre(u"Precondition", u"Guess", u"Source tables"));
    EXPECT_EQ(control_.StepsDone(), 3u);
    control_.Undo();
    control_.Undo();
    EXPECT_THAT(control_.StepNames(), ElementsAre(u"Precondition", u"Guess", u"Source tables"));
    EXPECT_EQ(control_.StepsDone(), 1u);
}

TEST_F(HistorySteps, AreGoneToLikeByUndoAndRedo)
{
    const std::string last = control_.DocumentAsItStands();
    control_.Undo();
    control_.Undo();
    const std::string first = control_.DocumentAsItStands();
    ASSERT_NE(first, last);
    EXPECT_TRUE(control_.GoToStep(3));
    EXPECT_EQ(control_.DocumentAsItStands(), last);
    EXPECT_TRUE(control_.GoToStep(1));
    EXPECT_EQ(control_.DocumentAsItStands(), first);
    EXPECT_EQ(control_.UndoText(), u"Precondition");
    EXPECT_EQ(control_.RedoText(), u"Guess");
}

TEST_F(HistorySteps, ThatAreNotThereAreNotGoneTo)
{
    const std::string last = control_.DocumentAsItStands();
    EXPECT_FALSE(control_.GoToStep(3));
    EXPECT_FALSE(control_.GoToStep(4));
    EXPECT_EQ(control_.DocumentAsItStands(), last);
    EXPECT_EQ(control_.StepsDone(), 3u);
}

TEST_F(HistorySteps, AreNoneInANewObject)
{
    Open();
    EXPECT_TRUE(control_.StepNames().empty());
    EXPECT_FALSE(control_.GoToStep(0));
}

} // namespace
} // namespace rulemesh
