// What the user is told, and what stands on the disk, when a save or a draft meets a full disk or a bad place.

#include <array>
#include <cstddef>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include <QDir>
#include <QPushButton>
#include <QSessionManager>
#include <QStatusBar>

#include "desktop/view_surface.h"
#include "host/host_desk.h"
#include "platform/file_size_limit.h"

namespace rulemesh {
namespace {

using ::testing::HasSubstr;

constexpr TextView Typed = u"migrate custs001 | customers of today\r\n";

class SavingTest : public HostDesk {
protected:
    SavingTest() { window->Current().Open(File("object.xml")); }

    void Type(TextView text)
    {
        Designer().Surface().Act([&] { Views().txtPreCondition.UserTypes(Text(text)); });
    }

    [[nodiscard]] QStringList DraftsOnDisk() const
    {
        return QDir(File("drafts")).entryList({QStringLiteral("*.draft.xml*")});
    }

    // The window with other times for drafts, on the same object.
    void MakeWindow(DraftTimes times)
    {
        window = std::make_unique<MainWindow>(settings, drafts, times);
        window->show();
        window->Current().Open(File("object.xml"));
    }

    // Presses OK in the box that comes up, and keeps what it says.
    std::function<void(QWidget&)> Read(std::string& told)
    {
        return [&told](QWidget& modal) {
            auto& box = dynamic_cast<QMessageBox&>(modal);
            told = (box.text() + u'\n' + box.informativeText()).toStdString();
            box.button(QMessageBox::Ok)->click();
        };
    }
};

TEST_F(SavingTest, OnAFullDiskKeepsTheFileTheChangesAndTheDraftAndTellsWhy)
{
    Type(Typed);
    ASSERT_TRUE(WaitFor([this] { return DraftsOnDisk().size() == 1; }));
    std::string told;
    {
        const FileSizeLimit full(20);
        ModalAnswer box(Read(told));
        EXPECT_FALSE(window->Current().Save());
    }
    EXPECT_THAT(told, HasSubstr("object.xml was not saved."));
    EXPECT_THAT(told, HasSubstr("File too large"));
    EXPECT_EQ(OnDisk(), Lead + SmallObject);
    EXPECT_TRUE(window->Current().Object()->HasChanges());
    EXPECT_FALSE(window->statusBar()->currentMessage().contains(QStringLiteral("Saved")));
    EXPECT_EQ(DraftsOnDisk().size(), 1);
    EXPECT_TRUE(window->Current().Save()); // when there is room again
    EXPECT_THAT(OnDisk(), HasSubstr("customers of today"));
}

TEST_F(SavingTest, TellsThatNoDraftIsKeptOnAFullDisk)
{
    {
        const FileSizeLimit full(20);
        Type(Typed);
        EXPECT_TRUE(WaitFor(
            [this] { return window->statusBar()->currentMessage().startsWith(QStringLiteral("No draft is being")); }));
    }
    EXPECT_TRUE(WaitFor([this] { return DraftsOnDisk().size() == 1; })); // it tries again
}

TEST_F(SavingTest, TellsADraftThatItCanNotRemove)
{
    Type(Typed);
    ASSERT_TRUE(WaitFor([this] { return DraftsOnDisk().size() == 1; }));
    const QString draft = File("drafts") + u'/' + DraftsOnDisk().first();
    ASSERT_TRUE(QFile::remove(draft));
    ASSERT_TRUE(QDir().mkpath(draft + QStringLiteral("/full")));
    EXPECT_TRUE(window->Current().Save());
    EXPECT_TRUE(window->statusBar()->currentMessage().contains(draft));
    EXPECT_THAT(OnDisk(), HasSubstr("customers of today"));
}

TEST_F(SavingTest, NeedsNoRoomForTheCopyFile)
{
    const std::filesystem::path cache = folder / "cache";
    std::filesystem::remove_all(cache);
    Put(cache, "in the way");
    Type(Typed);
    EXPECT_TRUE(window->Current().Save());
    EXPECT_THAT(OnDisk(), HasSubstr("customers of today"));
}

TEST_F(SavingTest, NeedsNoTemporaryFolderOfTheSystem)
{
    const std::string ours = "rulemesh-" + std::to_string(::geteuid());
    Put(folder / ours, "somebody else's");
    Type(Typed);
    EXPECT_TRUE(window->Current().Save());
    EXPECT_EQ(OnDisk(ours.c_str()), "somebody else's");
}

TEST_F(SavingTest, LeavesTheCopyFileInAFolderOfTheUsersOwn)
{
    Type(Typed);
    EXPECT_TRUE(window->Current().Save());
    std::filesystem::path copy;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder / "cache")) {
        if (entry.path().filename() == "partn101.xml")
            copy = entry.path();
    }
    EXPECT_EQ(Lead + Contents(copy), OnDisk());
    EXPECT_EQ(std::filesystem::status(copy.parent_path()).permissions(), std::filesystem::perms(0700));
}

TEST_F(SavingTest, DoesNotTakeItsOwnFailedSaveForAnotherPrograms)
{
    std::filesystem::create_hard_link(folder / "object.xml", folder / "other.xml");
    window->Current().Open(File("object.xml"));
    Type(Typed);
    std::string told;
    {
        const FileSizeLimit full((Lead + SmallObject).size()); // room for the copy, none for the longer new text
        ModalAnswer box(Read(told));
        EXPECT_FALSE(window->Current().Save());
    }
    EXPECT_EQ(OnDisk("other.xml"), Lead + SmallObject);
    EXPECT_TRUE(window->Current().Save()); // asks nothing
    EXPECT_THAT(OnDisk("other.xml"), HasSubstr("customers of today"));
}

TEST_F(SavingTest, WritesADraftAfterAPause)
{
    EXPECT_EQ(DraftTimes().Pause, 1000);
    EXPECT_EQ(DraftTimes().Turn, 15000);
    MakeWindow({.Pause = 100, .Turn = 1'000'000});
    Type(Typed);
    EXPECT_TRUE(DraftsOnDisk().isEmpty());
    EXPECT_TRUE(WaitFor([this] { return DraftsOnDisk().size() == 1; }));
}

TEST_F(SavingTest, WritesDraftsWhileTheUserGoesOn)
{
    MakeWindow({.Pause = 1'000'000, .Turn = 100});
    Type(Typed);
    EXPECT_TRUE(WaitFor([this] { return DraftsOnDisk().size() == 1; }));
}

TEST_F(SavingTest, WritesADraftWhenTheSessionEnds)
{
    MakeWindow({.Pause = 1'000'000, .Turn = 1'000'000});
    Type(Typed);
    // Nobody but the toolkit can make a manager, and nobody looks at this one.
    alignas(QSessionManager) std::array<std::byte, sizeof(QSessionManager)> manager{};
    emit qApp->commitDataRequest(reinterpret_cast<QSessionManager&>(manager));
    EXPECT_EQ(DraftsOnDisk().size(), 1);
}

TEST_F(SavingTest, TellsAPipeInsteadOfWaitingForIt)
{
    ASSERT_EQ(::mkfifo((folder / "pipe.xml").c_str(), 0600), 0);
    ASSERT_EQ(::mkfifo((folder / "pipe.csv").c_str(), 0600), 0);
    std::string told;
    {
        ModalAnswer box(Read(told));
        window->Current().Open(File("pipe.xml"));
    }
    EXPECT_THAT(told, HasSubstr("pipe.xml can't be opened."));
    EXPECT_THAT(told, HasSubstr("is a pipe between programs"));
    {
        ModalAnswer box(Read(told));
        window->Import().Import(File("pipe.csv"));
    }
    EXPECT_THAT(told, HasSubstr("pipe.csv is a pipe between programs"));
    EXPECT_EQ(window->Current().Path(), File("object.xml")); // what was open still is
}

} // namespace
} // namespace rulemesh
