#include <set>

#include <gmock/gmock.h>

#include "desktop/designer_window.h"
#include "desktop/passive_edit.h"
#include "desktop/text_box_widget.h"

namespace rulemesh {

namespace {

using testing::IsSupersetOf;

class Keyboard : public DesignerWindow {
protected:
    // Goes ahead by the key that leaves the view with the focus, until the focus is out of the designer.
    std::set<Text> VisitedByKeyboard()
    {
        std::set<Text> visited;
        for (int step = 0; step < 60 && Views().Tree.Focused() != nullptr; ++step) {
            visited.insert(Focused());
            const bool inText =
                Views().Tree.Focused()->Kind() == ViewKind::Syntax || Views().Tree.Focused()->Kind() == ViewKind::Grid;
            QTest::keyClick(Host.focusWidget(), Qt::Key_Tab, inText ? Qt::ControlModifier : Qt::NoModifier);
        }
        return visited;
    }

    std::set<Text> Reachable()
    {
        std::set<Text> names;
        for (const View* view : Views().Tree.Views()) {
            if (view->TakesFocus() && view->CanBeReached())
                names.insert(Text(view->Name()));
        }
        return names;
    }
};

} // namespace

TEST_F(Keyboard, ReachesEveryButtonAndListOfTheScripts)
{
    Surface().FocusFor(Views().MainTab);
    std::set<Text> visited = VisitedByKeyboard();
    // The scripts' own control and tab go from one box to the other; what stands between is reached from the box
    // ahead by the tab key of the last button, or by access keys.
    Surface().FocusFor(Views().CmdBuildPre);
    visited.merge(VisitedByKeyboard());
    Surface().FocusFor(Views().cmdBuildMQ);
    visited.merge(VisitedByKeyboard());
    EXPECT_THAT(visited, IsSupersetOf(Reachable()));
}

TEST_F(Keyboard, ReachesEverythingOnTheRulesTab)
{
    ShowRules();
    Surface().FocusFor(Views().MainTab);
    EXPECT_EQ(VisitedByKeyboard(), Reachable());
}

TEST_F(Keyboard, TabBehindTheLastViewLeavesForTheHost)
{
    ShowRules();
    Surface().FocusFor(Views().RulesGrid);
    QTest::keyClick(WidgetOf(Views().RulesGrid), Qt::Key_Tab, Qt::ControlModifier);
    Host.setFocus();
    EXPECT_EQ(Focused(), u"");
}

TEST_F(Keyboard, ComesInFromTheHostAtTheFirstView)
{
    Line.setFocus();
    Designer.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(Focused(), u"MainTab");
}

TEST_F(Keyboard, AltMGoesToTheMainQueryAndAltPBack)
{
    Surface().FocusFor(Views().CmdSelectSource);
    QTest::keyClick(Host.focusWidget(), Qt::Key_M, Qt::AltModifier);
    EXPECT_EQ(Focused(), u"txtMainQuery");
    QTest::keyClick(Host.focusWidget(), Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(Focused(), u"txtPreCondition");
}

TEST_F(Keyboard, AltQGoesToTheListOfQueries)
{
    Surface().FocusFor(Views().CmdSelectSource);
    QTest::keyClick(Host.focusWidget(), Qt::Key_Q, Qt::AltModifier);
    EXPECT_EQ(Focused(), u"lstMigrateSource");
}

TEST_F(Keyboard, AltUGoesToTheDumpsOnTheRulesTab)
{
    ShowRules();
    Surface().FocusFor(Views().lstSourceFields);
    QTest::keyClick(Host.focusWidget(), Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(Focused(), u"CmbDump");
}

TEST_F(Keyboard, AccessKeyOfACaptionPressesItsButton)
{
    Surface().FocusFor(Views().lstSourceTables);
    QTest::keyClick(Host.focusWidget(), Qt::Key_U, Qt::AltModifier);
    QTRY_VERIFY(Views().txtFunctions.Visible());
    EXPECT_EQ(Focused(), u"txtFunctions");
}

TEST_F(Keyboard, SpaceAndEnterPressTheButtonWithTheFocus)
{
    Surface().FocusFor(Views().CmdFunction);
    QTest::keyClick(Host.focusWidget(), Qt::Key_Space);
    EXPECT_TRUE(Views().txtFunctions.Visible());
    Surface().FocusFor(Views().CmdCancel);
    QTest::keyClick(Host.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(Views().txtFunctions.Visible());
}

TEST_F(Keyboard, TypedTextReachesTheModelWithACarriageReturnForEnter)
{
    Views().txtMainQuery.Text(u"ab");
    Surface().FocusFor(Views().txtMainQuery);
    QTest::keyClick(Host.focusWidget(), Qt::Key_End);
    QTest::keyClicks(Host.focusWidget(), QStringLiteral("c"));
    QTest::keyClick(Host.focusWidget(), Qt::Key_Return);
    QTest::keyClicks(Host.focusWidget(), QStringLiteral("d"));
    EXPECT_EQ(Views().txtMainQuery.Text(), u"abc\r\nd");
}

TEST_F(Keyboard, CharacterInTheGridOpensTheCellWithIt)
{
    ShowRules();
    Surface().FocusFor(Views().RulesGrid);
    QTest::keyClick(Host.focusWidget(), Qt::Key_X);
    EXPECT_EQ(Focused(), u"txtgrdline");
    EXPECT_EQ(Views().txtgrdline.Text(), u"x");
    QTest::keyClicks(Host.focusWidget(), QStringLiteral("yz"));
    EXPECT_EQ(Views().txtgrdline.Text(), u"xyz");
    QTest::keyClick(Host.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(Views().RulesGrid.TextMatrix(0, 1), u"xyz");
    EXPECT_EQ(Views().RulesGrid.Row(), 1);
}

TEST_F(Keyboard, EscapeClosesTheCellAndKeepsItsText)
{
    ShowRules();
    Surface().FocusFor(Views().RulesGrid);
    const Text before = Views().RulesGrid.TextMatrix(0, 1);
    QTest::keyClick(Host.focusWidget(), Qt::Key_X);
    QTest::keyClick(Host.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(Views().RulesGrid.TextMatrix(0, 1), before);
    EXPECT_EQ(Focused(), u"RulesGrid");
}

TEST_F(Keyboard, LockedBoxKeepsItsText)
{
    Designer.Edit(false);
    const Text before = Views().txtPreCondition.Text();
    Surface().FocusFor(Views().txtPreCondition);
    QTest::keyClicks(Host.focusWidget(), QStringLiteral("x"));
    QTest::keyClick(Host.focusWidget(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Views().txtPreCondition.Text(), before);
}

} // namespace rulemesh
