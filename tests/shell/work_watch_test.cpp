#include "shell/work_watch.h"

#include "base/failure_of.h"
#include "shell/designer_bench.h"

namespace rulemesh {
namespace {

class WorkWatchTest : public DesignerBench {
protected:
    // How often the host is told that the work changed by what is done.
    template <typename Deed> int ToldBy(Deed deed)
    {
        const int before = events_.WorkChanges;
        deed();
        return events_.WorkChanges - before;
    }
};

TEST_F(WorkWatchTest, TellsOnceForAnActionWhateverRanInside)
{
    OpenRules();
    EXPECT_EQ(ToldBy([&] { views_.CmdGuess.UserClicks(); }), 1);
}

TEST_F(WorkWatchTest, TellsWhenTheOutermostActionHasEnded)
{
    OpenRules();
    const int before = events_.WorkChanges;
    events_.Answer = [&] {
        control_.FieldMapping(u"typed by the host");
        EXPECT_EQ(events_.WorkChanges, before) << "the click is still running";
    };
    views_.RulesGrid.Col(1);
    views_.CmdFuncBuild.UserClicks();
    EXPECT_EQ(views_.RulesGrid.TextMatrix(0, 1), u"a") << "nothing came: the button is hidden";
    views_.CmdFuncBuild.Visible(true);
    views_.CmdFuncBuild.UserClicks();
    EXPECT_EQ(views_.RulesGrid.TextMatrix(0, 1), u"typed by the host");
    EXPECT_EQ(events_.WorkChanges, before + 1);
}

TEST_F(WorkWatchTest, TellsNothingOfALookAround)
{
    OpenRules();
    views_.CmbDump.UserChooses(1); // the first visit makes what the dump lacks
    views_.CmbDump.UserChooses(0);
    EXPECT_EQ(ToldBy([&] {
                  views_.lstTargetFields.UserClicksRow(2);
                  views_.RulesGrid.UserClicksCell(1, 1, Grid::Clicks::Single);
                  views_.lstSourceFields.UserClicksHeader(2);
                  control_.Resize(9000, 7000);
              }),
              0);
}

TEST_F(WorkWatchTest, TellsOfAChangeThatEndedInAFailure)
{
    Open();
    views_.txtPreCondition.LostFocus = [] { throw Failure(FailureCode::Overflow); };
    views_.txtPreCondition.SetFocus();
    views_.txtMainQuery.Change = [] { throw Failure(FailureCode::Overflow); };
    EXPECT_EQ(
        ToldBy([&] { EXPECT_EQ(FailureOf([&] { control_.MainQuery(u"dump 1 | other"); }), FailureCode::Overflow); }),
        1);
}

TEST_F(WorkWatchTest, TellsOfUndoAndRedo)
{
    Open();
    views_.txtVariables.Visible(true);
    views_.txtPreCondition.UserTypes(u"migrate srtab001 | again");
    EXPECT_EQ(ToldBy([&] { EXPECT_TRUE(control_.Undo()); }), 1);
    EXPECT_EQ(ToldBy([&] { EXPECT_TRUE(control_.Redo()); }), 1);
    EXPECT_EQ(ToldBy([&] { EXPECT_FALSE(control_.Redo()); }), 0);
}

TEST_F(WorkWatchTest, TellsOfANewObject)
{
    Open();
    EXPECT_EQ(ToldBy([&] { control_.MappingObjectXML(TextView(u"<tgtab001/>")); }), 1);
}

TEST_F(WorkWatchTest, NamesEachCommandAsItsButtonDoes)
{
    for (const View* view : views_.Tree.Views()) {
        if (view->Kind() != ViewKind::Button)
            continue;
        const auto& button = dynamic_cast<const Button&>(*view);
        Text StrCaption = Without(button.Caption(), u'&');
        StrCaption.resize(StrCaption.find_last_not_of(u'.') + 1);
        EXPECT_EQ(Text(button.Click.Action), StrCaption);
    }
}

} // namespace
} // namespace rulemesh
