#include "host/drafts/draft_store.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

#include "host/files/host_error.h"
#include "platform/file_size_limit.h"
#include "platform/ordinary_user.h"
#include "platform/temporary_folder.h"

namespace rulemesh {
namespace {

class Drafts : public ::testing::Test {
protected:
    QString File(const char* name) { return QString::fromStdString((folder_ / name).native()); }
    DraftStore Store() { return DraftStore(File("drafts")); }

    TemporaryFolder folder_;
};

const ObjectText Object{"<?xml version=\"1.0\"?>\n", "<partn101><PREC>\"one\" &amp; two\n</PREC></partn101>\n"};

TEST_F(Drafts, AreOfferedWithWhatTheyHoldWhenTheirProgramIsGone)
{
    Store().Begin(File("object.xml"))->Write(File("object.xml"), Object); // and the handle is gone
    const auto orphans = Store().Orphans();
    ASSERT_EQ(orphans.size(), 1u);
    EXPECT_EQ(orphans[0].Origin.File, File("object.xml"));
    EXPECT_EQ(orphans[0].Origin.Table, QStringLiteral("partn101"));
    EXPECT_LT(orphans[0].Origin.Written.secsTo(QDateTime::currentDateTimeUtc()), 60);
    const DraftStore::Recovered recovered = Store().TakeOver(orphans[0]);
    ASSERT_TRUE(recovered.Handle);
    EXPECT_EQ(recovered.Text, Object);
    EXPECT_EQ(recovered.Origin.File, File("object.xml"));
}

TEST_F(Drafts, OfARunningProgramAreNotOffered)
{
    const auto draft = Store().Begin(File("object.xml"));
    draft->Write(File("object.xml"), Object);
    EXPECT_TRUE(Store().Orphans().empty());
}

TEST_F(Drafts, OfOneFileInTwoProgramsAreTwo)
{
    const auto one = Store().Begin(File("object.xml"));
    const auto other = Store().Begin(File("object.xml"));
    one->Write(File("object.xml"), Object);
    other->Write(File("object.xml"), Object);
    EXPECT_NE(one->Path(), other->Path());
    one->Discard();
    EXPECT_TRUE(QFile::exists(other->Path()));
}

TEST_F(Drafts, LeftBehindAreNotOverwrittenByTheNextProgram)
{
    Store().Begin(File("object.xml"))->Write(File("object.xml"), Object);
    const auto next = Store().Begin(File("object.xml"));
    next->Write(File("object.xml"), {"", "<partn101><PREC/></partn101>"});
    const auto orphans = Store().OrphansOf(File("object.xml"));
    ASSERT_EQ(orphans.size(), 1u);
    EXPECT_EQ(Store().TakeOver(orphans[0]).Text, Object);
}

TEST_F(Drafts, GoWhenTheyAreDiscarded)
{
    const auto draft = Store().Begin({});
    draft->Write({}, Object);
    draft->Discard();
    EXPECT_FALSE(QFile::exists(draft->Path()));
    EXPECT_TRUE(Store().Orphans().empty());
}

TEST_F(Drafts, AreTakenOverByOneProgramOnly)
{
    Store().Begin({})->Write({}, Object);
    const auto orphans = Store().Orphans();
    ASSERT_EQ(orphans.size(), 1u);
    const auto first = Store().TakeOver(orphans[0]);
    EXPECT_TRUE(first.Handle);
    EXPECT_FALSE(Store().TakeOver(orphans[0]).Handle);
    EXPECT_TRUE(Store().Orphans().empty());
}

TEST_F(Drafts, AreFoundByTheNameOfTheirFileHoweverItIsWritten)
{
    Put(folder_ / "object.xml", "<a/>");
    std::filesystem::create_symlink("object.xml", folder_ / "link.xml");
    Store().Begin(File("link.xml"))->Write(File("link.xml"), Object);
    EXPECT_EQ(Store().OrphansOf(File("object.xml")).size(), 1u);
    EXPECT_EQ(Store().OrphansOf(File("other.xml")).size(), 0u);
}

TEST_F(Drafts, ComeWithoutWhatKilledProgramsLeftBesideThem)
{
    const auto running = Store().Begin(File("object.xml"));
    running->Write(File("object.xml"), Object);
    Store().Begin({})->Write({}, Object);
    const QDir folder(File("drafts"));
    const QStringList kept = folder.entryList(QDir::Files);
    const std::string draft = running->Path().toStdString();
    const std::string orphan = folder.filePath(QStringLiteral("new-1.draft.xml")).toStdString();
    Put(orphan + ".rulemesh-999999999-1", "half a dra");
    Put(orphan + ".AbCdEf", "of an earlier version");
    Put(folder.filePath(QStringLiteral("new-7.lock")).toStdString(), "999999999\nrulemesh\n\n");
    Put(draft + ".AbCdEf", "perhaps being written");
    Store().Sweep();
    QStringList expected = kept;
    expected += QFileInfo(running->Path()).fileName() + QStringLiteral(".AbCdEf");
    expected.sort();
    EXPECT_EQ(folder.entryList(QDir::Files), expected);
}

TEST_F(Drafts, StandWhenTheNextOneCanNotBeWritten)
{
    const auto draft = Store().Begin(File("object.xml"));
    draft->Write(File("object.xml"), Object);
    const std::string before = Contents(draft->Path().toStdString());
    {
        const FileSizeLimit full(20);
        EXPECT_THROW(draft->Write(File("object.xml"), {"", "<partn101><PREC>later</PREC></partn101>"}), HostError);
    }
    EXPECT_EQ(Contents(draft->Path().toStdString()), before);
    EXPECT_EQ(QDir(File("drafts")).entryList({QStringLiteral("*.draft.xml*")}).size(), 1);
}

TEST_F(Drafts, StandInAFolderForTheUserAlone)
{
    const auto draft = Store().Begin({});
    EXPECT_EQ(std::filesystem::status(folder_ / "drafts").permissions(), std::filesystem::perms(0700));
}

TEST_F(Drafts, ThatCanNotBeKeptAreTold)
{
    Put(folder_ / "drafts", "a file in the way");
    DraftStore store = Store();
    EXPECT_THROW((void)store.Begin({}), HostError);
    EXPECT_TRUE(store.Orphans().empty());
}

TEST_F(Drafts, ThatCanNotBeRemovedAreNotOfferedAgain)
{
    const OrdinaryUser somebody(folder_.Path());
    const auto draft = Store().Begin(File("object.xml"));
    draft->Write(File("object.xml"), Object);
    const auto changeable = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
    ASSERT_TRUE(QFile::setPermissions(File("drafts"), QFileDevice::ReadOwner | QFileDevice::ExeOwner));
    draft->Discard();
    QFile lock(draft->Path().chopped(10) + QStringLiteral(".lock"));
    EXPECT_TRUE(QFile::exists(draft->Path()));
    ASSERT_TRUE(QFile::setPermissions(File("drafts"), changeable));
    ASSERT_TRUE(lock.remove()); // as a program leaves it that has ended
    EXPECT_TRUE(Store().Orphans().empty());
    Store().Sweep();
    EXPECT_FALSE(QFile::exists(draft->Path()));
}

TEST_F(Drafts, ThatStayInTheWayAreTold)
{
    const auto draft = Store().Begin(File("object.xml"));
    ASSERT_TRUE(QDir().mkpath(draft->Path() + QStringLiteral("/full")));
    try {
        draft->Discard();
        FAIL() << "nothing was told";
    } catch (const HostError& error) {
        EXPECT_TRUE(error.Text().contains(draft->Path()));
        EXPECT_TRUE(error.Text().contains(QStringLiteral("can't be removed")));
    }
}

} // namespace
} // namespace rulemesh
