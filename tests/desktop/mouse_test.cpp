#include <QHeaderView>
#include <QScrollBar>
#include <QTabBar>
#include <QTableView>
#include <QTreeView>
#include <QWheelEvent>
#include <gmock/gmock.h>

#include "desktop/designer_window.h"
#include "desktop/grid_widget.h"
#include "desktop/list_widget.h"

namespace rulemesh {

namespace {

class Mouse : public DesignerWindow {
protected:
    Mouse() { ShowRules(); }

    QTableView& Table() { return Of<GridWidget>(Views().RulesGrid).Table(); }
    QTreeView& Tree(ListView& list) { return Of<ListWidget>(list).Tree(); }

    void PressRow(ListView& list, int row, int column)
    {
        QTreeView& tree = Tree(list);
        const QModelIndex index = tree.model()->index(row - 1, column);
        tree.scrollTo(index);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(index).center());
    }

    void PressCell(int row, int col)
    {
        QTest::mouseClick(Table().viewport(), Qt::LeftButton, {},
                          Table().visualRect(Table().model()->index(row, col)).center());
    }

    void Roll(QWidget& widget, int notches)
    {
        const QPointF middle = widget.rect().center();
        QWheelEvent event(middle, widget.mapToGlobal(middle), {}, {0, -120 * notches}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
    }
};

} // namespace

TEST_F(Mouse, RowOfTheTargetFieldsBringsItsRuleIntoTheGrid)
{
    PressRow(Views().lstTargetFields, 5, 3);
    EXPECT_EQ(Views().lstTargetFields.SelectedRow(), 5);
    EXPECT_EQ(Focused(), u"lstTargetFields");
    EXPECT_EQ(Views().RulesGrid.TextMatrix(Views().RulesGrid.Row(), 0), Views().lstTargetFields.TextAt(5, 3));
}

TEST_F(Mouse, CheckBoxIsTickedAndClearedWithoutSelectingItsRow)
{
    ListView& list = Views().lstSourceFields;
    const ListRow before = list.SelectedRow();
    const QPoint box = Of<ListWidget>(list).CheckBoxOf(3).center();
    QTest::mouseClick(Tree(list).viewport(), Qt::LeftButton, {}, box);
    EXPECT_TRUE(list.At(3).Checked);
    QTest::mouseClick(Tree(list).viewport(), Qt::LeftButton, {}, box);
    EXPECT_FALSE(list.At(3).Checked);
    EXPECT_LE(list.SelectedRow(), before == NoListRow ? ListRow(1) : before);
    EXPECT_EQ(Focused(), u"lstSourceFields");
}

TEST_F(Mouse, SpaceTicksTheCurrentRow)
{
    ListView& list = Views().lstSourceFields;
    PressRow(list, 4, 2);
    QTest::keyClick(&Tree(list), Qt::Key_Space);
    EXPECT_TRUE(list.At(4).Checked);
}

TEST_F(Mouse, HeaderSortsAndTheArrowFollowsTheModel)
{
    ListView& list = Views().lstSourceFields;
    QHeaderView& header = *Tree(list).header();
    const QPoint name(header.sectionViewportPosition(2) + header.sectionSize(2) / 2, header.height() / 2);
    for (int click = 0; click < 3; ++click) {
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, name);
        EXPECT_EQ(header.sortIndicatorSection(), list.SortKey());
        EXPECT_EQ(header.sortIndicatorOrder() == Qt::AscendingOrder, list.SortOrder() == ListView::Order::Ascending);
        EXPECT_EQ(Tree(list).model()->index(0, 2).data().toString(), ToQt(list.TextAt(1, 2)));
    }
    EXPECT_EQ(list.SortKey(), 2);
}

TEST_F(Mouse, DoubleClickOpensTheCellOnItsRow)
{
    PressCell(6, 1);
    const QPoint place = Table().visualRect(Table().model()->index(6, 1)).center();
    QTest::mouseDClick(Table().viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(Focused(), u"txtgrdline");
    EXPECT_EQ(Views().txtgrdline.Text(), Views().RulesGrid.TextMatrix(6, 1));
    const QRect row = Table().visualRect(Table().model()->index(6, 1)).translated(Table().pos());
    EXPECT_EQ(WidgetOf(Views().txtgrdline)->geometry().top(), row.top());
}

TEST_F(Mouse, DoubleClickRunsOneClick)
{
    int clicks = 0;
    int doubles = 0;
    Views().RulesGrid.Click = [&] { ++clicks; };
    Views().RulesGrid.DblClick = [&] { ++doubles; };
    PressCell(2, 1);
    QTest::mouseDClick(Table().viewport(), Qt::LeftButton, {},
                       Table().visualRect(Table().model()->index(2, 1)).center());
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(doubles, 1);
}

TEST_F(Mouse, GridScrollsUntilItsLastRowIsOnTop)
{
    QScrollBar& bar = *Table().verticalScrollBar();
    EXPECT_EQ(bar.maximum(), Views().RulesGrid.Rows() - 1);
    bar.setValue(bar.maximum());
    EXPECT_EQ(Views().RulesGrid.TopRow(), Views().RulesGrid.Rows() - 1);
    EXPECT_EQ(Table().rowAt(1), Views().RulesGrid.Rows() - 1);
}

TEST_F(Mouse, WheelScrollsTheGridAndCommitsTheOpenCell)
{
    Surface().FocusFor(Views().RulesGrid);
    QTest::keyClick(WidgetOf(Views().RulesGrid), Qt::Key_Q);
    Roll(*Table().viewport(), 1);
    EXPECT_GT(Views().RulesGrid.TopRow(), 0);
    EXPECT_EQ(Views().RulesGrid.TextMatrix(0, 1), u"q");
    EXPECT_FALSE(Views().txtgrdline.Visible());
}

TEST_F(Mouse, WheelOverAComboWithoutTheFocusChoosesNothing)
{
    Surface().FocusFor(Views().RulesGrid);
    const int before = Views().CmbDump.ListIndex();
    Roll(*WidgetOf(Views().CmbDump), 1);
    EXPECT_EQ(Views().CmbDump.ListIndex(), before);
}

TEST_F(Mouse, ClickOnAnotherWidgetOfTheHostLeavesAndCommitsTheCell)
{
    Surface().FocusFor(Views().RulesGrid);
    QTest::keyClick(WidgetOf(Views().RulesGrid), Qt::Key_Q);
    QTest::mouseClick(&Line, Qt::LeftButton);
    EXPECT_EQ(Views().Tree.Focused(), nullptr);
    EXPECT_EQ(Views().RulesGrid.TextMatrix(0, 1), u"q");
    EXPECT_TRUE(Line.hasFocus());
}

TEST_F(Mouse, WindowThatLosesActivationKeepsTheFocus)
{
    Surface().FocusFor(Views().RulesGrid);
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    EXPECT_EQ(Views().Tree.Focused(), &Views().RulesGrid);
}

// A host's own widgets around the designer may take the focus by a click; a click in the designer is none on them.
TEST_F(Mouse, ClickInAHostThatTakesTheFocusStaysInTheDesigner)
{
    Host.setFocusPolicy(Qt::StrongFocus);
    Surface().FocusFor(Views().RulesGrid);
    QTest::mouseClick(WidgetOf(Views().Label1), Qt::LeftButton);
    EXPECT_EQ(Focused(), u"RulesGrid");
}

TEST_F(Mouse, LostClickOnATabGoesBackToTheShownOne)
{
    Views().CmbDump.LostFocus = [this] { Views().lstTargetFields.SetFocus(); };
    Surface().FocusFor(Views().CmbDump);
    auto& bar = dynamic_cast<QTabBar&>(*WidgetOf(Views().MainTab));
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(0).center());
    EXPECT_EQ(Views().MainTab.Tab(), 1);
    EXPECT_EQ(bar.currentIndex(), 1);
}

TEST_F(Mouse, TabIsNotShownBeforeTheFieldThatIsLeftHasHadItsSay)
{
    auto& bar = dynamic_cast<QTabBar&>(*WidgetOf(Views().MainTab));
    int meanwhile = -1;
    Views().lstTargetFields.LostFocus = [&] { meanwhile = bar.currentIndex(); };
    Surface().FocusFor(Views().lstTargetFields);
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(0).center());
    EXPECT_EQ(meanwhile, 1);
    EXPECT_EQ(bar.currentIndex(), 0);
    EXPECT_EQ(Views().MainTab.Tab(), 0);
}

} // namespace rulemesh
