#include "platform/private_folder_files.h"

#include <filesystem>
#include <optional>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "platform/file_size_limit.h"
#include "platform/ordinary_user.h"
#include "platform/temporary_folder.h"

namespace rulemesh {
namespace {

namespace fs = std::filesystem;

constexpr uid_t Somebody = 65534;

class FileMask {
public:
    explicit FileMask(mode_t mask) : previous_(::umask(mask)) {}
    FileMask(const FileMask&) = delete;
    FileMask& operator=(const FileMask&) = delete;
    ~FileMask() { ::umask(previous_); }

private:
    mode_t previous_;
};

class PrivateFolderFilesTest : public testing::Test {
protected:
    [[nodiscard]] fs::path Folder() const { return home_ / "private"; }
    [[nodiscard]] fs::path File(std::string_view name) const { return Folder() / name; }
    [[nodiscard]] PrivateFolderFiles Files() const { return PrivateFolderFiles(TextOf(Folder())); }

    void MakeFolder(mode_t mode = 0700) const
    {
        fs::create_directory(Folder());
        ASSERT_EQ(::chmod(Folder().c_str(), mode), 0);
    }

    [[nodiscard]] std::optional<FailureCode> FailureOfWriting(std::string_view name) const
    {
        return FailureOf([&] { Files().Write(TextOf(File(name)), "new"); });
    }

    [[nodiscard]] std::optional<FailureCode> FailureOfReading(std::string_view name) const
    {
        return FailureOf([&] { (void)Files().Read(TextOf(File(name))); });
    }

    static mode_t ModeOf(const fs::path& path)
    {
        struct stat status = {};
        EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
        return status.st_mode & 07777;
    }

    TemporaryFolder home_;
};

TEST_F(PrivateFolderFilesTest, LiesUnderTheUsersNumberInTheTemporaryFolder)
{
    const std::string name = "rulemesh-" + std::to_string(::geteuid()) + "/";
    {
        const Environment chosen("TMPDIR", home_.Path().native());
        EXPECT_EQ(PrivateFolderFiles().Folder(), TextOf(home_ / name));
    }
    {
        const Environment chosen("TMPDIR", home_.Path().native() + "/");
        EXPECT_EQ(PrivateFolderFiles().Folder(), FromUtf8(home_.Path().native() + "//" + name));
    }
    const Environment none("TMPDIR");
    EXPECT_EQ(PrivateFolderFiles().Folder(), FromUtf8("/tmp/" + name));
}

TEST_F(PrivateFolderFilesTest, PassesOverATemporaryFolderThatIsNoAbsolutePath)
{
    for (const char* given : {"", "relative", "../up", "/not-utf8-\xFF"}) {
        const Environment chosen("TMPDIR", given);
        EXPECT_TRUE(PrivateFolderFiles().Folder().starts_with(u"/tmp/rulemesh-")) << given;
    }
}

TEST_F(PrivateFolderFilesTest, LiesWhereTheHostSays)
{
    EXPECT_EQ(PrivateFolderFiles(u"/some/where").Folder(), u"/some/where/");
    EXPECT_EQ(PrivateFolderFiles(u"/some/where//").Folder(), u"/some/where/");
    EXPECT_EQ(PrivateFolderFiles(u"where").Folder(), TextOf(fs::current_path() / "where/"));
}

TEST_F(PrivateFolderFilesTest, StoresWindows1252UnlessTheHostChooses)
{
    EXPECT_EQ(PrivateFolderFiles().Page(), CodePage::Windows1252);
    EXPECT_EQ(PrivateFolderFiles(u"/x").Page(), CodePage::Windows1252);
    EXPECT_EQ(PrivateFolderFiles(CodePage::Utf8).Page(), CodePage::Utf8);
    EXPECT_EQ(PrivateFolderFiles(u"/x", CodePage::Utf8).Page(), CodePage::Utf8);
}

TEST_F(PrivateFolderFilesTest, TouchesNothingBeforeTheFirstWrite)
{
    const PrivateFolderFiles files = PrivateFolderFiles(TextOf(Folder()));
    EXPECT_EQ(files.Folder(), TextOf(File("")));
    EXPECT_FALSE(fs::exists(Folder()));
}

TEST_F(PrivateFolderFilesTest, MakesFolderAndFileForTheOwnerAlone)
{
    const FileMask open(0);
    Files().Write(TextOf(File("x.bc")), "text");
    EXPECT_EQ(ModeOf(Folder()), mode_t{0700});
    EXPECT_EQ(ModeOf(File("x.bc")), mode_t{0600});
}

TEST_F(PrivateFolderFilesTest, GivesBackWhatWasWritten)
{
    const std::string large(3'000'001, 'x');
    for (const std::string_view bytes :
         {std::string_view(""), std::string_view("a\0\r\n\xFF", 5), std::string_view(large)}) {
        Files().Write(TextOf(File("x.bc")), bytes);
        EXPECT_TRUE(Files().Read(TextOf(File("x.bc"))) == bytes);
        EXPECT_TRUE(Contents(File("x.bc")) == bytes);
    }
}

TEST_F(PrivateFolderFilesTest, ReplacesAllThatAFileHeld)
{
    MakeFolder();
    Put(File("x.bc"), "a much longer text");
    Files().Write(TextOf(File("x.bc")), "short");
    EXPECT_EQ(Contents(File("x.bc")), "short");
}

TEST_F(PrivateFolderFilesTest, TakesTheNamesThatDocumentsHave)
{
    for (const std::string_view name : {"tgtab001Rule.bc", "tgt1    MQ.bc", "        .xml", ".xml",
                                        "t\xC3\xA4rget01.xml", "a.b.c", "-rf", "*$(id)"}) {
        Files().Write(TextOf(File(name)), name);
        EXPECT_EQ(Contents(File(name)), name);
        EXPECT_EQ(Files().Read(TextOf(File(name))), name);
    }
}

TEST_F(PrivateFolderFilesTest, ReadsWhatAnEditorPutInTheFilesPlace)
{
    Files().Write(TextOf(File("x.bc")), "before");
    Put(File("x.bc~"), "edited");
    fs::rename(File("x.bc~"), File("x.bc"));
    EXPECT_EQ(Files().Read(TextOf(File("x.bc"))), "edited");
}

TEST_F(PrivateFolderFilesTest, RaisesFileNotFoundForAMissingFile)
{
    MakeFolder();
    EXPECT_EQ(FailureOfReading("x.bc"), FailureCode::FileNotFound);
    EXPECT_FALSE(fs::exists(File("x.bc")));
}

TEST_F(PrivateFolderFilesTest, RaisesPathNotFoundWithoutTheFoldersParent)
{
    Put(home_ / "file", "");
    for (const std::string_view folder : {"missing/private", "file/private"}) {
        const fs::path path = home_ / folder;
        PrivateFolderFiles files(TextOf(path));
        EXPECT_EQ(FailureOf([&] { files.Write(TextOf(path / "x.bc"), "new"); }), FailureCode::PathNotFound) << folder;
    }
    EXPECT_FALSE(fs::exists(home_ / "missing"));
}

TEST_F(PrivateFolderFilesTest, RaisesPathNotFoundWhenReadingWithoutTheFolder)
{
    EXPECT_EQ(FailureOfReading("x.bc"), FailureCode::PathNotFound);
    EXPECT_FALSE(fs::exists(Folder()));
}

TEST_F(PrivateFolderFilesTest, RefusesAFolderThatIsALink)
{
    const fs::path victim = home_ / "victim";
    fs::create_directory(victim);
    fs::permissions(victim, fs::perms::owner_all);
    Put(victim / "x.bc", "precious");
    fs::create_directory_symlink(victim, Folder());

    EXPECT_EQ(FailureOfWriting("x.bc"), FailureCode::PathFileAccess);
    EXPECT_EQ(FailureOfWriting("y.bc"), FailureCode::PathFileAccess);
    EXPECT_EQ(FailureOfReading("x.bc"), FailureCode::PathFileAccess);
    EXPECT_EQ(Contents(victim / "x.bc"), "precious");
    EXPECT_FALSE(fs::exists(victim / "y.bc"));
}

TEST_F(PrivateFolderFilesTest, RefusesALinkThatTheHostNamesWithASeparator)
{
    const fs::path victim = home_ / "victim";
    fs::create_directory(victim);
    fs::permissions(victim, fs::perms::owner_all);
    fs::create_directory_symlink(victim, Folder());
    PrivateFolderFiles files(TextOf(Folder()) + u"//");
    EXPECT_EQ(FailureOf([&] { files.Write(files.Folder() + u"x.bc", "new"); }), FailureCode::PathFileAccess);
    EXPECT_TRUE(fs::is_empty(victim));
}

TEST_F(PrivateFolderFilesTest, RefusesAFolderThatIsALinkToNothing)
{
    fs::create_directory_symlink(home_ / "nowhere", Folder());
    EXPECT_EQ(FailureOfWriting("x.bc"), FailureCode::PathFileAccess);
    EXPECT_FALSE(fs::exists(home_ / "nowhere"));
}

TEST_F(PrivateFolderFilesTest, RefusesAFileInTheFoldersPlace)
{
    Put(Folder(), "precious");
    EXPECT_EQ(FailureOfWriting("x.bc"), FailureCode::PathFileAccess);
    EXPECT_EQ(FailureOfReading("x.bc"), FailureCode::PathFileAccess);
    EXPECT_EQ(Contents(Folder()), "precious");
}

TEST_F(PrivateFolderFilesTest, RefusesAFolderThatIsOpenToOthers)
{
    for (const mode_t mode : {0701, 0702, 0704, 0710, 0720, 0740, 0755, 01777}) {
        MakeFolder(mode);
        EXPECT_EQ(FailureOfWriting("x.bc"), FailureCode::PathFileAccess) << std::oct << mode;
        EXPECT_EQ(FailureOfReading("x.bc"), FailureCode::PathFileAccess) << std::oct << mode;
    }
    EXPECT_TRUE(fs::is_empty(Folder()));
}

TEST_F(PrivateFolderFilesTest, RefusesAFolderOfSomebodyElse)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the superuser can give a folder away";
    MakeFolder();
    ASSERT_EQ(::chown(Folder().c_str(), Somebody, Somebody), 0);
    EXPECT_EQ(FailureOfWriting("x.bc"), FailureCode::PathFileAccess);
    EXPECT_EQ(FailureOfReading("x.bc"), FailureCode::PathFileAccess);
    EXPECT_TRUE(fs::is_empty(Folder()));
}

TEST_F(PrivateFolderFilesTest, RefusesToWriteWhereTheFolderIsReadOnly)
{
    const OrdinaryUser user(home_.Path());
    MakeFolder(0500);
    EXPECT_EQ(FailureOfWriting("x.bc"), FailureCode::PathFileAccess);
    EXPECT_EQ(FailureOfReading("x.bc"), FailureCode::FileNotFound);
    EXPECT_TRUE(fs::is_empty(Folder()));
}

TEST_F(PrivateFolderFilesTest, RefusesToWriteAReadOnlyFile)
{
    const OrdinaryUser user(home_.Path());
    MakeFolder();
    Put(File("x.bc"), "precious");
    fs::permissions(File("x.bc"), fs::perms::owner_read);
    EXPECT_EQ(FailureOfWriting("x.bc"), FailureCode::PathFileAccess);
    EXPECT_EQ(Contents(File("x.bc")), "precious");
}

TEST_F(PrivateFolderFilesTest, RefusesToMakeTheFolderInAReadOnlyParent)
{
    const OrdinaryUser user(home_.Path());
    fs::permissions(home_.Path(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(FailureOfWriting("x.bc"), FailureCode::PathFileAccess);
    EXPECT_FALSE(fs::exists(Folder()));
    fs::permissions(home_.Path(), fs::perms::owner_all);
}

TEST_F(PrivateFolderFilesTest, RefusesALinkInTheFilesPlace)
{
    MakeFolder();
    Put(home_ / "victim", "precious");
    fs::create_symlink(home_ / "victim", File("x.bc"));
    EXPECT_EQ(FailureOfWriting("x.bc"), FailureCode::PathFileAccess);
    EXPECT_EQ(FailureOfReading("x.bc"), FailureCode::PathFileAccess);
    EXPECT_EQ(Contents(home_ / "victim"), "precious");
}

TEST_F(PrivateFolderFilesTest, RefusesALinkToNothingInTheFilesPlace)
{
    MakeFolder();
    fs::create_symlink(home_ / "nowhere", File("x.bc"));
    EXPECT_EQ(FailureOfWriting("x.bc"), FailureCode::PathFileAccess);
    EXPECT_FALSE(fs::exists(home_ / "nowhere"));
}

TEST_F(PrivateFolderFilesTest, RefusesToOverwriteAFileOfTwoNames)
{
    MakeFolder();
    Put(home_ / "victim", "precious");
    fs::create_hard_link(home_ / "victim", File("x.bc"));
    EXPECT_EQ(FailureOfWriting("x.bc"), FailureCode::PathFileAccess);
    EXPECT_EQ(Contents(home_ / "victim"), "precious");
}

TEST_F(PrivateFolderFilesTest, RefusesToOverwriteAFileOfSomebodyElse)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the superuser can give a file away";
    MakeFolder();
    Put(File("x.bc"), "precious");
    ASSERT_EQ(::chown(File("x.bc").c_str(), Somebody, Somebody), 0);
    EXPECT_EQ(FailureOfWriting("x.bc"), FailureCode::PathFileAccess);
    EXPECT_EQ(Contents(File("x.bc")), "precious");
}

TEST_F(PrivateFolderFilesTest, RefusesAFolderInTheFilesPlace)
{
    MakeFolder();
    fs::create_directory(File("x.bc"));
    EXPECT_EQ(FailureOfWriting("x.bc"), FailureCode::PathFileAccess);
    EXPECT_EQ(FailureOfReading("x.bc"), FailureCode::PathFileAccess);
}

TEST_F(PrivateFolderFilesTest, DoesNotHangOnAPipeInTheFilesPlace)
{
    MakeFolder();
    ASSERT_EQ(::mkfifo(File("x.bc").c_str(), 0600), 0);
    EXPECT_EQ(FailureOfWriting("x.bc"), FailureCode::PathFileAccess);
    EXPECT_EQ(FailureOfReading("x.bc"), FailureCode::PathFileAccess);
}

TEST_F(PrivateFolderFilesTest, RefusesNamesThatLeaveTheFolderBeforeTouchingAnything)
{
    Put(home_ / "victim", "precious");
    const Text folder = TextOf(Folder());
    const Text cases[] = {
        u"",
        u"/etc/passwd",
        u"x.bc",
        TextOf(home_ / "victim"),
        folder,
        folder + u"/",
        folder + u"/.",
        folder + u"/..",
        folder + u"/../victim",
        folder + u"/../../x",
        folder + u"/sub/x.bc",
        folder + u"//x.bc",
        folder + u"/..\\x.bc",
        folder + u"/sub\\x.bc",
        folder + u"/x.bc" + Text(1, u'\0'),
        folder + u"/x" + Text(1, u'\0') + u".bc",
        folder + u"er/x.bc",
        u"C:\\Temp\\x.bc",
    };
    for (const Text& given : cases) {
        EXPECT_EQ(FailureOf([&] { Files().Write(given, "new"); }), FailureCode::PathFileAccess) << ToUtf8(given);
        EXPECT_EQ(FailureOf([&] { (void)Files().Read(given); }), FailureCode::PathFileAccess) << ToUtf8(given);
    }
    EXPECT_FALSE(fs::exists(Folder()));
    EXPECT_EQ(Contents(home_ / "victim"), "precious");
}

TEST_F(PrivateFolderFilesTest, RefusesANameThatIsTooLong)
{
    EXPECT_EQ(FailureOfWriting(std::string(300, 'x')), FailureCode::PathFileAccess);
    EXPECT_EQ(FailureOfReading(std::string(300, 'x')), FailureCode::PathFileAccess);
}

TEST_F(PrivateFolderFilesTest, RaisesWhenNotEverythingCanBeWritten)
{
    const FileSizeLimit full(4096);
    EXPECT_EQ(FailureOf([&] { Files().Write(TextOf(File("x.bc")), std::string(10'000, 'x')); }),
              FailureCode::PathFileAccess);
}

TEST_F(PrivateFolderFilesTest, LeavesNoDescriptorOpen)
{
    MakeFolder();
    fs::create_directory(File("folder"));
    const auto next = [] {
        const int number = ::dup(STDOUT_FILENO);
        ::close(number);
        return number;
    };
    const int before = next();
    Files().Write(TextOf(File("x.bc")), "text");
    (void)Files().Read(TextOf(File("x.bc")));
    (void)FailureOfWriting("folder");
    (void)FailureOfReading("folder");
    (void)FailureOfReading("missing");
    EXPECT_EQ(next(), before);
}

} // namespace
} // namespace rulemesh
