#include <QInputMethodEvent>
#include <QScrollBar>

#include "desktop/designer_window.h"
#include "desktop/passive_edit.h"
#include "desktop/text_box_widget.h"

namespace rulemesh {

namespace {

// The box that opens over a cell of the rules, one row high.
class EditBox : public DesignerWindow {
protected:
    PassiveEdit& Editor() { return Of<TextBoxWidget>(Views().txtgrdline).Editor(); }

    void OpenOn(const Text& rule)
    {
        ShowRules();
        Views().RulesGrid.TextMatrix(0, 1, rule);
        Surface().FocusFor(Views().RulesGrid);
        QTest::keyClick(Host.focusWidget(), Qt::Key_Space);
    }

    // Whether the line of the caret is wholly in sight and has something drawn on it.
    void ExpectLineOfTheCaret(const char* when)
    {
        QApplication::processEvents();
        const QRect caret = Editor().cursorRect();
        EXPECT_GE(caret.top(), 0) << when;
        EXPECT_LE(caret.bottom(), Editor().viewport()->height()) << when;
        const QImage picture = Editor().viewport()->grab().toImage();
        const QRgb paper = Editor().palette().color(QPalette::Base).rgb();
        bool drawn = false;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 3 + Editor().cursorWidth(); x < picture.width(); ++x)
                drawn = drawn || picture.pixel(x, y) != paper;
        }
        EXPECT_TRUE(drawn) << when;
    }
};

} // namespace

TEST_F(EditBox, ShowsTheLineOfTheCaretOfARuleOfSeveralLines)
{
    OpenOn(u"first line\r\nsecond line\r\nthird line");
    ASSERT_TRUE(Editor().isVisible());
    ExpectLineOfTheCaret("before a key is pressed");
    QTest::keyClick(&Editor(), Qt::Key_Up);
    ExpectLineOfTheCaret("up");
    QTest::keyClick(&Editor(), Qt::Key_Home, Qt::ControlModifier);
    ExpectLineOfTheCaret("at the beginning");
    QTest::keyClicks(&Editor(), QStringLiteral("x"));
    QTest::keyClick(&Editor(), Qt::Key_Return);
    ExpectLineOfTheCaret("behind a new line");
    QInputMethodEvent pasted;
    pasted.setCommitString(QStringLiteral("p\nq\nr"));
    QApplication::sendEvent(&Editor(), &pasted);
    ExpectLineOfTheCaret("pasted");
}

TEST_F(EditBox, AlwaysHasItsVerticalScrollBar)
{
    OpenOn(u"x");
    EXPECT_TRUE(Editor().verticalScrollBar()->isVisible());
    EXPECT_FALSE(Editor().horizontalScrollBar()->isVisible());
}

TEST_F(EditBox, ScrollsByWholeLines)
{
    OpenOn(u"first line\r\nsecond line\r\nthird line");
    Editor().verticalScrollBar()->setValue(0);
    QTest::keyClick(&Editor(), Qt::Key_Home, Qt::ControlModifier);
    Editor().verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    QTest::keyClick(&Editor(), Qt::Key_Down);
    ExpectLineOfTheCaret("scrolled by one line");
    EXPECT_EQ(Editor().textCursor().blockNumber(), 1);
}

} // namespace rulemesh
