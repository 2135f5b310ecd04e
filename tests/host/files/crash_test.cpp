// What is left of the user's work when the program is killed.

#include <csignal>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QThread>

#include "host/drafts/recover_dialog.h"
#include "host/files/plain_file.h"
#include "host/files/safe_file.h"
#include "host/host_desk.h"

namespace rulemesh {
namespace {

constexpr int LargeText = 2'000'000;

// A process of its own that works until it is killed.
class Victim {
public:
    Victim(const QString& deed, const QString& folder)
    {
        process_.setStandardOutputFile(QProcess::nullDevice());
        process_.setStandardErrorFile(QProcess::nullDevice());
        process_.start(QStringLiteral(RULEMESH_CRASH_VICTIM), {deed, folder});
        EXPECT_TRUE(process_.waitForStarted());
    }

    void Kill() { End(SIGKILL); }

    void End(int signal)
    {
        ASSERT_EQ(::kill(static_cast<pid_t>(process_.processId()), signal), 0);
        EXPECT_TRUE(process_.waitForFinished());
        EXPECT_EQ(process_.exitStatus(), QProcess::CrashExit);
        EXPECT_EQ(process_.exitCode(), signal);
    }

private:
    QProcess process_;
};

std::string TextOf(char letter) { return "<partn101><PREC>" + std::string(LargeText, letter) + "</PREC></partn101>"; }

class CrashTest : public HostDesk {
protected:
    [[nodiscard]] QString Folder() const { return QString::fromStdString(folder.Path().native()); }

    // Where the application keeps its drafts.
    [[nodiscard]] QString Drafts() const { return File("data/rulemesh/drafts"); }

    bool DraftHolds(const QByteArray& text) const { return DraftHolds(text, File("drafts")); }

    static bool DraftHolds(const QByteArray& text, const QString& folder)
    {
        for (const QString& name : QDir(folder).entryList({QStringLiteral("*.draft.xml")})) {
            QFile draft(folder + u'/' + name);
            if (draft.open(QIODevice::ReadOnly) && draft.readAll().contains(text))
                return true;
        }
        return false;
    }

    // Answers the offer of drafts by pressing the button of that caption.
    static std::function<void(QWidget&)> Choose(const QString& caption)
    {
        return [caption](QWidget& modal) {
            for (QPushButton* button : dynamic_cast<RecoverDialog&>(modal).findChildren<QPushButton*>()) {
                if (button->text() == caption)
                    button->click();
            }
        };
    }
};

TEST_F(CrashTest, InTheMiddleOfASaveLeavesOneOfTheTwoTextsWhole)
{
    const std::string a = TextOf('a');
    const std::string b = TextOf('b');
    for (unsigned long round = 0; round < 12; ++round) {
        Put(folder / "object.xml", SmallObject);
        Victim victim(QStringLiteral("save"), Folder());
        ASSERT_TRUE(WaitFor([&] { return OnDisk() != SmallObject; }));
        QThread::usleep(700 * round + 300); // another moment of the save each time
        victim.Kill();
        const std::string left = OnDisk();
        EXPECT_TRUE(left == a || left == b) << "round " << round << ": " << left.size() << " bytes";
    }
}

TEST_F(CrashTest, WithUnsavedEditsLosesNothingAndOffersThemAtTheNextStart)
{
    Victim victim(QStringLiteral("edit"), Folder());
    ASSERT_TRUE(WaitFor([this] { return DraftHolds("typed before the end"); }));
    EXPECT_TRUE(drafts.Orphans().empty()); // its program still runs
    victim.Kill();
    EXPECT_EQ(OnDisk(), Lead + SmallObject);

    ModalAnswer recover(Choose(QStringLiteral("&Recover")));
    window->Drafts().Offer();
    ASSERT_TRUE(recover.WasAsked());
    EXPECT_EQ(window->Current().Path(), File("object.xml"));
    EXPECT_TRUE(window->Current().Object()->HasChanges());
    Views().MainTab.UserClicksTab(1);
    EXPECT_EQ(Views().RulesGrid.TextMatrix(1, 1), u"typed before the end");

    EXPECT_TRUE(window->Current().Save());
    EXPECT_EQ(OnDisk().substr(0, Lead.size()), Lead);
    EXPECT_NE(OnDisk().find(">typed before the end</NAME>"), std::string::npos);
    window.reset();
    EXPECT_TRUE(drafts.Orphans().empty());
}

TEST_F(CrashTest, OffersTheDraftOfAFileWhenItIsOpened)
{
    Victim victim(QStringLiteral("edit"), Folder());
    ASSERT_TRUE(WaitFor([this] { return DraftHolds("typed before the end"); }));
    victim.Kill();

    ModalAnswer discard(Choose(QStringLiteral("&Discard")));
    window->Current().Open(File("object.xml"));
    EXPECT_TRUE(discard.WasAsked());
    EXPECT_FALSE(window->Current().Object()->HasChanges());
    EXPECT_TRUE(drafts.Orphans().empty());
}

// The next draft is 15 seconds away, as the user makes no pause.
TEST_F(CrashTest, BySignalsThatEndProgramsWritesTheDraftFirst)
{
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        QFile::remove(File("typed"));
        QDir(Drafts()).removeRecursively();
        Victim victim(QStringLiteral("application"), Folder());
        ASSERT_TRUE(WaitFor([this] { return QFile::exists(File("typed")); }));
        EXPECT_FALSE(DraftHolds("typed before the end", Drafts()));
        victim.End(signal);
        EXPECT_TRUE(DraftHolds("typed before the end", Drafts())) << signal;
    }
    EXPECT_EQ(OnDisk(), Lead + SmallObject);
}

TEST_F(CrashTest, InTheMiddleOfASaveLeavesNothingForLongBesideTheFile)
{
    const QString left = QStringLiteral("object.xml.*");
    bool wasLeft = false;
    for (unsigned long round = 0; round < 60 && !wasLeft; ++round) {
        Victim victim(QStringLiteral("save"), Folder());
        ASSERT_TRUE(WaitFor([&] { return OnDisk().size() > LargeText; }));
        QThread::usleep(500 * round);
        victim.Kill();
        wasLeft = !QDir(Folder()).entryList({left}).isEmpty();
        if (!wasLeft)
            Put(folder / "object.xml", SmallObject);
    }
    EXPECT_TRUE(wasLeft);
    window->Current().Open(File("object.xml"));
    EXPECT_TRUE(QDir(Folder()).entryList({left}).isEmpty());
    EXPECT_GT(OnDisk().size(), LargeText);
}

// Such a file is written in place.
TEST_F(CrashTest, InTheMiddleOfASaveOfAFileOfTwoNamesCostsNoText)
{
    const std::string a = TextOf('a');
    const std::string b = TextOf('b');
    std::filesystem::create_hard_link(folder / "object.xml", folder / "other.xml");
    for (unsigned long round = 0; round < 12; ++round) {
        Victim victim(QStringLiteral("save"), Folder());
        ASSERT_TRUE(WaitFor([&] { return OnDisk("other.xml").size() > LargeText; }));
        QThread::usleep(700 * round + 300);
        victim.Kill();
        const QString copy = CopyOfCutShortSave(File("object.xml"));
        if (!copy.isEmpty()) {
            WriteFileAtOnce(File("other.xml"), ReadPlainFile(copy));
            QFile::remove(copy);
        }
        const std::string left = OnDisk("other.xml");
        EXPECT_TRUE(left == a || left == b || left == Lead + SmallObject)
            << "round " << round << ": " << left.size() << " bytes";
    }
}

TEST_F(CrashTest, OffersTheTextBeforeASaveInPlaceThatWasCutShort)
{
    Put(folder / "object.xml", "<partn101><PREC>of two texts</PREC></partn101>");
    Put(folder / "object.xml.rulemesh-999999999-1.old", Lead + SmallObject);
    {
        ModalAnswer cancel(Press(QMessageBox::Cancel));
        window->Current().Open(File("object.xml"));
        EXPECT_TRUE(cancel.WasAsked());
        EXPECT_EQ(Views().txtPreCondition.Text(), u"of two texts");
    }
    ModalAnswer putBack([](QWidget& modal) {
        for (QPushButton* button : modal.findChildren<QPushButton*>()) {
            if (button->text() == QStringLiteral("&Put It Back"))
                button->click();
        }
    });
    window->Current().Open(File("object.xml"));
    EXPECT_TRUE(putBack.WasAsked());
    EXPECT_NE(window->Current().Object(), nullptr);
    EXPECT_EQ(OnDisk(), Lead + SmallObject);
    EXPECT_EQ(QDir(Folder()).entryList({QStringLiteral("object.xml*")}).size(), 1);
}

TEST_F(CrashTest, KeepsADraftForLater)
{
    Victim victim(QStringLiteral("edit"), Folder());
    ASSERT_TRUE(WaitFor([this] { return DraftHolds("typed before the end"); }));
    victim.Kill();

    ModalAnswer later(Choose(QStringLiteral("&Later")));
    window->Drafts().Offer();
    EXPECT_TRUE(later.WasAsked());
    EXPECT_EQ(window->Current().Object(), nullptr);
    EXPECT_EQ(drafts.Orphans().size(), 1u);
}

} // namespace
} // namespace rulemesh
