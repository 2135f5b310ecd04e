#include "views/button.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "support/view_desk.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ButtonClick, MovesTheFocusAndThenRunsTheClick)
{
    ViewDesk desk;
    desk.Box.SetFocus();
    desk.Log.clear();
    desk.Press.UserClicks();
    EXPECT_THAT(desk.Log, ElementsAre("text lost", "button got", "button click"));
    EXPECT_TRUE(desk.Press.HasFocus());
}

TEST(ButtonClick, RunsOnTheButtonThatHasTheFocus)
{
    ViewDesk desk;
    desk.Press.SetFocus();
    desk.Log.clear();
    desk.Press.UserClicks();
    EXPECT_THAT(desk.Log, ElementsAre("button click"));
}

TEST(ButtonClick, IsLostWhenTheLostFocusHandlerDisablesTheButton)
{
    ViewDesk desk;
    desk.Box.LostFocus = [&] { desk.Press.Enabled(false); };
    desk.Box.SetFocus();
    desk.Log.clear();
    desk.Press.UserClicks();
    EXPECT_THAT(desk.Log, IsEmpty());
    EXPECT_EQ(desk.Tree.Focused(), nullptr);
}

TEST(ButtonClick, IsLostWhenTheLostFocusHandlerHidesAParentOfTheButton)
{
    ViewDesk desk;
    desk.Box.LostFocus = [&] { desk.FirstPane.Visible(false); };
    desk.Box.SetFocus();
    desk.Log.clear();
    desk.Press.UserClicks();
    EXPECT_THAT(desk.Log, IsEmpty());
}

TEST(ButtonClick, IsLostWhenTheLostFocusHandlerMovesTheFocus)
{
    ViewDesk desk;
    desk.Box.LostFocus = [&] { desk.Other.SetFocus(); };
    desk.Box.SetFocus();
    desk.Log.clear();
    desk.Press.UserClicks();
    EXPECT_THAT(desk.Log, ElementsAre("other got"));
    EXPECT_EQ(desk.Focused(), u"other");
}

TEST(ButtonClick, KeepsTheFocusWhileItDisablesItsOwnButton)
{
    ViewDesk desk;
    bool kept = false;
    desk.Press.Click = [&] {
        desk.Press.Enabled(false);
        kept = desk.Press.HasFocus();
    };
    desk.Press.UserClicks();
    EXPECT_TRUE(kept);
}

TEST(ButtonClick, TakesTheFocusAtItsEndFromAButtonThatIsStillDisabled)
{
    ViewDesk desk;
    desk.Press.Click = [&] { desk.Press.Enabled(false); };
    desk.Press.UserClicks();
    EXPECT_EQ(desk.Tree.Focused(), nullptr);
}

TEST(ButtonClick, LeavesTheFocusToAButtonThatIsEnabledAgainByItsEnd)
{
    ViewDesk desk;
    desk.Press.Click = [&] {
        desk.Press.Enabled(false);
        desk.Press.Enabled(true);
    };
    desk.Press.UserClicks();
    EXPECT_TRUE(desk.Press.HasFocus());
}

TEST(ButtonClick, LosesTheFocusAtOnceWhenItHidesItsOwnButton)
{
    ViewDesk desk;
    const View* during = &desk.Press;
    desk.Press.Click = [&] {
        desk.Press.Visible(false);
        during = desk.Tree.Focused();
    };
    desk.Press.UserClicks();
    EXPECT_EQ(during, nullptr);
}

TEST(ButtonClick, LeavesTheFocusWhereItMovedIt)
{
    ViewDesk desk;
    desk.Press.Click = [&] {
        desk.Press.Enabled(false);
        desk.Box.SetFocus();
    };
    desk.Press.UserClicks();
    EXPECT_EQ(desk.Focused(), u"text");
}

TEST(ButtonClick, TakesTheFocusFromADisabledButtonWhenItFails)
{
    ViewDesk desk;
    desk.Press.Click = [&] {
        desk.Press.Enabled(false);
        throw Failure(FailureCode::PathFileAccess);
    };
    EXPECT_EQ(FailureOf([&] { desk.Press.UserClicks(); }), FailureCode::PathFileAccess);
    EXPECT_EQ(desk.Tree.Focused(), nullptr);
}

TEST(ButtonClick, RunsNothingOnAFailureOfTheLostFocusHandler)
{
    ViewDesk desk;
    desk.Box.LostFocus = [] { throw Failure(FailureCode::Overflow); };
    desk.Box.SetFocus();
    desk.Log.clear();
    EXPECT_EQ(FailureOf([&] { desk.Press.UserClicks(); }), FailureCode::Overflow);
    EXPECT_THAT(desk.Log, IsEmpty());
}

TEST(PictureButtonClick, LeavesTheFocusWhereItIs)
{
    ViewDesk desk;
    desk.Picture.Click = [&] { desk.Log.emplace_back("picture click"); };
    desk.Box.SetFocus();
    desk.Log.clear();
    desk.Picture.UserClicks();
    EXPECT_THAT(desk.Log, ElementsAre("picture click"));
    EXPECT_EQ(desk.Focused(), u"text");
}

} // namespace
} // namespace rulemesh
