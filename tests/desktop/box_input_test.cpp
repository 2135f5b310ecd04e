#include <random>

#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QTimer>

#include "desktop/designer_window.h"
#include "desktop/passive_edit.h"
#include "desktop/text_box_widget.h"

namespace rulemesh {

namespace {

// A designer with the box of the main query ready for input.
class BoxInput : public DesignerWindow {
protected:
    PassiveEdit& Editor() { return Of<TextBoxWidget>(Views().txtMainQuery).Editor(); }
    const Text& Kept() { return Views().txtMainQuery.Text(); }

    void Show(const Text& text)
    {
        Views().txtMainQuery.Text(text);
        Surface().FocusFor(Views().txtMainQuery);
        Surface().Sync();
    }

    void Select(int from, int to)
    {
        QTextCursor cursor = Editor().textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        Editor().setTextCursor(cursor);
    }

    void Press(int key, Qt::KeyboardModifiers modifiers, const QString& text)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(&Editor(), &event);
    }

    void TypeCharacter(char16_t character) { Press(Qt::Key_unknown, Qt::NoModifier, QString(QChar(character))); }

    void Paste(const QString& text)
    {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(&Editor(), Qt::Key_V, Qt::ControlModifier);
    }

    void Commit(const QString& text)
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&Editor(), &event);
    }

    void Drop(const QString& text, QObject* /*source*/ = nullptr)
    {
        QMimeData data;
        data.setText(text);
        const QPointF place = Editor().cursorRect().center();
        QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Editor().viewport(), &enter);
        QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Editor().viewport(), &drop);
    }
};

constexpr std::array<char16_t, 9> Odd = {0x2028, 0x2029, 0xFDD0, 0xFDD1, 0x85, 0xFFFC, 0xD800, 0xDC00, 0xE000};

} // namespace

TEST_F(BoxInput, OddCharactersLandAsTyped)
{
    Show(u"ab");
    Select(1, 1);
    Text expected = u"a";
    for (const char16_t character : {char16_t(0x2028), char16_t(0x2029), char16_t(0xFDD0), char16_t(0xFDD1)}) {
        TypeCharacter(character);
        expected += character;
    }
    EXPECT_EQ(Kept(), expected + u"b");
    EXPECT_EQ(Editor().blockCount(), 1); // no line end is seen that isn't there
    EXPECT_FALSE(Editor().WholeText().contains(QChar::LineSeparator));
}

TEST_F(BoxInput, OddCharactersLandAsPastedCommittedAndDropped)
{
    const QString odd = ToQt(Text(Odd.begin(), Odd.end()) + u'\0' + u'.');
    for (const auto& input : {std::function<void()>([&] { Paste(odd); }), std::function<void()>([&] { Commit(odd); }),
                              std::function<void()>([&] { Drop(odd); })}) {
        Show(u"");
        input();
        EXPECT_EQ(ToQt(Kept()), odd);
        EXPECT_EQ(Editor().WholeText().size(), odd.size());
        EXPECT_EQ(Editor().blockCount(), 1);
    }
}

TEST_F(BoxInput, EditsInTheBoxAreEditsOfTheText)
{
    std::mt19937 random(7);
    const auto below = [&](std::size_t bound) { return static_cast<std::size_t>(random() % bound); };
    const auto anything = [&](std::size_t longest) {
        const Text alphabet = u"ab \t\r\n\r\n\u2028\u2029\uFDD0\uFDD1\u0085\uFFFC" + Text(1, 0xD83D) + Text(1, 0xDE00);
        Text text;
        for (std::size_t length = below(longest + 1); length > 0; --length)
            text += alphabet[below(alphabet.size())];
        return text;
    };
    // The text in pieces, one for each that the caret steps over.
    const auto pieces = [](const Text& text) {
        std::vector<Text> found;
        for (std::size_t at = 0; at < text.size(); ++at) {
            const bool pair = text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
            found.push_back(text.substr(at, pair ? 2 : 1));
            at += pair ? 1 : 0;
        }
        return found;
    };
    const auto joined = [](const std::vector<Text>& parts, std::size_t from, std::size_t to) {
        Text text;
        for (std::size_t at = from; at < to; ++at)
            text += parts[at];
        return text;
    };
    Views().txtVariables.Text(u"");
    TextBox& box = Views().txtgrdline; // keeps a text as it is given
    ShowRules();
    Surface().FocusFor(Views().RulesGrid);
    QTest::keyClick(Host.focusWidget(), Qt::Key_X);
    PassiveEdit& editor = Of<TextBoxWidget>(box).Editor();
    for (int round = 0; round < 1500; ++round) {
        if (round % 25 == 0) {
            box.Text(anything(12));
            Surface().Sync();
        }
        const std::vector<Text> parts = pieces(box.Text());
        std::size_t from = below(parts.size() + 1);
        std::size_t to = below(parts.size() + 1);
        if (from > to)
            std::swap(from, to);
        QTextCursor cursor = editor.textCursor();
        cursor.setPosition(static_cast<int>(from));
        cursor.setPosition(static_cast<int>(to), QTextCursor::KeepAnchor);
        editor.setTextCursor(cursor);
        const bool commits = below(2) == 0;
        const Text put = commits ? anything(4) : Text();
        if (commits && !put.empty()) {
            QInputMethodEvent event;
            event.setCommitString(ToQt(put));
            QApplication::sendEvent(&editor, &event);
        } else if (from < to) {
            QTest::keyClick(&editor, below(2) == 0 ? Qt::Key_Delete : Qt::Key_Backspace);
        }
        ASSERT_EQ(box.Text(), joined(parts, 0, from) + put + joined(parts, to, parts.size())) << round;
        ASSERT_EQ(editor.WholeText().size(), static_cast<qsizetype>(pieces(box.Text()).size())) << round;
    }
}

TEST_F(BoxInput, LineEndThatIsDeletedIsTheOneThatWasMarked)
{
    Show(u"\n\r\n");
    Select(0, 1);
    QTest::keyClick(&Editor(), Qt::Key_Delete);
    EXPECT_EQ(Kept(), u"\r\n");
    Show(u"a\r\n\nb");
    Select(2, 2);
    QTest::keyClick(&Editor(), Qt::Key_Backspace);
    EXPECT_EQ(Kept(), u"a\nb");
}

TEST_F(BoxInput, AltWithALetterTypesNothing)
{
    Show(u"ab");
    Press(Qt::Key_J, Qt::AltModifier, QStringLiteral("j"));
    Press(Qt::Key_Z, Qt::AltModifier | Qt::ShiftModifier, QStringLiteral("Z"));
    Views().MainTab.TabEnabled(1, false);
    Surface().Sync();
    QTest::keyClick(&Editor(), Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(Kept(), u"ab");
    EXPECT_EQ(Editor().WholeText(), QStringLiteral("ab"));
}

TEST_F(BoxInput, AltGrTypesItsCharacters)
{
    Show(u"");
    Press(Qt::Key_At, Qt::ControlModifier | Qt::AltModifier, QStringLiteral("@"));
    Press(Qt::Key_BracketLeft, Qt::GroupSwitchModifier, QStringLiteral("["));
    Press(Qt::Key_unknown, Qt::NoModifier, QStringLiteral("\u20AC"));
    EXPECT_EQ(Kept(), u"@[\u20AC");
}

TEST_F(BoxInput, WordsAndLinesAreDeletedByTheirKeys)
{
    Show(u"one two\r\nthree");
    Select(7, 7);
    QTest::keyClick(&Editor(), Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(Kept(), u"one \r\nthree");
    Select(0, 0);
    QTest::keyClick(&Editor(), Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(Kept(), u"\r\nthree");
}

TEST_F(BoxInput, LockedBoxTakesNoInputOfAnyKind)
{
    Show(u"abc");
    Views().txtMainQuery.Locked(true);
    Surface().Sync();
    Drop(QStringLiteral("x"));
    Paste(QStringLiteral("x"));
    Commit(QStringLiteral("x"));
    for (const int key : {int(Qt::Key_Delete), int(Qt::Key_Backspace), int(Qt::Key_Return), int(Qt::Key_X)})
        QTest::keyClick(&Editor(), static_cast<Qt::Key>(key));
    EXPECT_EQ(Kept(), u"abc");
    EXPECT_EQ(Editor().WholeText(), QStringLiteral("abc"));
}

TEST_F(BoxInput, TextDroppedOnABoxThatItsFocusLocksIsNotShown)
{
    Show(u"abc");
    Surface().FocusFor(Views().CmdSelectSource);
    const Slot locks = std::exchange(Views().txtMainQuery.GotFocus, [this] { Views().txtMainQuery.Locked(true); });
    Drop(QStringLiteral("x"));
    EXPECT_EQ(Kept(), u"abc");
    EXPECT_EQ(Editor().WholeText(), QStringLiteral("abc"));
}

TEST_F(BoxInput, InputMethodThatReplacesMoreThanThereIsReplacesWhatThereIs)
{
    Show(u"abc");
    Select(1, 1);
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("x"), -5, 99);
    QApplication::sendEvent(&Editor(), &event);
    EXPECT_EQ(Kept(), u"x");
}

TEST_F(BoxInput, TextChangedByAnAssistiveToolIsTakenOver)
{
    Show(u"a\nb");
    QTextCursor cursor(Editor().document());
    cursor.setPosition(3);
    cursor.insertText(QStringLiteral("\nc"));
    EXPECT_EQ(Kept(), u"a\nb\r\nc");
    EXPECT_EQ(Editor().WholeText(), QStringLiteral("a\nb\nc"));
}

TEST_F(BoxInput, MenuOffersWhatCanBeDoneAndDoesItInTheModel)
{
    Show(u"a\nb");
    Select(0, 2);
    QStringList offered;
    QTimer::singleShot(0, &Host, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions()) {
            if (action->isEnabled() && !action->isSeparator())
                offered << action->text();
            if (action->text() == QStringLiteral("&Delete"))
                action->trigger();
        }
        menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, Editor().viewport()->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(Editor().viewport(), &event);
    EXPECT_EQ(Kept(), u"b");
    EXPECT_TRUE(offered.contains(QStringLiteral("Cu&t")));
    EXPECT_FALSE(offered.contains(QStringLiteral("&Undo")));
    QTest::keyClick(&Editor(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Kept(), u"a\nb");
}

} // namespace rulemesh
