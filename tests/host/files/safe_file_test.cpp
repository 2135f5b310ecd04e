#include "host/files/safe_file.h"

#include <cstring>
#include <filesystem>
#include <set>
#include <string>

#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/leftovers.h"
#include "host/files/failing_calls.h"
#include "host/files/host_error.h"
#include "host/files/object_file.h"
#include "platform/file_size_limit.h"
#include "platform/ordinary_user.h"
#include "platform/temporary_folder.h"

namespace rulemesh {
namespace {

namespace fs = std::filesystem;
using Call = FailingCalls::Call;
using ::testing::HasSubstr;

const QByteArray Small = "<partn101><PREC>new</PREC></partn101>";
const QByteArray Large = "<partn101><PREC>" + QByteArray(40000, 'n') + "</PREC></partn101>";
const std::string Old = "<partn101><PREC>old</PREC></partn101>";

QString PathOf(const fs::path& path) { return QString::fromStdString(path.native()); }

std::set<std::string> NamesIn(const fs::path& folder)
{
    std::set<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        names.insert(entry.path().filename().native());
    return names;
}

struct stat StatusOf(const fs::path& path)
{
    struct stat status = {};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0);
    return status;
}

// A process that has ended.
pid_t DeadProcess()
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(0);
    ::waitpid(child, nullptr, 0);
    return child;
}

class SafeFile : public ::testing::Test {
protected:
    SafeFile()
    {
        fs::create_directory(Folder());
        Put(File(), Old);
    }

    [[nodiscard]] fs::path Folder() const { return home_ / "objects"; }
    [[nodiscard]] fs::path File(const char* name = "object.xml") const { return Folder() / name; }
    [[nodiscard]] static std::string Beside(pid_t process, const char* ending = "")
    {
        return "object.xml.rulemesh-" + std::to_string(process) + "-1" + ending;
    }

    // What the user is told; "" after success.
    static std::string Complaint(const fs::path& path, const QByteArray& bytes, FileCalls& calls = SystemCalls())
    {
        try {
            WriteFileAtOnce(PathOf(path), bytes, calls);
        } catch (const HostError& error) {
            return error.what();
        }
        return {};
    }

    TemporaryFolder home_;
    Environment data_{"XDG_DATA_HOME", (home_ / "data").native()};
};

// Whatever call fails, the old text stands whole, nothing is left beside it, and the reason is told.
struct Fault {
    Call Which;
    int Error;
    int First = 1;
};

class SafeFileFault : public SafeFile, public ::testing::WithParamInterface<Fault> {};

TEST_P(SafeFileFault, LeavesTheOldTextAndTellsWhy)
{
    for (const QByteArray& bytes : {Small, Large}) {
        const Fault& fault = GetParam();
        FailingCalls calls(fault.Which, fault.Error, fault.First);
        const std::string told = Complaint(File(), bytes, calls);
        EXPECT_TRUE(calls.HasFailed());
        EXPECT_THAT(told, HasSubstr(std::strerror(fault.Error)));
        EXPECT_EQ(Contents(File()), Old);
        EXPECT_EQ(NamesIn(Folder()), std::set<std::string>{"object.xml"});
    }
}

INSTANTIATE_TEST_SUITE_P(OneCallOfARename, SafeFileFault,
                         ::testing::Values(Fault{Call::Open, ENOSPC}, Fault{Call::Open, EMFILE},
                                           Fault{Call::Write, ENOSPC}, Fault{Call::Write, EIO},
                                           Fault{Call::Write, EDQUOT}, Fault{Call::ChangeMode, EIO},
                                           Fault{Call::Sync, EIO}, Fault{Call::Sync, ENOSPC},
                                           Fault{Call::Close, ENOSPC}, Fault{Call::Close, EIO},
                                           Fault{Call::Rename, EIO}, Fault{Call::Rename, ENOSPC}));

TEST_F(SafeFile, LeavesTheOldTextWhenAWriteStopsHalfWay)
{
    FailingCalls calls(Call::Write, ENOSPC);
    calls.Room = 20000;
    EXPECT_THAT(Complaint(File(), Large, calls), HasSubstr("What stood there still stands."));
    EXPECT_EQ(Contents(File()), Old);
    EXPECT_EQ(NamesIn(Folder()), std::set<std::string>{"object.xml"});
}

TEST_F(SafeFile, WritesOnAfterAnInterruptedAndAShortWrite)
{
    FailingCalls calls(Call::Write, EINTR, 1, 3);
    calls.Room = 10;
    EXPECT_EQ(Complaint(File(), Large, calls), "");
    EXPECT_TRUE(Contents(File()) == Large.toStdString());
}

TEST_F(SafeFile, MakesNoFileWhenANewOneCanNotBeWritten)
{
    FailingCalls calls(Call::Sync, EIO);
    EXPECT_THAT(Complaint(File("new.xml"), Small, calls), HasSubstr("Nothing stands there now."));
    EXPECT_EQ(NamesIn(Folder()), std::set<std::string>{"object.xml"});
}

TEST_F(SafeFile, TellsAFolderThatCanNotBeBroughtToTheDisk)
{
    FailingCalls calls(Call::Sync, EIO, 2);
    EXPECT_THAT(Complaint(File(), Small, calls), HasSubstr("was written, but"));
    EXPECT_EQ(Contents(File()), Small.toStdString());
}

// A disk with room for a small file and no more.
class FullDisk : public SafeFile {
protected:
    void SetUp() override
    {
        if (::mount("tmpfs", Folder().c_str(), "tmpfs", 0, "size=64k") != 0)
            GTEST_SKIP() << "only the superuser can mount";
        mounted_ = true;
        Put(File(), Old);
        Put(File("ballast"), std::string(65536, 'b')); // the part that fits
    }
    void TearDown() override
    {
        if (mounted_) {
            EXPECT_EQ(::umount(Folder().c_str()), 0);
        }
    }

private:
    bool mounted_ = false;
};

TEST_F(FullDisk, KeepsTheOldTextWhateverTheSizeOfTheNewOne)
{
    const std::set<std::string> before = NamesIn(Folder());
    for (const QByteArray& bytes : {Small, QByteArray(16384, 'x'), Large}) {
        EXPECT_THAT(Complaint(File(), bytes), HasSubstr("No space left on device")) << bytes.size();
        EXPECT_EQ(Contents(File()), Old);
        EXPECT_EQ(NamesIn(Folder()), before);
    }
    fs::remove(File("ballast"));
    EXPECT_EQ(Complaint(File(), Large), "");
    EXPECT_TRUE(Contents(File()) == Large.toStdString());
}

TEST_F(FullDisk, KeepsTheOldTextOfAFileOfTwoNames)
{
    fs::create_hard_link(File(), File("other.xml"));
    const std::set<std::string> before = NamesIn(Folder());
    EXPECT_THAT(Complaint(File(), Large), HasSubstr("No space left on device"));
    EXPECT_EQ(Contents(File("other.xml")), Old);
    EXPECT_EQ(NamesIn(Folder()), before);
}

TEST_F(SafeFile, KeepsTheOldTextWhereFilesMayNotGrow)
{
    std::string told;
    {
        const FileSizeLimit full(20);
        told = Complaint(File(), Small);
    }
    EXPECT_THAT(told, HasSubstr("File too large"));
    EXPECT_EQ(Contents(File()), Old);
    EXPECT_EQ(NamesIn(Folder()), std::set<std::string>{"object.xml"});
}

TEST_F(SafeFile, KeepsEveryMode)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the superuser writes what is read-only";
    for (const mode_t mode : {0444, 0600, 0640, 0664, 0755, 04750}) {
        ASSERT_EQ(::chmod(File().c_str(), mode), 0);
        EXPECT_EQ(Complaint(File(), Small), "");
        EXPECT_EQ(StatusOf(File()).st_mode & 07777, mode) << std::oct << mode;
    }
}

TEST_F(SafeFile, KeepsOwnerAndGroup)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the superuser can give a file away";
    ASSERT_EQ(::chown(File().c_str(), 65534, 12345), 0);
    ASSERT_EQ(::chmod(File().c_str(), 0640), 0);
    EXPECT_EQ(Complaint(File(), Small), "");
    EXPECT_EQ(StatusOf(File()).st_uid, 65534u);
    EXPECT_EQ(StatusOf(File()).st_gid, 12345u);
    EXPECT_EQ(StatusOf(File()).st_mode & 07777, 0640u);
    EXPECT_EQ(Contents(File()), Small.toStdString());
}

TEST_F(SafeFile, KeepsFurtherAttributes)
{
    if (::setxattr(File().c_str(), "user.project", "north", 5, 0) != 0)
        GTEST_SKIP() << "the file system has no such attributes";
    EXPECT_EQ(Complaint(File(), Small), "");
    char value[8] = {};
    EXPECT_EQ(::getxattr(File().c_str(), "user.project", value, sizeof value), 5);
    EXPECT_STREQ(value, "north");
}

TEST_F(SafeFile, WritesInPlaceWhereTheOwnerCanNotBeKept)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the superuser can give a file away";
    ASSERT_EQ(::chmod(File().c_str(), 0666), 0);
    ASSERT_EQ(::chmod(Folder().c_str(), 0777), 0);
    const OrdinaryUser user(home_.Path());
    EXPECT_EQ(Complaint(File(), Large), "");
    EXPECT_EQ(StatusOf(File()).st_uid, 0u);
    EXPECT_TRUE(Contents(File()) == Large.toStdString());
    EXPECT_EQ(NamesIn(Folder()), std::set<std::string>{"object.xml"});
}

TEST_F(SafeFile, GivesANewFileWhatTheUsersMaskAllows)
{
    const mode_t mask = ::umask(027);
    EXPECT_EQ(Complaint(File("new.xml"), Small), "");
    ::umask(mask);
    EXPECT_EQ(StatusOf(File("new.xml")).st_mode & 07777, 0640u);
}

TEST_F(SafeFile, RefusesAFileThatIsReadOnlyForItsUser)
{
    fs::permissions(File(), fs::perms(0444));
    const OrdinaryUser user(home_.Path());
    EXPECT_THAT(Complaint(File(), Small), HasSubstr("is read-only"));
    EXPECT_EQ(Contents(File()), Old);
}

TEST_F(SafeFile, KeepsAllNamesOfAFile)
{
    fs::create_hard_link(File(), File("other.xml"));
    const ino_t before = StatusOf(File()).st_ino;
    for (const QByteArray& bytes : {Large, Small}) {
        EXPECT_EQ(Complaint(File(), bytes), "");
        EXPECT_EQ(StatusOf(File()).st_ino, before);
        EXPECT_EQ(Contents(File("other.xml")), bytes.toStdString());
    }
    EXPECT_EQ(NamesIn(Folder()), (std::set<std::string>{"object.xml", "other.xml"}));
}

// The first write is that of the copy, the second that of the new text over the old one.
class WriteInPlaceFault : public SafeFile, public ::testing::WithParamInterface<Fault> {};

TEST_P(WriteInPlaceFault, PutsTheOldTextBack)
{
    fs::create_hard_link(File(), File("other.xml"));
    const Fault& fault = GetParam();
    FailingCalls calls(fault.Which, fault.Error, fault.First, 1);
    const std::string told = Complaint(File(), Large, calls);
    EXPECT_TRUE(calls.HasFailed());
    EXPECT_THAT(told, HasSubstr("What stood there still stands."));
    EXPECT_EQ(Contents(File("other.xml")), Old);
    EXPECT_EQ(NamesIn(Folder()), (std::set<std::string>{"object.xml", "other.xml"}));
}

INSTANTIATE_TEST_SUITE_P(OneCall, WriteInPlaceFault,
                         ::testing::Values(Fault{Call::Open, ENOSPC, 1}, Fault{Call::Write, ENOSPC, 1},
                                           Fault{Call::Sync, EIO, 1}, Fault{Call::Close, EIO, 1},
                                           Fault{Call::Rename, EIO, 1}, Fault{Call::Open, EIO, 3},
                                           Fault{Call::Write, ENOSPC, 2}, Fault{Call::Truncate, EIO, 1},
                                           Fault{Call::Sync, EIO, 3}, Fault{Call::Close, EIO, 3}));

TEST_F(SafeFile, TellsWhereTheOldTextStandsWhenItCanNotBePutBack)
{
    fs::create_hard_link(File(), File("other.xml"));
    FailingCalls calls(Call::Truncate, EIO);
    const std::string told = Complaint(File(), Large, calls);
    const std::string copy = Beside(::getpid(), ".old");
    EXPECT_THAT(told, HasSubstr(copy));
    EXPECT_EQ(Contents(Folder() / copy), Old);
    EXPECT_EQ(CopyOfCutShortSave(PathOf(File())), PathOf(Folder() / copy));
}

TEST_F(SafeFile, FollowsALinkOfALinkAndLeavesBoth)
{
    fs::create_symlink("object.xml", File("link.xml"));
    fs::create_symlink(File("link.xml"), home_ / "second.xml");
    EXPECT_EQ(Complaint(home_ / "second.xml", Small), "");
    EXPECT_TRUE(fs::is_symlink(home_ / "second.xml"));
    EXPECT_TRUE(fs::is_symlink(File("link.xml")));
    EXPECT_FALSE(fs::is_symlink(File()));
    EXPECT_EQ(Contents(File()), Small.toStdString());
}

TEST_F(SafeFile, MakesTheFileThatALinkToNothingNames)
{
    fs::create_symlink("later.xml", File("link.xml"));
    EXPECT_EQ(Complaint(File("link.xml"), Small), "");
    EXPECT_TRUE(fs::is_symlink(File("link.xml")));
    EXPECT_EQ(Contents(File("later.xml")), Small.toStdString());
}

TEST_F(SafeFile, WritesInAFolderThatTakesNoNewFiles)
{
    fs::permissions(File(), fs::perms(0666));
    fs::permissions(Folder(), fs::perms(0555));
    {
        const OrdinaryUser user(home_.Path());
        EXPECT_EQ(Complaint(File(), Small), "");
        EXPECT_EQ(Contents(File()), Small.toStdString());

        FailingCalls calls(Call::Truncate, EIO);
        EXPECT_THAT(Complaint(File(), Large, calls), HasSubstr((home_ / "data").native())); // where the copy is
        EXPECT_EQ(Contents(CopyOfCutShortSave(PathOf(File())).toStdString()), Small.toStdString());
    }
    fs::permissions(Folder(), fs::perms(0755));
}

TEST_F(SafeFile, RefusesWhatIsNoPlainFile)
{
    ASSERT_EQ(::mkfifo(File("pipe").c_str(), 0600), 0);
    EXPECT_THAT(Complaint(File("pipe"), Small), HasSubstr("a pipe"));
    EXPECT_THAT(Complaint(Folder(), Small), HasSubstr("a folder"));
    EXPECT_TRUE(S_ISFIFO(StatusOf(File("pipe")).st_mode));
}

TEST_F(SafeFile, SweepsWhatADeadWriterLeftAndNothingElse)
{
    const std::string dead = Beside(DeadProcess());
    const std::string living = Beside(::getppid());
    Put(Folder() / dead, "half a te");
    Put(Folder() / living, "being written");
    Put(Folder() / "object.xml.backup", "the user's own");
    Put(Folder() / "object.xml.rulemesh-notes", "the user's own");
    SweepLeftovers(PathOf(File()));
    EXPECT_EQ(NamesIn(Folder()),
              (std::set<std::string>{"object.xml", living, "object.xml.backup", "object.xml.rulemesh-notes"}));
}

TEST_F(SafeFile, SweepsAtTheNextSave)
{
    Put(Folder() / Beside(DeadProcess()), "half a te");
    EXPECT_EQ(Complaint(File(), Small), "");
    EXPECT_EQ(NamesIn(Folder()), std::set<std::string>{"object.xml"});
}

TEST_F(SafeFile, KeepsTheOldTextOfASaveThatWasCutShortUntilTheFileIsWholeAgain)
{
    const std::string copy = Beside(DeadProcess(), ".old");
    Put(Folder() / copy, "the old text");
    SweepLeftovers(PathOf(File()));
    EXPECT_EQ(CopyOfCutShortSave(PathOf(File())), PathOf(Folder() / copy));
    EXPECT_EQ(Complaint(File(), Small), "");
    EXPECT_EQ(CopyOfCutShortSave(PathOf(File())), QString());
    EXPECT_EQ(NamesIn(Folder()), std::set<std::string>{"object.xml"});
}

TEST_F(SafeFile, DropsTheCopyOfASaveThatNeverBegan)
{
    Put(Folder() / Beside(DeadProcess(), ".old"), Old);
    EXPECT_EQ(CopyOfCutShortSave(PathOf(File())), QString());
    EXPECT_EQ(NamesIn(Folder()), std::set<std::string>{"object.xml"});
}

TEST_F(SafeFile, TakesTheLongestName)
{
    const fs::path path = Folder() / std::string(255, 'x');
    Put(path, Old);
    EXPECT_EQ(Complaint(path, Small), "");
    EXPECT_EQ(Contents(path), Small.toStdString());
}

TEST_F(SafeFile, LeavesNoDescriptorOpen)
{
    const auto next = [] {
        const int number = ::dup(STDOUT_FILENO);
        ::close(number);
        return number;
    };
    const int before = next();
    fs::create_hard_link(File(), File("other.xml"));
    for (const Call call : {Call::Open, Call::Write, Call::Truncate, Call::Sync, Call::Close, Call::Rename}) {
        for (int first = 1; first < 6; ++first) {
            FailingCalls calls(call, EIO, first, 1);
            (void)Complaint(File(), Large, calls);
        }
    }
    EXPECT_EQ(next(), before);
}

} // namespace
} // namespace rulemesh
