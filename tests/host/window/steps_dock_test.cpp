// The list of steps, by keys and mouse.

#include "host/window/steps_dock.h"

#include <QAccessible>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>

#include "desktop/view_surface.h"
#include "host/host_desk.h"

namespace rulemesh {
namespace {

class StepsDockTest : public HostDesk {
protected:
    StepsDockTest() { window->Current().Open(File("object.xml")); }

    StepsDock& Dock() { return *window->findChild<StepsDock*>(); }
    QListView& List() { return *Dock().findChild<QListView*>(); }
    QWidget& WidgetOf(const View& view) { return Designer().Surface().WidgetOf(view); }

    QAction* EntryOfTheViewMenu()
    {
        for (QAction* menu : window->menuBar()->actions()) {
            if (menu->text() == QStringLiteral("&View"))
                return menu->menu()->actions().value(0);
        }
        return nullptr;
    }

    // Types a character into the precondition, then has all rules guessed.
    void TypeAndGuess()
    {
        before_ = Views().txtPreCondition.Text();
        QTest::keyClick(&WidgetOf(Views().txtPreCondition), Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(&WidgetOf(Views().txtPreCondition), '|');
        Designer().Surface().Act([this] { Views().MainTab.UserClicksTab(1); });
        QTest::mouseClick(&WidgetOf(Views().CmdGuess), Qt::LeftButton);
        ASSERT_EQ(Rule(1), u"custs001.name");
    }

    Text Rule(int row) { return Views().RulesGrid.TextMatrix(row, 1); }

    QStringList Shown()
    {
        QStringList rows;
        for (int row = 0; row < List().model()->rowCount(); ++row)
            rows += List().model()->index(row, 0).data().toString();
        return rows;
    }

    void Click(int row)
    {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                          List().visualRect(List().model()->index(row, 0)).center());
    }

    Text before_;
};

TEST_F(StepsDockTest, IsClosedUntilTheViewMenuShowsIt)
{
    EXPECT_FALSE(Dock().isVisible());
    QAction* entry = EntryOfTheViewMenu();
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->text(), QStringLiteral("&Steps"));
    entry->trigger();
    EXPECT_TRUE(Dock().isVisible());
    EXPECT_EQ(window->focusWidget(), &List());
    entry->trigger();
    EXPECT_FALSE(Dock().isVisible());
}

TEST_F(StepsDockTest, NamesTheStepsAndMarksThePresentOne)
{
    EntryOfTheViewMenu()->trigger();
    TypeAndGuess();
    EXPECT_EQ(Shown(), (QStringList{QStringLiteral("Before the first step"), QStringLiteral("Typing"),
                                    QStringLiteral("Guess")}));
    EXPECT_EQ(List().currentIndex().row(), 2);
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(List().currentIndex().row(), 1);
    EXPECT_TRUE(List().model()->index(1, 0).data(Qt::FontRole).value<QFont>().bold());
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&List());
    EXPECT_EQ(list->text(QAccessible::Name), QStringLiteral("Steps"));
    EXPECT_EQ(list->child(1)->text(QAccessible::Name), QStringLiteral("Typing, present step"));
    EXPECT_EQ(list->child(2)->text(QAccessible::Name), QStringLiteral("Guess, undone"));
}

TEST_F(StepsDockTest, GoesToAStepByAClickInOneGo)
{
    EntryOfTheViewMenu()->trigger();
    TypeAndGuess();
    const QSignalSpy told(&Designer(), &RulemeshWidget::HistoryChanged);
    Click(0);
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(Views().txtPreCondition.Text(), before_);
    EXPECT_EQ(Views().MainTab.Tab(), 0);
    EXPECT_EQ(List().currentIndex().row(), 0);
    Click(2);
    EXPECT_EQ(told.size(), 2);
    EXPECT_EQ(Views().txtPreCondition.Text(), before_ + u'|');
    EXPECT_EQ(Rule(1), u"custs001.name");
}

TEST_F(StepsDockTest, GoesToAStepByEnter)
{
    TypeAndGuess();
    EntryOfTheViewMenu()->trigger();
    QTest::keyClick(&List(), Qt::Key_Home);
    EXPECT_EQ(Rule(1), u"custs001.name"); // looking at the list changes nothing
    QTest::keyClick(&List(), Qt::Key_Return);
    EXPECT_EQ(Views().txtPreCondition.Text(), before_);
    EXPECT_TRUE(Designer().isAncestorOf(window->focusWidget()));
    EXPECT_EQ(Designer().UndoText(), QString());
    EXPECT_EQ(Designer().RedoText(), QStringLiteral("Typing"));
}

TEST_F(StepsDockTest, IsEmptyWithoutAnObject)
{
    EntryOfTheViewMenu()->trigger();
    EXPECT_EQ(Shown().size(), 1);
    window->Current().Close();
    EXPECT_TRUE(Shown().isEmpty());
}

TEST_F(StepsDockTest, StaysOpenFromOneStartToTheNext)
{
    EntryOfTheViewMenu()->trigger();
    window->close();
    MakeWindow();
    EXPECT_TRUE(Dock().isVisible());
}

// What the application does by itself, to open the rules of a table that was entered, is no step.
TEST_F(StepsDockTest, ShowsOnlyWhatTheUserDid)
{
    EntryOfTheViewMenu()->trigger();
    QWidget& script = WidgetOf(Views().txtPreCondition);
    const Text before = Views().txtPreCondition.Text();
    Designer().Setfocus();
    QTest::keyClick(&script, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(&script, Qt::Key_Return);
    QTest::keyClicks(&script, QStringLiteral("migrate ordrs001"));
    Designer().TakeFocusOut();
    ASSERT_TRUE(WaitFor([this] { return Designer().SourceTables() == QStringLiteral("custs001,ordrs001"); }));
    ASSERT_TRUE(WaitFor([this] { return Views().MainTab.TabEnabled(1); }));
    for (const QString& step : Shown().mid(1))
        EXPECT_EQ(step, QStringLiteral("Typing"));
    Click(0);
    EXPECT_EQ(Views().txtPreCondition.Text(), before);
    EXPECT_EQ(Designer().SourceTables(), QStringLiteral("custs001"));
}

} // namespace
} // namespace rulemesh
