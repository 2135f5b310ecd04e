#include "desktop/designer_window.h"

#include <QMenuBar>

#include "desktop/list_widget.h"
#include "desktop/passive_edit.h"
#include "desktop/text_box_widget.h"

namespace rulemesh {

namespace {

class FocusOfTheWindow : public DesignerWindow {
protected:
    // Qt's focus is in the designer, on nothing that types, and the model has none.
    void ExpectNowhereInTheDesigner()
    {
        EXPECT_EQ(Views().Tree.Focused(), nullptr);
        EXPECT_EQ(Host.focusWidget(), static_cast<QWidget*>(&Designer));
    }

    [[nodiscard]] bool IsSaved(const char* text)
    {
        return Designer.Control().DocumentAsItStands().find(text) != std::string::npos;
    }
};

// Two designers with the sample in one window.
class TwoDesigners : public DesignerWindow {
protected:
    TwoDesigners()
    {
        Other.setGeometry(0, Host.height(), Designer.width(), Designer.height());
        Host.resize(Host.width(), Host.height() + Designer.height());
        Other.TargetTable(QStringLiteral("salor101"));
        Other.MappingObjectXmlUtf8(Designer.MappingObjectXmlUtf8());
        Other.Edit(true);
        Other.show();
        Other.ShowControl();
        for (RulemeshWidget* designer : {&Designer, &Other}) {
            designer->Surface().Act([&] { designer->Control().Views().MainTab.UserClicksTab(1); });
            Button& guess = designer->Control().Views().CmdGuess;
            guess.Click = [this, designer] { (designer == &Other ? InOther : InFirst) += 1; };
        }
    }

    void PressAltG() { QTest::keyClick(Host.focusWidget(), Qt::Key_G, Qt::AltModifier); }

    RecordingPlatform OtherDesk;
    RecordingEvents OtherEvents;
    RulemeshWidget Other{OtherDesk, OtherEvents, &Host};
    int InFirst = 0;
    int InOther = 0;
};

} // namespace

TEST_F(FocusOfTheWindow, OkOfAPanelBySpaceStaysInTheDesigner)
{
    int exits = 0;
    const Slot told = std::exchange(Views().Tree.ExitFocus, [&exits] { ++exits; });
    Surface().FocusFor(Views().CmdFunction);
    QTest::keyClick(Host.focusWidget(), Qt::Key_Space);
    Surface().FocusFor(Views().CmdOk);
    QTest::keyClick(Host.focusWidget(), Qt::Key_Space);
    EXPECT_FALSE(Views().txtFunctions.Visible());
    ExpectNowhereInTheDesigner();
    EXPECT_EQ(exits, 0);
    Line.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(exits, 1);
}

TEST_F(FocusOfTheWindow, OkOfAPanelByEnterStaysInTheDesigner)
{
    Surface().FocusFor(Views().CmdVariables);
    QTest::keyClick(Host.focusWidget(), Qt::Key_Return);
    Surface().FocusFor(Views().CmdOk);
    QTest::keyClick(Host.focusWidget(), Qt::Key_Return);
    ExpectNowhereInTheDesigner();
}

TEST_F(FocusOfTheWindow, ViewThatIsDisabledWithTheFocusLeavesItInTheDesigner)
{
    Surface().FocusFor(Views().txtPreCondition);
    Views().txtPreCondition.Enabled(false);
    Surface().Sync();
    ExpectNowhereInTheDesigner();
    const Text before = Views().txtPreCondition.Text();
    QTest::keyClicks(Host.focusWidget(), QStringLiteral("x"));
    EXPECT_EQ(Views().txtPreCondition.Text(), before);
    EXPECT_TRUE(Line.text().isEmpty());
}

TEST_F(FocusOfTheWindow, KeysOfTheControlWorkWhileNoViewHasTheFocus)
{
    Surface().FocusFor(Views().CmdSelectSource);
    Views().CmdSelectSource.Enabled(false);
    Surface().Sync();
    ExpectNowhereInTheDesigner();
    QTest::keyClick(Host.focusWidget(), Qt::Key_M, Qt::AltModifier);
    EXPECT_EQ(Focused(), u"txtMainQuery");
}

TEST_F(FocusOfTheWindow, TabGoesOnFromNowhereToTheFirstView)
{
    Surface().FocusFor(Views().CmdSelectSource);
    Views().CmdSelectSource.Enabled(false);
    Surface().Sync();
    QTest::keyClick(Host.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(Focused(), u"MainTab");
}

TEST_F(FocusOfTheWindow, BacktabOfTheHostComesInAtTheLastView)
{
    Line.setFocus();
    QTest::keyClick(&Line, Qt::Key_Backtab);
    const View* last = nullptr;
    for (const View* view : Views().Tree.Views()) {
        if (view->TakesFocus() && view->CanBeReached())
            last = view;
    }
    EXPECT_EQ(Focused(), last->Name());
}

TEST_F(FocusOfTheWindow, ActivationBringsTheFocusWhereTheModelHasIt)
{
    Surface().FocusFor(Views().txtPreCondition);
    QApplication::setActiveWindow(nullptr);
    WidgetOf(Views().CmdVariables)->setFocus(Qt::OtherFocusReason); // nobody is told while the window is inactive
    QApplication::setActiveWindow(&Host);
    EXPECT_EQ(Focused(), u"txtPreCondition");
}

TEST_F(FocusOfTheWindow, ActivationLeavesTheFocusNowhereWhenTheModelHasNone)
{
    QApplication::setActiveWindow(nullptr);
    WidgetOf(Views().txtPreCondition)->setFocus(Qt::OtherFocusReason);
    QApplication::setActiveWindow(&Host);
    ExpectNowhereInTheDesigner();
}

// Some window systems deliver the press first and activate the window behind it.
TEST_F(FocusOfTheWindow, ScriptThatAPressInTheInactiveWindowLeavesIsSaved)
{
    QTest::mouseClick(Of<TextBoxWidget>(Views().txtPreCondition).Editor().viewport(), Qt::LeftButton, {}, {20, 5});
    QTest::keyClicks(Host.focusWidget(), QStringLiteral("| left"));
    ASSERT_FALSE(IsSaved("| left"));
    QApplication::setActiveWindow(nullptr);
    QTest::mouseClick(&Line, Qt::LeftButton);
    QApplication::setActiveWindow(&Host);
    EXPECT_EQ(Host.focusWidget(), &Line);
    EXPECT_EQ(Views().Tree.Focused(), nullptr);
    EXPECT_TRUE(IsSaved("| left"));
}

TEST_F(FocusOfTheWindow, HostsLineThatTakesItByAMenuIsToldLikeAnyOther)
{
    QMenuBar menus(&Host);
    menus.show();
    Surface().FocusFor(Views().txtPreCondition);
    menus.setFocus(Qt::MenuBarFocusReason);
    EXPECT_TRUE(Views().txtPreCondition.HasFocus());
    Line.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(Views().Tree.Focused(), nullptr);
}

TEST_F(FocusOfTheWindow, WindowThatComesBackTellsNoSecondLeaving)
{
    int exits = 0;
    const Slot told = std::exchange(Views().Tree.ExitFocus, [&exits] { ++exits; });
    Surface().FocusFor(Views().txtPreCondition);
    Line.setFocus(Qt::MouseFocusReason);
    QApplication::setActiveWindow(nullptr);
    QApplication::setActiveWindow(&Host);
    EXPECT_EQ(Host.focusWidget(), &Line);
    EXPECT_EQ(exits, 1);
}

TEST_F(FocusOfTheWindow, ButtonThatWaitsForTheEditorHasTakenItFromTheViewBefore)
{
    QTest::mouseClick(Of<ListWidget>(Views().lstMigrateSource).Tree().viewport(), Qt::LeftButton, {}, {20, 5});
    ASSERT_EQ(Focused(), u"lstMigrateSource");
    Desk.Editor = [this](const Text&) {
        Surface().Sync(); // as a desktop does before it waits
        EXPECT_EQ(Host.focusWidget(), &Designer);
        return 1;
    };
    QTest::mouseClick(WidgetOf(Views().CmdMqEditor), Qt::LeftButton);
    EXPECT_EQ(Desk.Commands.size(), 1U);
    EXPECT_EQ(Focused(), u"CmdMqEditor");
}

TEST_F(TwoDesigners, AccessKeyIsForTheOneWithTheFocus)
{
    Other.Surface().FocusFor(Other.Control().Views().RulesGrid);
    PressAltG();
    PressAltG();
    EXPECT_EQ(InOther, 2);
    EXPECT_EQ(InFirst, 0);
    Surface().FocusFor(Views().RulesGrid);
    PressAltG();
    EXPECT_EQ(InOther, 2);
    EXPECT_EQ(InFirst, 1);
}

TEST_F(TwoDesigners, AccessKeyThatOnlyTheOtherHasPressesNothing)
{
    Surface().FocusFor(Views().RulesGrid);
    Views().CmdGuess.Enabled(false);
    Surface().Sync();
    PressAltG();
    EXPECT_EQ(InOther, 0);
    EXPECT_EQ(InFirst, 0);
}

TEST_F(TwoDesigners, AccessKeyFromOutsideIsForTheOneThatHadTheFocusLast)
{
    Surface().FocusFor(Views().RulesGrid);
    Other.Surface().FocusFor(Other.Control().Views().RulesGrid);
    Line.setFocus(Qt::MouseFocusReason);
    PressAltG();
    EXPECT_EQ(InOther, 1);
    EXPECT_EQ(InFirst, 0);
}

} // namespace rulemesh
