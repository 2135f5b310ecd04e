#include "desktop/text_box_widget.h"

#include <QInputMethodEvent>
#include <QMimeData>

#include "desktop/designer_window.h"
#include "desktop/passive_edit.h"

namespace rulemesh {

namespace {

class TextBoxes : public DesignerWindow {
protected:
    PassiveEdit& Editor() { return Of<TextBoxWidget>(Views().txtMainQuery).Editor(); }
    const Text& Kept() { return Views().txtMainQuery.Text(); }

    void Show(const Text& text)
    {
        Views().txtMainQuery.Text(text);
        Surface().FocusFor(Views().txtMainQuery);
        Surface().Sync();
    }

    void PutCaret(int position)
    {
        QTextCursor cursor = Editor().textCursor();
        cursor.setPosition(position);
        Editor().setTextCursor(cursor);
    }
};

} // namespace

TEST(ShownText, HasOneCharacterForEachLineEnd)
{
    EXPECT_EQ(ShownText(u"a\r\nb\nc\rd"), QStringLiteral("a\nb\nc\u2028d"));
    EXPECT_EQ(ShownText(u"\r\r\n"), QStringLiteral("\u2028\n"));
    EXPECT_EQ(ShownText(u"a\u2029b"), QStringLiteral("a\u00B6b"));
}

TEST(ModelPosition, CountsBothCharactersOfALineEnd)
{
    const Text text = u"a\r\nb\nc\rd";
    EXPECT_EQ(ModelPosition(text, 1), 1U);
    EXPECT_EQ(ModelPosition(text, 2), 3U);
    EXPECT_EQ(ModelPosition(text, 4), 5U);
    EXPECT_EQ(ModelPosition(text, 6), 7U);
    EXPECT_EQ(ModelPosition(text, 99), text.size());
}

TEST(EditedText, LeavesTheLineEndsAroundAnEditAlone)
{
    EXPECT_EQ(EditedText(u"a\nb\r\nc", QStringLiteral("a\nb\nc"), QStringLiteral("a\nXb\nc")), u"a\nXb\r\nc");
    EXPECT_EQ(EditedText(u"a\nb\r\nc", QStringLiteral("a\nb\nc"), QStringLiteral("a\nbc")), u"a\nbc");
    EXPECT_EQ(EditedText(u"a\rb", QStringLiteral("a\u2028b"), QStringLiteral("a\u2028b\n")), u"a\rb\r\n");
}

TEST_F(TextBoxes, BackspaceTakesALineEndAsAWhole)
{
    Show(u"a\r\nb\nc");
    PutCaret(2);
    QTest::keyClick(&Editor(), Qt::Key_Backspace);
    EXPECT_EQ(Kept(), u"ab\nc");
}

TEST_F(TextBoxes, UndoBringsBackTheLineEndsThatWereThere)
{
    Show(u"a\nb\r\nc\rd");
    Editor().selectAll();
    QTest::keyClick(&Editor(), Qt::Key_Delete);
    EXPECT_EQ(Kept(), u"");
    QTest::keyClick(&Editor(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Kept(), u"a\nb\r\nc\rd");
}

TEST_F(TextBoxes, RedoAndUndoOfTypingKeepTheOtherLineEnds)
{
    Show(u"a\nb");
    PutCaret(3);
    QTest::keyClick(&Editor(), Qt::Key_Return);
    QTest::keyClicks(&Editor(), QStringLiteral("z"));
    EXPECT_EQ(Kept(), u"a\nb\r\nz");
    for (int step = 0; step < 3; ++step)
        QTest::keyClick(&Editor(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Kept(), u"a\nb");
    for (int step = 0; step < 3; ++step)
        QTest::keyClick(&Editor(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Kept(), u"a\nb\r\nz");
}

TEST_F(TextBoxes, PastedTextKeepsItsLineEnds)
{
    Show(u"1\r\n2");
    PutCaret(1);
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("x\ny\r\nz\rw"));
    QApplication::sendEvent(&Editor(), &event);
    EXPECT_EQ(Kept(), u"1x\ny\r\nz\rw\r\n2");
}

TEST_F(TextBoxes, CopiedTextKeepsItsLineEndsWithinTheDesigner)
{
    Show(u"1\n2\r\n3");
    Editor().selectAll();
    Editor().copy();
    PutCaret(5);
    Editor().paste();
    EXPECT_EQ(Kept(), u"1\n2\r\n31\n2\r\n3");
}

TEST_F(TextBoxes, InputThatReplacesALockedTextIsIgnored)
{
    Show(u"abc");
    Views().txtMainQuery.Locked(true);
    Surface().Sync();
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("x"), -3, 3);
    QApplication::sendEvent(&Editor(), &event);
    EXPECT_EQ(Kept(), u"abc");
    EXPECT_EQ(Editor().WholeText(), QStringLiteral("abc"));
}

TEST_F(TextBoxes, TypingInTheMiddleLeavesTheCaretThere)
{
    Show(u"abc");
    PutCaret(1);
    QTest::keyClicks(&Editor(), QStringLiteral("xy"));
    EXPECT_EQ(Kept(), u"axybc");
    EXPECT_EQ(Editor().textCursor().position(), 3);
}

TEST_F(TextBoxes, TabKeyIsTextInAScript)
{
    Show(u"");
    QTest::keyClick(&Editor(), Qt::Key_Tab);
    EXPECT_EQ(Kept(), u"\t");
}

} // namespace rulemesh
