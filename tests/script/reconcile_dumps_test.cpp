#include "script/reconcile_dumps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/script_bench.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Text Warning(TextView StrOld)
{
    return u"notice: Dump number removed or renumbered! Old:[DUMP " + Text(StrOld) +
           u"]\r\n\r\nIf as designed ignore this warning (Press Ok), (Press Cancel) to preserve the previous Dump "
           u"number and remain the data. [Dump(s) removed or renamed] OK Cancel";
}

Text Note(TextView StrOld)
{
    return u"notice: dump " + Text(StrOld) + u" added at the end of the Script to preserve Rules";
}

class ReconcileDumpsTest : public ScriptBench {
protected:
    using Numbers = std::vector<std::int16_t>;

    // The new numbers afterwards; the user answers as told, OK behind that.
    Numbers Reconcile(Numbers now, const Numbers& before, std::deque<MessageButton> answers = {})
    {
        platform_.Buttons = std::move(answers);
        ReconcileDumps(now, before, box_, platform_);
        return now;
    }

    SyntaxBox& box_ = views_.txtMainQuery;
    static constexpr MessageButton Cancel = MessageButton::Cancel;
};

TEST_F(ReconcileDumpsTest, IsSilentWhenTheOneOldNumberIsStillFirst)
{
    EXPECT_THAT(Reconcile({5, 6}, {5}), ElementsAre(5, 6));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ReconcileDumpsTest, IsSilentWhenTheOneOldNumberStandsElsewhere)
{
    EXPECT_THAT(Reconcile({6, 5}, {5}), ElementsAre(6, 5));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ReconcileDumpsTest, WarnsOfARenumberedDump)
{
    Reconcile({6}, {5});
    EXPECT_THAT(Boxes(), ElementsAre(Warning(u"5")));
}

TEST_F(ReconcileDumpsTest, LeavesScriptAndNumbersOnOk)
{
    box_.Text(u"dump 6 | x");
    EXPECT_THAT(Reconcile({6}, {5}, {MessageButton::Ok}), ElementsAre(6));
    EXPECT_EQ(box_.Text(), u"dump 6 | x");
}

TEST_F(ReconcileDumpsTest, WritesTheOldNumberBackOnCancel)
{
    box_.Text(u"dump 6\r\nx");
    EXPECT_THAT(Reconcile({6}, {5}, {Cancel}), ElementsAre(5));
    EXPECT_EQ(box_.Text(), u"dump 5\nx");
    EXPECT_THAT(Boxes(), ElementsAre(Warning(u"5")));
}

TEST_F(ReconcileDumpsTest, AddsADummyLineWhenTheListsDifferInLength)
{
    box_.Text(u"dump 6\r\ndump 7");
    EXPECT_THAT(Reconcile({6, 7}, {5}, {Cancel}), ElementsAre(6, 7));
    EXPECT_EQ(box_.Text(), u"dump 6\r\ndump 7\r\n\r\ndump 5 | *** DUMMY ADDED TO PRESERVE RULES ***");
    EXPECT_THAT(Boxes(), ElementsAre(Warning(u"5"), Note(u"5")));
}

TEST_F(ReconcileDumpsTest, AddsADummyLineAndRenumbersForAnEmptyNewList)
{
    box_.Text(u"x");
    EXPECT_THAT(Reconcile({0}, {5}, {Cancel}), ElementsAre(5));
    EXPECT_EQ(box_.Text(), u"x\r\n\r\ndump 5 | *** DUMMY ADDED TO PRESERVE RULES ***");
    EXPECT_THAT(Boxes(), ElementsAre(Warning(u"5"), Note(u"5")));
}

TEST_F(ReconcileDumpsTest, RewritesAStatementOfDumpZeroBehindTheDummyLine)
{
    box_.Text(u"dump 0 x");
    Reconcile({0}, {5}, {Cancel});
    EXPECT_EQ(box_.Text(), u"dump 5x\r\n\r\ndump 5 | *** DUMMY ADDED TO PRESERVE RULES ***");
}

TEST_F(ReconcileDumpsTest, NeverWarnsOfZero)
{
    EXPECT_THAT(Reconcile({6}, {0}), ElementsAre(6));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ReconcileDumpsTest, NeverWarnsOfANumberBelowZero)
{
    EXPECT_THAT(Reconcile({6, 7}, {-5, 7}), ElementsAre(6, 7));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ReconcileDumpsTest, WarnsOfTheOneThatIsGone)
{
    box_.Text(u"dump 3");
    EXPECT_THAT(Reconcile({3}, {3, 4}, {Cancel}), ElementsAre(3));
    EXPECT_EQ(box_.Text(), u"dump 3\r\n\r\ndump 4 | *** DUMMY ADDED TO PRESERVE RULES ***");
    EXPECT_THAT(Boxes(), ElementsAre(Warning(u"4"), Note(u"4")));
}

TEST_F(ReconcileDumpsTest, AddsADummyLineForEachInTheirOrder)
{
    box_.Text(u"dump 3");
    Reconcile({3}, {1, 2, 3}, {Cancel, Cancel});
    EXPECT_EQ(box_.Text(), u"dump 3\r\n\r\ndump 1 | *** DUMMY ADDED TO PRESERVE RULES ***"
                           u"\r\n\r\ndump 2 | *** DUMMY ADDED TO PRESERVE RULES ***");
    EXPECT_THAT(Boxes(), ElementsAre(Warning(u"1"), Note(u"1"), Warning(u"2"), Note(u"2")));
}

TEST_F(ReconcileDumpsTest, MatchesListsOfOneLengthByIndex)
{
    box_.Text(u"dump 1\ndump 3\ndump 4\n");
    EXPECT_THAT(Reconcile({1, 3, 4}, {1, 2, 3}, {Cancel, Cancel}), ElementsAre(1, 2, 3));
    EXPECT_EQ(box_.Text(), u"dump 1\ndump 2dump 3");
    EXPECT_THAT(Boxes(), ElementsAre(Warning(u"2"), Warning(u"3")));
}

TEST_F(ReconcileDumpsTest, TakesEachAnswerByItself)
{
    box_.Text(u"dump 6 a dump 7 b");
    EXPECT_THAT(Reconcile({6, 7}, {1, 2}, {MessageButton::Ok, Cancel}), ElementsAre(6, 2));
    EXPECT_EQ(box_.Text(), u"dump 6 adump 2b");
}

TEST_F(ReconcileDumpsTest, OverwritesTheNewNumberAlsoWhenNothingMatches)
{
    box_.Text(u"in another script");
    EXPECT_THAT(Reconcile({6}, {5}, {Cancel}), ElementsAre(5));
    EXPECT_EQ(box_.Text(), u"in another script");
}

TEST_F(ReconcileDumpsTest, FindsANumberThatAnEarlierCancelBroughtBack)
{
    box_.Text(u"dump 8 a dump 9 b");
    EXPECT_THAT(Reconcile({8, 9}, {5, 5}, {Cancel}), ElementsAre(5, 9));
    EXPECT_THAT(Boxes(), ElementsAre(Warning(u"5")));
}

TEST_F(ReconcileDumpsTest, AsksForEachNumberOfEqualListsInAnyOrderNothing)
{
    EXPECT_THAT(Reconcile({2, 1}, {1, 2}), ElementsAre(2, 1));
    EXPECT_THAT(Boxes(), IsEmpty());
}

} // namespace
} // namespace rulemesh
