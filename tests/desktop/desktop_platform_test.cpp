#include "desktop/desktop_platform.h"

#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "desktop/designer_window.h"
#include "desktop/form_dialog.h"
#include "shell/frm_txt_doc.h"
#include "support/name_form.h"

namespace rulemesh {

namespace {

// A window, and somebody who acts on the box or form that comes up over it.
class RealDesk : public testing::Test {
protected:
    RealDesk() { Window.show(); }

    template <typename Shown, typename Action> void WhenShown(Action action)
    {
        QTimer::singleShot(0, &Window, [action] {
            auto* shown = qobject_cast<Shown*>(QApplication::activeModalWidget());
            ASSERT_NE(shown, nullptr);
            action(*shown);
        });
    }

    QWidget Window;
    DesktopPlatform Platform{Window};
};

} // namespace

TEST_F(RealDesk, BoxShowsTextTitleIconAndButtonsWithTheFirstAsDefault)
{
    WhenShown<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), QStringLiteral("Save <b>?"));
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Mapping Object"));
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Yes));
        box.button(QMessageBox::No)->click();
    });
    const MessageButton answer = Platform.ShowMessage({.Text = u"Save <b>?",
                                                       .Title = u"Mapping Object",
                                                       .Buttons = {MessageButton::Yes, MessageButton::No},
                                                       .Icon = MessageIcon::Critical});
    EXPECT_EQ(answer, MessageButton::No);
}

TEST_F(RealDesk, BoxWithOneButtonIsClosedByEscape)
{
    WhenShown<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(Platform.ShowMessage({.Text = u"Define Dumps"}), MessageButton::Ok);
}

TEST_F(RealDesk, NoteClosedFromItsFrameAsksWhetherToSave)
{
    Shared().BoolTextMode = true;
    Shared().BoolEditShared = true;
    Shared().StrDocText = u"before";
    FrmTxtDoc form(Platform);
    form.TxtDoc.Text(u"after");
    WhenShown<FormDialog>([this](FormDialog& dialog) {
        WhenShown<QMessageBox>([](QMessageBox& box) {
            EXPECT_EQ(box.text(), QStringLiteral("Save Changes Done ?"));
            box.button(QMessageBox::Yes)->click();
        });
        dialog.close();
    });
    Platform.ShowModal(form);
    EXPECT_EQ(Shared().StrDocText, u"after");
    EXPECT_FALSE(form.IsOpen());
}

TEST_F(RealDesk, EscapeInANoteAsksWhetherToSave)
{
    Shared().BoolTextMode = true;
    Shared().BoolEditShared = true;
    Shared().StrDocText = u"before";
    FrmTxtDoc form(Platform);
    WhenShown<FormDialog>([this](FormDialog& dialog) {
        QTest::keyClicks(dialog.focusWidget(), QStringLiteral("x"));
        WhenShown<QMessageBox>([](QMessageBox& box) {
            EXPECT_EQ(box.text(), QStringLiteral("Save Changes Done ?"));
            box.button(QMessageBox::No)->click();
        });
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
    });
    Platform.ShowModal(form);
    EXPECT_FALSE(form.IsOpen());
    EXPECT_EQ(form.TxtDoc.Text(), u"x");
    EXPECT_EQ(Shared().StrDocText, u"before");
}

TEST_F(RealDesk, EscapeInAnUntouchedNoteAsksNothing)
{
    Shared().BoolTextMode = true;
    Shared().BoolEditShared = true;
    Shared().StrDocText = u"before";
    FrmTxtDoc form(Platform);
    form.TxtDoc.Text(u"before");
    WhenShown<FormDialog>([](FormDialog& dialog) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
    Platform.ShowModal(form);
    EXPECT_EQ(Shared().StrDocText, u"before");
}

TEST_F(RealDesk, EscapeInTheChooserKeepsTheFirstTable)
{
    Shared().BoolTextMode = false;
    Shared().StrChooserTables = u"abc;def;";
    Shared().StrChosenTable = u"abc";
    FrmTxtDoc form(Platform);
    WhenShown<FormDialog>([](FormDialog& dialog) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
    });
    Platform.ShowModal(form);
    EXPECT_FALSE(form.IsOpen());
    EXPECT_EQ(Shared().StrChosenTable, u"abc");
}

TEST_F(RealDesk, EnterInTheChooserPressesOk)
{
    Shared().BoolTextMode = false;
    Shared().StrChooserTables = u"abc;def;";
    Shared().StrChosenTable = u"abc";
    FrmTxtDoc form(Platform);
    WhenShown<FormDialog>([](FormDialog& dialog) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    });
    Platform.ShowModal(form);
    EXPECT_EQ(Shared().StrChosenTable, u"def");
}

TEST_F(RealDesk, WindowsAreAsWideAsTheirTitles)
{
    const Text title(40, u'W');
    const auto room = [](QWidget& box) { return box.width() - QFontMetrics(box.font()).horizontalAdvance('W') * 40; };
    WhenShown<QMessageBox>([&](QMessageBox& box) {
        EXPECT_GT(room(box), 80);
        box.close();
    });
    Platform.ShowMessage({.Text = u"x", .Title = title});
    WhenShown<QInputDialog>([&](QInputDialog& box) {
        EXPECT_GT(room(box), 80);
        box.reject();
    });
    Platform.AskForText(u"x", title);
    Shared().BoolTextMode = false;
    FrmTxtDoc form(Platform);
    form.Caption(title);
    WhenShown<FormDialog>([&](FormDialog& dialog) {
        EXPECT_GT(room(dialog), 80);
        dialog.reject();
    });
    Platform.ShowModal(form);
}

TEST_F(RealDesk, BoxWithoutATitleOfItsOwnTakesTheDefault)
{
    Platform.DefaultTitle = QStringLiteral("Designer");
    WhenShown<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Designer"));
        box.close();
    });
    Platform.ShowMessage({.Text = u"x"});
}

TEST_F(RealDesk, PromptIsPlainText)
{
    WhenShown<QInputDialog>([](QInputDialog& box) {
        const QLabel& prompt = *box.findChild<QLabel*>();
        EXPECT_EQ(prompt.text(), QStringLiteral("<b>x</b> && y")); // one of them is seen
        EXPECT_EQ(prompt.textFormat(), Qt::PlainText);
        QTest::keyClicks(box.focusWidget(), QStringLiteral("7"));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(Platform.AskForText(u"<b>x</b> & y", u"t"), Text(u"7"));
}

TEST_F(RealDesk, TabKeyGoesRoundInAForm)
{
    Shared().BoolTextMode = false;
    Shared().IntChooserDump = 10;
    Shared().StrChooserTables = u"abc;def;";
    FrmTxtDoc form(Platform);
    WhenShown<FormDialog>([&form](FormDialog& dialog) {
        std::vector<Text> visited;
        for (int step = 0; step < 4; ++step) {
            visited.emplace_back(form.Tree.Focused()->Name());
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(visited, (std::vector<Text>{u"CmbTargetTable", u"CmdOk", u"CmdCancel", u"CmbTargetTable"}));
        dialog.reject();
    });
    Platform.ShowModal(form);
}

TEST_F(RealDesk, ServesAnyOtherForm)
{
    NameForm form;
    form.cmbKind.ListIndex(0);
    WhenShown<FormDialog>([](FormDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("New field"));
        QTest::keyClicks(dialog.focusWidget(), QStringLiteral("price"));
        QTest::keyClick(dialog.findChild<QComboBox*>(), Qt::Key_Down);
        QTest::mouseClick(dialog.findChild<QPushButton*>(), Qt::LeftButton);
        dialog.close(); // of a form that should be closed by now
    });
    Platform.ShowModal(form);
    EXPECT_EQ(form.Taken, u"price:N");
    EXPECT_EQ(form.Closings, 0);
}

TEST_F(RealDesk, ClosesAnyOtherFormFromItsFrame)
{
    NameForm form;
    WhenShown<FormDialog>([](FormDialog& dialog) { dialog.close(); });
    Platform.ShowModal(form);
    EXPECT_FALSE(form.IsOpen());
    EXPECT_EQ(form.Closings, 1);
}

} // namespace rulemesh
