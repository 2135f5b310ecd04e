#include "views/text_box.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/view_desk.h"

namespace rulemesh {
namespace {

struct TextBoxTest : testing::Test, ViewDesk {
    int Changes = 0;

    TextBoxTest()
    {
        Box.Change = [this] { ++Changes; };
        Script.Change = [this] { ++Changes; };
    }
};

TEST_F(TextBoxTest, KeepsLineEndsAsTheyAreGivenWhenPlain)
{
    for (const TextView given : {u"a\r\nb", u"a\nb", u"a\rb", u"a\r\r\nb", u"\r\r\r\n"}) {
        Box.Text(Text(given));
        EXPECT_EQ(Box.Text(), given);
    }
}

TEST_F(TextBoxTest, FoldsCarriageReturnsInFrontOfALineFeedWhenItColours)
{
    const std::pair<TextView, TextView> cases[] = {
        {u"", u""},
        {u"a", u"a"},
        {u"a\r\nb", u"a\r\nb"},
        {u"a\r\r\nb", u"a\r\nb"},
        {u"a\r\r\r\r\nb", u"a\r\nb"},
        {u"\r\r\n", u"\r\n"},
        {u"a\nb", u"a\nb"},
        {u"a\n\nb", u"a\n\nb"},
        {u"a\rb", u"a\rb"},
        {u"a\r\rb", u"a\r\rb"},
        {u"a\r\r", u"a\r\r"},
        {u"\r\r\n\r\r\n", u"\r\n\r\n"},
        {u"\r\n\r\n", u"\r\n\r\n"},
        {u"a\r \r\nb", u"a\r \r\nb"},
    };
    for (const auto& [given, expected] : cases) {
        Script.Text(Text(given));
        EXPECT_EQ(Script.Text(), expected);
    }
}

TEST_F(TextBoxTest, RunsTheChangeHandlerWhenTheProgramChangesTheText)
{
    Box.Text(u"one");
    Script.Text(u"two");
    EXPECT_EQ(Changes, 2);
}

TEST_F(TextBoxTest, RunsTheChangeHandlerOnceWhenTheUserReplacesTheText)
{
    Box.UserTypes(u"one, two and three");
    EXPECT_EQ(Box.Text(), u"one, two and three");
    EXPECT_EQ(Changes, 1);
}

TEST_F(TextBoxTest, FoldsWhatTheUserTypesToo)
{
    Script.UserTypes(u"a\r\r\nb");
    EXPECT_EQ(Script.Text(), u"a\r\nb");
}

TEST_F(TextBoxTest, HoldsTheNewTextWhenTheChangeHandlerRuns)
{
    Text seen;
    Script.Change = [&] { seen = Script.Text(); };
    Script.Text(u"a\r\r\nb");
    EXPECT_EQ(seen, u"a\r\nb");
}

TEST_F(TextBoxTest, TakesTheFocusWhenTheUserTypes)
{
    Box.UserTypes(u"a");
    EXPECT_THAT(Log, testing::ElementsAre("text got"));
}

TEST_F(TextBoxTest, KeepsItsTextFromTheUserWhenLocked)
{
    Box.Text(u"kept");
    Changes = 0;
    Box.Locked(true);
    Box.UserTypes(u"typed");
    EXPECT_EQ(Box.Text(), u"kept");
    EXPECT_EQ(Changes, 0);
}

TEST_F(TextBoxTest, TakesTheFocusAlsoWhenLocked)
{
    Box.Locked(true);
    Box.UserTypes(u"typed");
    EXPECT_TRUE(Box.HasFocus());
}

TEST_F(TextBoxTest, LetsTheProgramChangeALockedText)
{
    Box.Locked(true);
    Box.Text(u"set");
    EXPECT_EQ(Box.Text(), u"set");
}

TEST_F(TextBoxTest, KeepsItsTextWhenItsGotFocusHandlerLocksIt)
{
    Box.GotFocus = [this] { Box.Locked(true); };
    Box.UserTypes(u"typed");
    EXPECT_EQ(Box.Text(), u"");
}

TEST_F(TextBoxTest, KeepsItsTextWhenTheFocusDoesNotReachIt)
{
    Script.LostFocus = [this] { Other.SetFocus(); };
    Script.SetFocus();
    Box.UserTypes(u"typed");
    EXPECT_EQ(Box.Text(), u"");
}

TEST_F(TextBoxTest, PutsTheCaretBehindWhatTheUserTyped)
{
    Box.UserTypes(u"four");
    EXPECT_EQ(Box.SelStart(), 4U);
}

TEST_F(TextBoxTest, PutsTheCaretInFrontOfWhatTheProgramSet)
{
    Box.UserTypes(u"four");
    Box.Text(u"sixsix");
    EXPECT_EQ(Box.SelStart(), 0U);
}

TEST_F(TextBoxTest, TakesACaretPastTheEndForTheEnd)
{
    Box.Text(u"four");
    Box.SelStart(2);
    EXPECT_EQ(Box.SelStart(), 2U);
    Box.SelStart(5);
    EXPECT_EQ(Box.SelStart(), 4U);
}

TEST_F(TextBoxTest, CountsTheTimesThatTheProgramPlacedTheCaret)
{
    const unsigned before = Box.CaretMoves();
    Box.UserTypes(u"four");
    EXPECT_EQ(Box.CaretMoves(), before);
    Box.SelStart(2);
    Box.SelStart(2);
    EXPECT_EQ(Box.CaretMoves(), before + 2);
}

} // namespace
} // namespace rulemesh
