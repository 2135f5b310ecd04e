#include "views/tab_control.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "support/view_desk.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct TabControlTest : testing::Test, ViewDesk {
    std::vector<int> Previous;

    TabControlTest()
    {
        Tabs.Click = [this](std::int16_t PreviousTab) { Previous.push_back(PreviousTab); };
    }
};

TEST_F(TabControlTest, ShowsTabZeroWithBothEnabledAtTheStart)
{
    EXPECT_EQ(Tabs.Tab(), 0);
    EXPECT_TRUE(Tabs.TabEnabled(0));
    EXPECT_TRUE(Tabs.TabEnabled(1));
}

TEST_F(TabControlTest, RunsTheClickHandlerWithTheTabThatWasLeft)
{
    Tabs.Tab(1);
    Tabs.Tab(0);
    EXPECT_THAT(Previous, ElementsAre(0, 1));
}

TEST_F(TabControlTest, RunsNothingForTheTabThatIsShown)
{
    Tabs.Tab(0);
    EXPECT_THAT(Previous, IsEmpty());
}

TEST_F(TabControlTest, LetsTheProgramShowADisabledTab)
{
    Tabs.TabEnabled(1, false);
    Tabs.Tab(1);
    EXPECT_EQ(Tabs.Tab(), 1);
    EXPECT_THAT(Previous, ElementsAre(0));
}

TEST_F(TabControlTest, TakesTheFocusFromTheHiddenViewBeforeTheClickHandler)
{
    Tabs.Click = [this](std::int16_t) { Log.emplace_back("tab click"); };
    Script.SetFocus();
    Tabs.Tab(1);
    EXPECT_THAT(Log, ElementsAre("script got", "script lost", "tab click"));
}

TEST_F(TabControlTest, ShowsTheNewTabWhileTheHiddenViewLosesTheFocus)
{
    int shown = -1;
    Script.LostFocus = [&] { shown = Tabs.Tab(); };
    Script.SetFocus();
    Tabs.Tab(1);
    EXPECT_EQ(shown, 1);
}

TEST_F(TabControlTest, MovesTheFocusToItselfOnTheUsersClick)
{
    Tabs.Click = [this](std::int16_t) { Log.emplace_back("tab click"); };
    Box.SetFocus();
    Tabs.UserClicksTab(1);
    EXPECT_THAT(Log, ElementsAre("text got", "text lost", "tabs got", "tab click"));
    EXPECT_EQ(Focused(), u"tabs");
}

TEST_F(TabControlTest, RunsNothingWhenTheUserClicksTheShownTab)
{
    Box.SetFocus();
    Tabs.UserClicksTab(0);
    EXPECT_THAT(Previous, IsEmpty());
    EXPECT_EQ(Focused(), u"text");
}

TEST_F(TabControlTest, LosesTheClickWhenTheTabIsDisabledByThen)
{
    Box.LostFocus = [this] { Tabs.TabEnabled(1, false); };
    Box.SetFocus();
    Tabs.UserClicksTab(1);
    EXPECT_EQ(Tabs.Tab(), 0);
    EXPECT_THAT(Previous, IsEmpty());
    EXPECT_EQ(Focused(), u"tabs");
}

TEST_F(TabControlTest, LosesTheClickWhenTheLostFocusHandlerMovesTheFocus)
{
    Box.LostFocus = [this] { Other.SetFocus(); };
    Box.SetFocus();
    Tabs.UserClicksTab(1);
    EXPECT_EQ(Tabs.Tab(), 0);
    EXPECT_EQ(Focused(), u"other");
}

TEST_F(TabControlTest, EndsTheClickOnAFailureOfTheLostFocusHandler)
{
    Box.LostFocus = [] { throw Failure(FailureCode::Overflow); };
    Box.SetFocus();
    EXPECT_EQ(FailureOf([this] { Tabs.UserClicksTab(1); }), FailureCode::Overflow);
    EXPECT_EQ(Tabs.Tab(), 0);
    EXPECT_EQ(Tree.Focused(), nullptr);
}

} // namespace
} // namespace rulemesh
