#include "views/view_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "support/view_desk.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Find, GivesTheViewOfThatName)
{
    ViewDesk desk;
    EXPECT_EQ(desk.Tree.Find(u"script"), &desk.Script);
}

TEST(Find, ComparesNamesExactly)
{
    ViewDesk desk;
    EXPECT_EQ(desk.Tree.Find(u"Script"), nullptr);
}

TEST(Reach, NeedsTheViewItselfVisibleAndEnabled)
{
    ViewDesk desk;
    ASSERT_TRUE(desk.Script.CanBeReached());
    desk.Script.Visible(false);
    EXPECT_FALSE(desk.Script.CanBeReached());
    desk.Script.Visible(true);
    desk.Script.Enabled(false);
    EXPECT_FALSE(desk.Script.CanBeReached());
}

TEST(Reach, NeedsEveryParentVisible)
{
    ViewDesk desk;
    desk.Tabs.Visible(false);
    EXPECT_FALSE(desk.Script.CanBeReached());
}

TEST(Reach, NeedsEveryParentEnabled)
{
    ViewDesk desk;
    desk.FirstPane.Enabled(false);
    EXPECT_FALSE(desk.Script.CanBeReached());
}

TEST(Reach, NeedsItsTabShown)
{
    ViewDesk desk;
    EXPECT_FALSE(desk.Combo.CanBeReached());
    desk.Tabs.Tab(1);
    EXPECT_TRUE(desk.Combo.CanBeReached());
    EXPECT_FALSE(desk.Script.CanBeReached());
}

TEST(Reach, LeavesTheViewsOwnFlagsAlone)
{
    ViewDesk desk;
    desk.Tabs.Visible(false);
    desk.FirstPane.Enabled(false);
    EXPECT_TRUE(desk.Script.Visible());
    EXPECT_TRUE(desk.Script.Enabled());
}

TEST(Shown, NeedsTheViewVisibleOnTheTabThatIsShown)
{
    ViewDesk desk;
    EXPECT_TRUE(desk.FirstPane.IsShown());
    EXPECT_FALSE(desk.SecondPane.IsShown());
    desk.FirstPane.Visible(false);
    EXPECT_FALSE(desk.FirstPane.IsShown());
}

TEST(Shown, GoesByTheViewsPlaceOnItsParentAlone)
{
    ViewDesk desk;
    desk.FirstPane.Visible(false);
    desk.Box.Enabled(false);
    EXPECT_TRUE(desk.Box.IsShown());
}

TEST(Focus, IsWithNoViewAtTheStart)
{
    ViewDesk desk;
    EXPECT_EQ(desk.Tree.Focused(), nullptr);
}

TEST(Focus, RunsTheOldViewsHandlerBeforeTheNewOnes)
{
    ViewDesk desk;
    desk.Box.SetFocus();
    desk.Script.SetFocus();
    EXPECT_THAT(desk.Log, ElementsAre("text got", "text lost", "script got"));
    EXPECT_EQ(desk.Focused(), u"script");
}

TEST(Focus, MovedToTheViewThatHasItRunsNothing)
{
    ViewDesk desk;
    desk.Box.SetFocus();
    desk.Log.clear();
    desk.Box.SetFocus();
    EXPECT_THAT(desk.Log, IsEmpty());
    EXPECT_TRUE(desk.Box.HasFocus());
}

TEST(Focus, CallOnAViewOutOfReachDoesNothing)
{
    ViewDesk desk;
    desk.Box.SetFocus();
    desk.Log.clear();
    desk.Script.Enabled(false);
    desk.Script.SetFocus();
    EXPECT_THAT(desk.Log, IsEmpty());
    EXPECT_EQ(desk.Focused(), u"text");
}

TEST(Focus, NeverGoesToALabelAFrameOrAPicture)
{
    ViewDesk desk;
    for (View* view :
         {static_cast<View*>(&desk.Title), static_cast<View*>(&desk.Inner), static_cast<View*>(&desk.Picture)})
        view->SetFocus();
    EXPECT_EQ(desk.Tree.Focused(), nullptr);
    EXPECT_THAT(desk.Log, IsEmpty());
}

TEST(Focus, IsWithNoViewWhileALostFocusHandlerRuns)
{
    ViewDesk desk;
    const View* during = &desk.Box;
    desk.Box.LostFocus = [&] { during = desk.Tree.Focused(); };
    desk.Box.SetFocus();
    desk.Script.SetFocus();
    EXPECT_EQ(during, nullptr);
}

TEST(Focus, ReadsAHiddenViewAsHiddenInsideItsLostFocusHandler)
{
    ViewDesk desk;
    bool visible = true;
    desk.Box.LostFocus = [&] { visible = desk.Box.Visible(); };
    desk.Box.SetFocus();
    desk.Box.Visible(false);
    EXPECT_FALSE(visible);
}

TEST(Focus, ReadsADisabledViewAsDisabledInsideItsLostFocusHandler)
{
    ViewDesk desk;
    bool enabled = true;
    desk.Box.LostFocus = [&] { enabled = desk.Box.Enabled(); };
    desk.Box.SetFocus();
    desk.Box.Enabled(false);
    EXPECT_FALSE(enabled);
}

TEST(Focus, HidingTheViewThatHasItLeavesNone)
{
    ViewDesk desk;
    desk.Box.SetFocus();
    desk.Box.Visible(false);
    EXPECT_THAT(desk.Log, ElementsAre("text got", "text lost"));
    EXPECT_EQ(desk.Tree.Focused(), nullptr);
}

TEST(Focus, DisablingTheViewThatHasItLeavesNone)
{
    ViewDesk desk;
    desk.Box.SetFocus();
    desk.Box.Enabled(false);
    EXPECT_THAT(desk.Log, ElementsAre("text got", "text lost"));
    EXPECT_EQ(desk.Tree.Focused(), nullptr);
}

TEST(Focus, HidingAParentOfTheViewThatHasItLeavesNone)
{
    ViewDesk desk;
    desk.Script.SetFocus();
    desk.FirstPane.Visible(false);
    EXPECT_THAT(desk.Log, ElementsAre("script got", "script lost"));
    EXPECT_EQ(desk.Tree.Focused(), nullptr);
}

TEST(Focus, DisablingAParentOfTheViewThatHasItLeavesNone)
{
    ViewDesk desk;
    desk.Script.SetFocus();
    desk.Inner.Enabled(false);
    EXPECT_THAT(desk.Log, ElementsAre("script got", "script lost"));
    EXPECT_EQ(desk.Tree.Focused(), nullptr);
}

TEST(Focus, StaysWhenAnotherViewIsHidden)
{
    ViewDesk desk;
    desk.Box.SetFocus();
    desk.Inner.Visible(false);
    desk.Press.Enabled(false);
    EXPECT_THAT(desk.Log, ElementsAre("text got"));
    EXPECT_TRUE(desk.Box.HasFocus());
}

TEST(Focus, DoesNotComeBackWithTheView)
{
    ViewDesk desk;
    desk.Box.SetFocus();
    desk.Box.Visible(false);
    desk.Box.Visible(true);
    EXPECT_EQ(desk.Tree.Focused(), nullptr);
}

TEST(Focus, ChangingToATabThatHidesItsViewLeavesNone)
{
    ViewDesk desk;
    desk.Script.SetFocus();
    desk.Tabs.Tab(1);
    EXPECT_THAT(desk.Log, ElementsAre("script got", "script lost"));
    EXPECT_EQ(desk.Tree.Focused(), nullptr);
}

TEST(Focus, CallInsideALostFocusHandlerWinsOverTheMoveThatSetItOff)
{
    ViewDesk desk;
    desk.Box.LostFocus = [&] { desk.Other.SetFocus(); };
    desk.Box.SetFocus();
    desk.Log.clear();
    desk.Script.SetFocus();
    EXPECT_THAT(desk.Log, ElementsAre("other got"));
    EXPECT_EQ(desk.Focused(), u"other");
}

TEST(Focus, CallInsideALostFocusHandlerCanBringItBack)
{
    ViewDesk desk;
    desk.Box.LostFocus = [&] { desk.Box.SetFocus(); };
    desk.Box.SetFocus();
    desk.Script.SetFocus();
    EXPECT_EQ(desk.Focused(), u"text");
}

TEST(Focus, CallOutOfReachInsideALostFocusHandlerDoesNotWin)
{
    ViewDesk desk;
    desk.Other.Enabled(false);
    desk.Box.LostFocus = [&] { desk.Other.SetFocus(); };
    desk.Box.SetFocus();
    desk.Script.SetFocus();
    EXPECT_EQ(desk.Focused(), u"script");
}

TEST(Focus, ReachesNoViewWhenTheLostFocusHandlerHidesTheTarget)
{
    ViewDesk desk;
    desk.Box.LostFocus = [&] { desk.Script.Visible(false); };
    desk.Box.SetFocus();
    desk.Log.clear();
    desk.Script.SetFocus();
    EXPECT_THAT(desk.Log, IsEmpty());
    EXPECT_EQ(desk.Tree.Focused(), nullptr);
}

TEST(Focus, FailureOfALostFocusHandlerLeavesTheOldViewAndReachesNoOther)
{
    ViewDesk desk;
    desk.Box.LostFocus = [] { throw Failure(FailureCode::Overflow); };
    desk.Box.SetFocus();
    EXPECT_EQ(FailureOf([&] { desk.Script.SetFocus(); }), FailureCode::Overflow);
    EXPECT_EQ(desk.Tree.Focused(), nullptr);
}

TEST(UserLeaves, RunsTheViewsHandlerAndThenTheForms)
{
    ViewDesk desk;
    desk.Box.SetFocus();
    desk.Log.clear();
    desk.Tree.UserLeaves();
    EXPECT_THAT(desk.Log, ElementsAre("text lost", "exit"));
    EXPECT_EQ(desk.Tree.Focused(), nullptr);
}

TEST(UserLeaves, RunsOnlyTheFormsHandlerWithoutAFocus)
{
    ViewDesk desk;
    desk.Tree.UserLeaves();
    EXPECT_THAT(desk.Log, ElementsAre("exit"));
}

TEST(UserLeaves, EndsWhenTheLostFocusHandlerBringsTheFocusBack)
{
    ViewDesk desk;
    desk.Box.LostFocus = [&] { desk.Other.SetFocus(); };
    desk.Box.SetFocus();
    desk.Log.clear();
    desk.Tree.UserLeaves();
    EXPECT_THAT(desk.Log, ElementsAre("other got"));
    EXPECT_EQ(desk.Focused(), u"other");
}

TEST(UserLeaves, LetsAFailureOfTheLostFocusHandlerEndIt)
{
    ViewDesk desk;
    desk.Box.LostFocus = [] { throw Failure(FailureCode::ObjectVariableNotSet); };
    desk.Box.SetFocus();
    desk.Log.clear();
    EXPECT_EQ(FailureOf([&] { desk.Tree.UserLeaves(); }), FailureCode::ObjectVariableNotSet);
    EXPECT_THAT(desk.Log, IsEmpty());
    EXPECT_EQ(desk.Tree.Focused(), nullptr);
}

TEST(UserPressesKey, RunsTheFormsHandlerAndThenTheViews)
{
    ViewDesk desk;
    desk.Tree.KeyDown = [&](std::int16_t&, std::int16_t) { desk.Log.emplace_back("form key"); };
    desk.Box.KeyDown = [&](std::int16_t&, std::int16_t) { desk.Log.emplace_back("text key"); };
    EXPECT_FALSE(desk.Tree.UserPressesKey(desk.Box, 65, 0));
    EXPECT_THAT(desk.Log, ElementsAre("text got", "form key", "text key"));
}

TEST(UserPressesKey, HandsOverCodeAndShiftState)
{
    ViewDesk desk;
    std::vector<int> seen;
    desk.Box.KeyDown = [&](std::int16_t& KeyCode, std::int16_t Shift) { seen = {KeyCode, Shift}; };
    static_cast<void>(desk.Tree.UserPressesKey(desk.Box, 9, 2));
    EXPECT_THAT(seen, ElementsAre(9, 2));
}

TEST(UserPressesKey, TellsThatAHandlerCancelledTheKey)
{
    ViewDesk desk;
    desk.Box.KeyDown = [](std::int16_t& KeyCode, std::int16_t) { KeyCode = 0; };
    EXPECT_TRUE(desk.Tree.UserPressesKey(desk.Box, 9, 2));
}

TEST(UserPressesKey, IsLostForAViewThatTheFocusDoesNotReach)
{
    ViewDesk desk;
    desk.Script.LostFocus = [&] { desk.Box.Enabled(false); };
    desk.Box.KeyDown = [&](std::int16_t&, std::int16_t) { desk.Log.emplace_back("text key"); };
    desk.Script.SetFocus();
    desk.Log.clear();
    EXPECT_FALSE(desk.Tree.UserPressesKey(desk.Box, 65, 0));
    EXPECT_THAT(desk.Log, IsEmpty());
}

TEST(Lengths, RefuseToBeNegative)
{
    ViewDesk desk;
    EXPECT_EQ(FailureOf([&] { desk.Box.Width(-1); }), FailureCode::InvalidPropertyValue);
    EXPECT_EQ(FailureOf([&] { desk.Box.Height(-1); }), FailureCode::InvalidPropertyValue);
    EXPECT_EQ(desk.Box.Width(), 0);
    EXPECT_EQ(desk.Box.Height(), 0);
}

TEST(Lengths, LetLeftAndTopBeNegative)
{
    ViewDesk desk;
    desk.Box.Left(-20);
    desk.Box.Top(-30);
    EXPECT_EQ(desk.Box.Left(), -20);
    EXPECT_EQ(desk.Box.Top(), -30);
}

TEST(Moments, PutEveryKindOfViewBackWithoutAHandler)
{
    ViewDesk desk;
    desk.Rows.Add({u"one", u"a"});
    desk.Combo.AddItem(u"entry", 7);
    desk.Cells.AddItem({u"key", u"rule"});
    desk.Tree.MoveFocus(desk.Box);
    const ViewTree::Moment then = desk.Tree.Now();
    desk.Box.Text(u"typed");
    desk.Press.Caption(u"pressed");
    desk.Press.Enabled(false);
    desk.Title.Visible(false);
    desk.Picture.Image(PictureButton::Picture::ImgMin);
    desk.Rows.Check(1, true);
    desk.Rows.Add({u"two", u"b"});
    desk.Rows.SortOrder(ListView::Order::Descending);
    desk.Combo.ListIndex(0);
    desk.Combo.ToolTip(u"tip");
    desk.Cells.Text(u"other");
    desk.Tabs.Tab(1);
    desk.Tabs.TabEnabled(0, false);
    static_cast<void>(desk.TakeLog());
    desk.Tree.PutBack(then);
    EXPECT_THAT(desk.TakeLog(), IsEmpty());
    EXPECT_EQ(desk.Focused(), u"text");
    EXPECT_EQ(desk.Box.Text(), u"");
    EXPECT_EQ(desk.Press.Caption(), u"");
    EXPECT_TRUE(desk.Press.Enabled());
    EXPECT_TRUE(desk.Title.Visible());
    EXPECT_EQ(desk.Picture.Image(), PictureButton::Picture::ImgMax);
    EXPECT_EQ(desk.Rows.Count(), 1);
    EXPECT_FALSE(desk.Rows.At(1).Checked);
    EXPECT_EQ(desk.Rows.SortOrder(), ListView::Order::Ascending);
    EXPECT_FALSE(desk.Combo.HasSelection());
    EXPECT_EQ(desk.Combo.ToolTip(), u"");
    EXPECT_EQ(desk.Cells.TextMatrix(0, 0), u"key");
    EXPECT_EQ(desk.Tabs.Tab(), 0);
    EXPECT_TRUE(desk.Tabs.TabEnabled(0));
}

TEST(Moments, ShareTheViewsThatDidNotChange)
{
    ViewDesk desk;
    const ViewTree::Moment then = desk.Tree.Now();
    desk.Box.Text(u"typed");
    const ViewTree::Moment now = desk.Tree.Now();
    std::size_t others = 0;
    for (std::size_t view = 0; view < now.Values.size(); ++view)
        others += now.Values[view] == then.Values[view] ? 1U : 0U;
    EXPECT_EQ(others, now.Values.size() - 1);
}

TEST(Moments, ShareTheViewsBetweenWhichTheFocusMoved)
{
    ViewDesk desk;
    desk.Box.SetFocus();
    const ViewTree::Moment then = desk.Tree.Now();
    static_cast<void>(desk.Tree.TakeChanged());
    desk.Press.SetFocus();
    EXPECT_EQ(desk.Tree.Now().Values, then.Values);
    EXPECT_EQ(desk.Tree.TakeChanged(), (std::vector<View*>{&desk.Box, &desk.Press})) << "but the front end is told";
}

} // namespace
} // namespace rulemesh
