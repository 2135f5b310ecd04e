#include <QAccessible>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QItemSelectionModel>
#include <QTreeView>
#include <gmock/gmock.h>

#include "desktop/designer_window.h"
#include "desktop/list_widget.h"

namespace rulemesh {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class ListInput : public DesignerWindow {
protected:
    ListInput()
    {
        ShowRules();
        Views().lstTargetFields.ItemClick = [this, before = Views().lstTargetFields.ItemClick](ListRow row) {
            Clicked.push_back(row.Number());
            before(row);
        };
        Clicked.clear();
    }

    QTreeView& Tree(ListView& list) { return Of<ListWidget>(list).Tree(); }

    static std::vector<int> SelectedIn(const ListView& list)
    {
        std::vector<int> rows;
        for (int row = 1; row <= list.Count(); ++row) {
            if (list.At(row).Selected)
                rows.push_back(row);
        }
        return rows;
    }

    // The rows that are highlighted, after a check that they are the model's.
    std::vector<int> Highlighted(ListView& list)
    {
        std::vector<int> rows;
        for (int row = 1; row <= list.Count(); ++row) {
            if (Tree(list).selectionModel()->isRowSelected(row - 1))
                rows.push_back(row);
        }
        EXPECT_EQ(rows, SelectedIn(list));
        EXPECT_EQ(Tree(list).currentIndex().row() + 1, list.CurrentRow());
        return rows;
    }

    QPoint PlaceOf(ListView& list, int row, int column = 3)
    {
        return Tree(list).visualRect(Tree(list).model()->index(row - 1, column)).center();
    }

    void Press(ListView& list, int row, Qt::KeyboardModifiers held = {}, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(Tree(list).viewport(), button, held, PlaceOf(list, row));
    }

    void Key(ListView& list, Qt::Key key, Qt::KeyboardModifiers held = {}) { QTest::keyClick(&Tree(list), key, held); }

    std::vector<int> Clicked; // rows of the target fields whose click handler ran
};

} // namespace

TEST_F(ListInput, TypingAheadSelectsAFieldAndItsRuleByTheClick)
{
    ListView& list = Views().lstTargetFields;
    Surface().FocusFor(list);
    const std::string key = ToQt(list.TextAt(7, 3)).toStdString();
    const std::string name = key.substr(key.find('.') + 1);
    QTest::keyClicks(&Tree(list), QString::fromStdString(name).toUpper());
    ASSERT_EQ(Highlighted(list).size(), 1U);
    const Text found = list.TextAt(Highlighted(list).front(), 3);
    EXPECT_THAT(ToQt(found).toStdString(), StartsWith(key));
    EXPECT_EQ(Clicked.back(), Highlighted(list).front());
    EXPECT_EQ(Views().RulesGrid.TextMatrix(Views().RulesGrid.Row(), 0), found);
}

TEST_F(ListInput, TypingAheadInTheSourceTablesDecidesWhatDeleteTakes)
{
    Views().MainTab.Tab(0);
    Surface().Sync();
    ListView& list = Views().lstSourceTables;
    ASSERT_GE(list.Count(), 2);
    Surface().FocusFor(list);
    const Text last = list.TextAt(list.Count(), 0);
    QTest::keyClicks(&Tree(list), ToQt(last));
    EXPECT_THAT(Highlighted(list), ElementsAre(list.Count()));
}

TEST_F(ListInput, TypingTheSameCharacterAgainGoesOnToTheNextRow)
{
    ListView& list = Views().lstTargetFields;
    Surface().FocusFor(list);
    Press(list, 1);
    const QChar first = ToQt(list.TextAt(1, 3)).front(); // of the table's name, which all rows begin with
    QTest::keyClicks(&Tree(list), QString(2, first));
    EXPECT_THAT(Highlighted(list), ElementsAre(3));
}

TEST_F(ListInput, TextOfAnInputMethodIsTypedAheadToo)
{
    ListView& list = Views().lstTargetFields;
    Surface().FocusFor(list);
    QInputMethodEvent event;
    event.setCommitString(ToQt(list.TextAt(5, 3)));
    QApplication::sendEvent(&Tree(list), &event);
    EXPECT_THAT(Highlighted(list), ElementsAre(5));
    EXPECT_THAT(Clicked, ElementsAre(5));
}

TEST_F(ListInput, OtherButtonsSelectNothing)
{
    ListView& list = Views().lstTargetFields;
    Press(list, 2);
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
        Press(list, 4, {}, button);
        EXPECT_THAT(Highlighted(list), ElementsAre(2));
    }
    EXPECT_THAT(Clicked, ElementsAre(2));
}

TEST_F(ListInput, MouseThatMovesWhilePressedSelectsNothingElse)
{
    for (ListView* list : {&Views().lstTargetFields, &Views().lstSourceFields}) {
        QWidget* viewport = Tree(*list).viewport();
        QTest::mousePress(viewport, Qt::LeftButton, {}, PlaceOf(*list, 2));
        for (int row = 2; row <= 6; ++row) {
            const QPoint at = PlaceOf(*list, row) + QPoint(3, 1);
            QMouseEvent move(QEvent::MouseMove, at, viewport->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
            QApplication::sendEvent(viewport, &move);
            EXPECT_THAT(Highlighted(*list), ElementsAre(2));
        }
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, PlaceOf(*list, 6));
        EXPECT_THAT(Highlighted(*list), ElementsAre(2));
    }
}

TEST_F(ListInput, ControlAAndFTwoSelectNothing)
{
    for (ListView* list : {&Views().lstTargetFields, &Views().lstSourceFields}) {
        Press(*list, 3);
        Key(*list, Qt::Key_A, Qt::ControlModifier);
        Key(*list, Qt::Key_F2);
        EXPECT_THAT(Highlighted(*list), ElementsAre(3));
    }
}

TEST_F(ListInput, TargetFieldsTakeOneRowWithShiftAndControlToo)
{
    ListView& list = Views().lstTargetFields;
    Press(list, 2);
    Press(list, 5, Qt::ShiftModifier);
    EXPECT_THAT(Highlighted(list), ElementsAre(5));
    Press(list, 3, Qt::ControlModifier);
    EXPECT_THAT(Highlighted(list), ElementsAre(3));
    Key(list, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(Highlighted(list), ElementsAre(4));
    Key(list, Qt::Key_Down, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_THAT(Highlighted(list), ElementsAre(5));
    EXPECT_THAT(Clicked, ElementsAre(2, 5, 3, 4, 5));
}

TEST_F(ListInput, SourceFieldsTakeSeveralRowsByControlAndShift)
{
    ListView& list = Views().lstSourceFields;
    Press(list, 2);
    Press(list, 4, Qt::ControlModifier);
    EXPECT_THAT(Highlighted(list), ElementsAre(2, 4));
    Press(list, 2, Qt::ControlModifier);
    EXPECT_THAT(Highlighted(list), ElementsAre(4));
    Press(list, 4);
    Press(list, 6, Qt::ShiftModifier);
    EXPECT_THAT(Highlighted(list), ElementsAre(4, 5, 6));
    Press(list, 3, Qt::ShiftModifier);
    EXPECT_THAT(Highlighted(list), ElementsAre(3, 4));
    Press(list, 5);
    EXPECT_THAT(Highlighted(list), ElementsAre(5));
}

TEST_F(ListInput, SourceFieldsTakeSeveralRowsByTheKeyboard)
{
    ListView& list = Views().lstSourceFields;
    Press(list, 2);
    Key(list, Qt::Key_Down, Qt::ShiftModifier);
    Key(list, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(Highlighted(list), ElementsAre(2, 3, 4));
    Key(list, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_THAT(Highlighted(list), ElementsAre(2, 3));
    Key(list, Qt::Key_Down, Qt::ControlModifier);
    Key(list, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_THAT(Highlighted(list), ElementsAre(2, 3));
    Key(list, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_THAT(Highlighted(list), ElementsAre(2, 3, 5));
    Key(list, Qt::Key_Down);
    EXPECT_THAT(Highlighted(list), ElementsAre(6));
}

TEST_F(ListInput, TickMakesTicksTheSelectionWhateverWasSelected)
{
    ListView& list = Views().lstSourceFields;
    Press(list, 2);
    Press(list, 3, Qt::ControlModifier);
    QTest::mouseClick(Tree(list).viewport(), Qt::LeftButton, {}, Of<ListWidget>(list).CheckBoxOf(5).center());
    EXPECT_THAT(Highlighted(list), ElementsAre(5));
    Key(list, Qt::Key_Space);
    EXPECT_THAT(Highlighted(list), IsEmpty());
    EXPECT_EQ(list.CurrentRow(), 5);
    Key(list, Qt::Key_Space);
    EXPECT_TRUE(list.At(5).Checked);
}

TEST_F(ListInput, RowDrawnInPartIsScrolledIntoSightAndClicked)
{
    ListView& list = Views().lstTargetFields;
    QTreeView& tree = Tree(list);
    const int inSight = tree.viewport()->height() / tree.sizeHintForRow(0);
    const QPoint atTheEdge(PlaceOf(list, 1).x(), tree.viewport()->height() - 1);
    const int row = tree.indexAt(atTheEdge).row() + 1;
    ASSERT_EQ(row, inSight + 1) << "no row is drawn in part";
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, atTheEdge);
    EXPECT_THAT(Highlighted(list), ElementsAre(row));
    EXPECT_EQ(tree.indexAt({atTheEdge.x(), 1}).row(), 1);
    for (const int clicked : Clicked)
        EXPECT_EQ(clicked, row);
}

TEST_F(ListInput, AssistiveToolSelectsByTheClick)
{
    ListView& list = Views().lstTargetFields;
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&Tree(list));
    ASSERT_TRUE(interface->tableInterface()->selectRow(3));
    EXPECT_THAT(Clicked, ElementsAre(4)); // row 0 of a tool is the header
    EXPECT_THAT(Highlighted(list), ElementsAre(4));
}

TEST_F(ListInput, AssistiveToolTakesSourceFieldsInAndOut)
{
    ListView& list = Views().lstSourceFields;
    Press(list, 2);
    QAccessibleTableInterface* table = QAccessible::queryAccessibleInterface(&Tree(list))->tableInterface();
    table->selectRow(3);
    EXPECT_EQ(Highlighted(list).size(), 2U);
    table->unselectRow(3);
    EXPECT_THAT(Highlighted(list), ElementsAre(2));
}

TEST_F(ListInput, SelectionOfTheToolkitChangesNothing)
{
    for (ListView* list : {&Views().lstTargetFields, &Views().lstSourceFields}) {
        Press(*list, 2);
        Tree(*list).clearSelection();
        Tree(*list).setCurrentIndex(Tree(*list).model()->index(4, 1));
        EXPECT_EQ(Tree(*list).currentIndex().row(), 1);
        Tree(*list).selectionModel()->clear();
        EXPECT_THAT(Highlighted(*list), ElementsAre(2));
    }
}

TEST_F(ListInput, EveryKeyLeavesTheHighlightWithTheModel)
{
    const std::vector<Qt::KeyboardModifiers> modifiers = {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier,
                                                          Qt::ControlModifier | Qt::ShiftModifier};
    for (ListView* list : {&Views().lstTargetFields, &Views().lstSourceFields}) {
        Press(*list, 3);
        for (int key = Qt::Key_Space; key <= Qt::Key_AsciiTilde; ++key) {
            for (const Qt::KeyboardModifiers held : modifiers) {
                Surface().FocusFor(*list);
                QKeyEvent event(QEvent::KeyPress, key, held, QString(QChar(key)));
                QApplication::sendEvent(&Tree(*list), &event);
                static_cast<void>(Highlighted(*list));
            }
        }
    }
}

TEST_F(ListInput, ListOfMainQueriesIsBold)
{
    EXPECT_TRUE(Tree(Views().lstMigrateSource).font().bold());
    EXPECT_FALSE(Tree(Views().lstSourceTables).font().bold());
}

} // namespace rulemesh
