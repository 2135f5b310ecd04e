// What is left of the user's work when the program is killed.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QThread>

#include "host/host_desk.h"
#include "host/recover_dialog.h"

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

    void Kill()
    {
        process_.kill();
        EXPECT_TRUE(process_.waitForFinished());
        EXPECT_EQ(process_.exitStatus(), QProcess::CrashExit);
    }

private:
    QProcess process_;
};

std::string TextOf(char letter) { return "<partn101><PREC>" + std::string(LargeText, letter) + "</PREC></partn101>"; }

class CrashTest : public HostDesk {
protected:
    [[nodiscard]] QString Folder() const { return QString::fromStdString(folder.Path().native()); }

    bool DraftHolds(const QByteArray& text) const
    {
        for (const QString& name : QDir(File("drafts")).entryList({QStringLiteral("*.draft.xml")})) {
            QFile draft(File("drafts") + u'/' + name);
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
    window->OfferDrafts();
    ASSERT_TRUE(recover.WasAsked());
    EXPECT_EQ(window->Path(), File("object.xml"));
    EXPECT_TRUE(window->Object()->HasChanges());
    Views().MainTab.UserClicksTab(1);
    EXPECT_EQ(Views().RulesGrid.TextMatrix(1, 1), u"typed before the end");

    EXPECT_TRUE(window->Save());
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
    window->OpenFile(File("object.xml"));
    EXPECT_TRUE(discard.WasAsked());
    EXPECT_FALSE(window->Object()->HasChanges());
    EXPECT_TRUE(drafts.Orphans().empty());
}

TEST_F(CrashTest, KeepsADraftForLater)
{
    Victim victim(QStringLiteral("edit"), Folder());
    ASSERT_TRUE(WaitFor([this] { return DraftHolds("typed before the end"); }));
    victim.Kill();

    ModalAnswer later(Choose(QStringLiteral("&Later")));
    window->OfferDrafts();
    EXPECT_TRUE(later.WasAsked());
    EXPECT_EQ(window->Object(), nullptr);
    EXPECT_EQ(drafts.Orphans().size(), 1u);
}

} // namespace
} // namespace rulemesh
