#include <QAccessible>
#include <QInputMethodEvent>
#include <QScrollBar>
#include <QTableView>
#include <gmock/gmock.h>

#include "desktop/designer_window.h"
#include "desktop/grid_widget.h"

namespace rulemesh {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GridInput : public DesignerWindow {
protected:
    GridInput()
    {
        ShowRules();
        Surface().Act([this] { Views().RulesGrid.UserMovesTo(0, 1); });
        Surface().FocusFor(Views().RulesGrid);
    }

    Grid& Cells() { return Views().RulesGrid; }
    QTableView& Table() { return Of<GridWidget>(Cells()).Table(); }

    void Send(int key, Qt::KeyboardModifiers held, const QString& text)
    {
        QKeyEvent event(QEvent::KeyPress, key, held, text);
        QApplication::sendEvent(&Table(), &event);
    }

    void Commit(const QString& text)
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&Table(), &event);
    }

    // Whether a cell is open, after a check that the marked cell is the model's.
    bool IsOpen()
    {
        EXPECT_EQ(Table().currentIndex(), Table().model()->index(Cells().Row().Number(), Cells().Col()));
        EXPECT_EQ(Table().selectionModel()->selectedIndexes().size(), 1);
        EXPECT_TRUE(Table().selectionModel()->isSelected(Table().currentIndex()));
        return Views().txtgrdline.Visible();
    }

    QPoint PlaceOf(int row, int col) { return Table().visualRect(Table().model()->index(row, col)).center(); }

    // A place in the row below the last one that is wholly in sight.
    QPoint PlaceAtTheEdge() { return {PlaceOf(0, 1).x(), Table().viewport()->height() - 1}; }
};

} // namespace

TEST_F(GridInput, DeleteKeepsTheRule)
{
    const Text before = Cells().TextMatrix(0, 1);
    Send(Qt::Key_Delete, Qt::NoModifier, QStringLiteral("\x7F"));
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Cells().TextMatrix(0, 1), before);
}

TEST_F(GridInput, KeysThatTypeNothingPrintableOpenNoCell)
{
    Send(Qt::Key_A, Qt::ControlModifier, QStringLiteral("\x01"));
    Send(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier, QStringLiteral("A"));
    Send(Qt::Key_A, Qt::AltModifier, QStringLiteral("a"));
    Send(Qt::Key_A, Qt::MetaModifier, QStringLiteral("a"));
    Send(Qt::Key_Q, Qt::ControlModifier | Qt::AltModifier, QStringLiteral("\x11"));
    Send(Qt::Key_F2, Qt::NoModifier, {});
    Send(Qt::Key_F1, Qt::NoModifier, QString(QChar(0xF704)));
    Send(Qt::Key_Delete, Qt::KeypadModifier, QStringLiteral("\x7F"));
    Send(Qt::Key_unknown, Qt::NoModifier, QString(QChar(0x200B)));
    Send(Qt::Key_Insert, Qt::ShiftModifier, {});
    EXPECT_FALSE(IsOpen());
}

TEST_F(GridInput, BackspaceEnterAndEscapeOpenTheCellWithItsText)
{
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        Surface().Act([this] { Cells().TextMatrix(0, 1, u"kept"); });
        Send(key, Qt::NoModifier, {});
        EXPECT_TRUE(IsOpen()) << key;
        EXPECT_EQ(Views().txtgrdline.Text(), u"kept");
        Surface().FocusFor(Cells());
    }
}

TEST_F(GridInput, ThirdLevelOfTheKeyboardTypesItsCharacter)
{
    Send(Qt::Key_Q, Qt::ControlModifier | Qt::AltModifier, QStringLiteral("@"));
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Views().txtgrdline.Text(), u"@");
}

TEST_F(GridInput, CharacterOfTwoUnitsOpensTheCellWhole)
{
    Send(Qt::Key_unknown, Qt::NoModifier, QStringLiteral("\U0001F600"));
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Views().txtgrdline.Text(), u"\U0001F600");
    EXPECT_EQ(Views().txtgrdline.SelStart(), 2U);
}

TEST_F(GridInput, TextOfAnInputMethodOpensTheCellWithAllOfIt)
{
    Commit({});
    EXPECT_FALSE(IsOpen());
    Commit(QString::fromUtf8("\xE6\x97\xA5\xE6\x9C\xAC"));
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Views().txtgrdline.Text(), u"\u65E5\u672C");
    EXPECT_TRUE(Table().testAttribute(Qt::WA_InputMethodEnabled));
}

TEST_F(GridInput, TextOfAnInputMethodLeavesALockedRuleAlone)
{
    Surface().FocusFor(Views().MainTab);
    Designer.Edit(false);
    Surface().Act([this] { Cells().TextMatrix(0, 1, u"kept"); });
    Surface().FocusFor(Cells());
    Commit(QStringLiteral("xyz"));
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Views().txtgrdline.Text(), u"kept");
}

TEST_F(GridInput, OtherButtonsAndADragLeaveTheCurrentCell)
{
    QWidget* viewport = Table().viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, PlaceOf(2, 1));
    QTest::mouseClick(viewport, Qt::RightButton, {}, PlaceOf(4, 1));
    QTest::mouseClick(viewport, Qt::MiddleButton, {}, PlaceOf(4, 1));
    QTest::mousePress(viewport, Qt::LeftButton, {}, PlaceOf(3, 0));
    const QPoint at = PlaceOf(5, 1);
    QMouseEvent move(QEvent::MouseMove, at, viewport->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &move);
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, at);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Cells().Row(), 3);
    EXPECT_EQ(Cells().Col(), 0);
}

TEST_F(GridInput, SelectionOfTheToolkitChangesNothing)
{
    Table().selectAll();
    Table().clearSelection();
    Table().setCurrentIndex(Table().model()->index(4, 0));
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Cells().Row(), 0);
}

TEST_F(GridInput, RowDrawnInPartIsScrolledIntoSightAndThenClicked)
{
    std::vector<std::string> log;
    Cells().Scroll = [&] { log.push_back("scroll to " + std::to_string(Cells().TopRow().Number())); };
    Cells().Click = [&] { log.push_back("click on " + std::to_string(Cells().Row().Number())); };
    ASSERT_FALSE(Cells().RowIsVisible(Table().rowAt(PlaceAtTheEdge().y())));
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, PlaceAtTheEdge());
    EXPECT_THAT(log, ElementsAre("scroll to 1", "click on 9"));
}

TEST_F(GridInput, DoubleClickOnARowDrawnInPartOpensThatRow)
{
    QTest::mouseDClick(Table().viewport(), Qt::LeftButton, {}, PlaceAtTheEdge());
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Cells().Row(), 9);
    EXPECT_EQ(Cells().TopRow(), 1);
}

TEST_F(GridInput, ClickOnARowDrawnInPartCommitsTheOpenCellFirst)
{
    QTest::keyClicks(&Table(), QStringLiteral("q"));
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, PlaceAtTheEdge());
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Cells().TextMatrix(0, 1), u"q");
    EXPECT_EQ(Cells().Row(), 9);
}

TEST_F(GridInput, KeysScrollByTheUsersEntrance)
{
    int scrolls = 0;
    Cells().Scroll = [&] { ++scrolls; };
    QTest::keyClick(&Table(), Qt::Key_End);
    EXPECT_EQ(scrolls, 1);
    EXPECT_EQ(Cells().Row(), Cells().Rows() - 1);
    EXPECT_EQ(Cells().TopRow(), Cells().Rows() - 9);
    QTest::keyClick(&Table(), Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(Cells().TopRow(), 0);
    QTest::keyClick(&Table(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Cells().Row(), 0);
    EXPECT_FALSE(IsOpen());
}

TEST_F(GridInput, AssistiveToolSelectsACellByTheClick)
{
    std::vector<int> clicked;
    Cells().Click = [&] { clicked.push_back(Cells().Row().Number()); };
    QAccessibleInterface* cell =
        QAccessible::queryAccessibleInterface(&Table())->tableInterface()->cellAt(Cells().Rows() - 1, 1);
    cell->tableCellInterface();
    cell->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_THAT(clicked, ElementsAre(Cells().Rows() - 1));
    EXPECT_TRUE(Cells().RowIsVisible(Cells().Rows() - 1));
    EXPECT_FALSE(IsOpen());
}

TEST_F(GridInput, NothingScrollsTheGridSideways)
{
    Table().horizontalScrollBar()->setValue(20);
    EXPECT_EQ(Table().visualRect(Table().model()->index(0, 0)).left(), 0);
}

TEST_F(GridInput, RulesStandLeftAndTop)
{
    const auto alignment = Table().model()->index(0, 1).data(Qt::TextAlignmentRole).value<int>();
    EXPECT_EQ(alignment, Qt::AlignLeft | Qt::AlignTop);
}

} // namespace rulemesh
