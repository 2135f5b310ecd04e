#include <QTest>

#include "desktop/designer_window.h"
#include "desktop/text_box_widget.h"

// One history for the boxes and the commands, by keys.

namespace rulemesh {
namespace {

class HistoryInput : public DesignerWindow {
protected:
    PassiveEdit& EditorOf(TextBox& box) { return Of<TextBoxWidget>(box).Editor(); }

    void ClickIn(TextBox& box) { QTest::mouseClick(EditorOf(box).viewport(), Qt::LeftButton, {}, {40, 5}); }
    void Key(TextBox& box, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&EditorOf(box), key, modifiers);
    }
};

TEST_F(HistoryInput, TakesCharactersTypedOneAfterTheOtherBackTogether)
{
    TextBox& box = Views().txtPreCondition;
    const Text before = box.Text();
    ClickIn(box);
    QTest::keyClicks(&EditorOf(box), QStringLiteral("abc"));
    const Text typed = box.Text();
    ASSERT_NE(typed, before);
    Key(box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), before);
    Key(box, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(box.Text(), typed);
}

TEST_F(HistoryInput, EndsAStepOfTypingAtALineEnd)
{
    TextBox& box = Views().txtPreCondition;
    ClickIn(box);
    QTest::keyClicks(&EditorOf(box), QStringLiteral("a"));
    Key(box, Qt::Key_Return);
    const Text line = box.Text();
    QTest::keyClicks(&EditorOf(box), QStringLiteral("b"));
    Key(box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), line);
}

TEST_F(HistoryInput, EndsAStepOfTypingAtAPause)
{
    TextBox& box = Views().txtPreCondition;
    ClickIn(box);
    QTest::keyClicks(&EditorOf(box), QStringLiteral("a"));
    const Text first = box.Text();
    QTest::qWait(1100);
    QTest::keyClicks(&EditorOf(box), QStringLiteral("bc"));
    Key(box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), first);
}

TEST_F(HistoryInput, PutsTheCaretWhereTheTextChanged)
{
    TextBox& box = Views().txtPreCondition;
    PassiveEdit& editor = EditorOf(box);
    ClickIn(box);
    QTextCursor cursor = editor.textCursor();
    cursor.setPosition(30);
    editor.setTextCursor(cursor);
    QTest::keyClicks(&editor, QStringLiteral("xyz"));
    cursor.setPosition(0);
    editor.setTextCursor(cursor);
    Key(box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(editor.textCursor().position(), 30);
}

TEST_F(HistoryInput, TakesACommandBackFromABox)
{
    const auto rules = [this] {
        std::vector<Text> all;
        for (int row = 0; row < Views().RulesGrid.Rows(); ++row)
            all.push_back(Views().RulesGrid.TextMatrix(row, 1));
        return all;
    };
    ShowRules();
    Surface().Act([this] { Views().CmbDump.UserChooses(1); });
    const std::vector<Text> before = rules();
    QTest::mouseClick(WidgetOf(Views().CmdGuess), Qt::LeftButton);
    ASSERT_NE(rules(), before);
    EXPECT_EQ(Designer.UndoText(), QStringLiteral("Guess"));
    Surface().Act([this] { Views().MainTab.UserClicksTab(0); });
    ClickIn(Views().txtPreCondition);
    Key(Views().txtPreCondition, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Views().MainTab.Tab(), 1);
    EXPECT_EQ(rules(), before);
    EXPECT_EQ(Designer.RedoText(), QStringLiteral("Guess"));
}

TEST_F(HistoryInput, OpensACellAgainAsItWasTypedInto)
{
    ShowRules();
    QTest::keyClick(WidgetOf(Views().RulesGrid), Qt::Key_X);
    TextBox& box = Views().txtgrdline;
    ASSERT_TRUE(box.Visible());
    QTest::keyClicks(&EditorOf(box), QStringLiteral("yz"));
    EXPECT_EQ(box.Text(), u"xyz");
    Key(box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(box.Visible());
}

} // namespace
} // namespace rulemesh
