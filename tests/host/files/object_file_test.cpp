#include "host/files/object_file.h"

#include <filesystem>

#include <sys/stat.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QStringEncoder>

#include "host/files/host_error.h"
#include "host/files/plain_file.h"
#include "platform/ordinary_user.h"
#include "platform/temporary_folder.h"

namespace rulemesh {
namespace {

using ::testing::HasSubstr;

QByteArray In(QStringConverter::Encoding encoding, const QString& text)
{
    QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
    return encoder(text);
}

QString Complaint(const QByteArray& bytes)
{
    try {
        CheckObject(ParseObjectBytes(bytes));
    } catch (const HostError& error) {
        return error.Text();
    }
    return {};
}

QString PathOf(const std::filesystem::path& path) { return QString::fromStdString(path.native()); }

TEST(ParseObjectBytes, KeepsWhatStandsBeforeTheRootApart)
{
    const ObjectText text =
        ParseObjectBytes("<?xml version=\"1.0\"?>\n<!-- <no> root -->\n<partn101><PREC/></partn101>\n");
    EXPECT_EQ(text.Lead, "<?xml version=\"1.0\"?>\n<!-- <no> root -->\n");
    EXPECT_EQ(text.Object, "<partn101><PREC/></partn101>\n");
}

TEST(ParseObjectBytes, KeepsAByteOrderMarkOfUtf8)
{
    EXPECT_EQ(ParseObjectBytes("\xEF\xBB\xBF<partn101/>"), (ObjectText{"\xEF\xBB\xBF", "<partn101/>"}));
}

TEST(ParseObjectBytes, ReadsUtf16AndTellsUtf8FromThenOn)
{
    const QString text = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-16\"?><partn101>\u20AC</partn101>");
    const ObjectText expected{"<?xml version=\"1.0\" encoding=\"UTF-8\"?>", "<partn101>\xE2\x82\xAC</partn101>"};
    EXPECT_EQ(ParseObjectBytes(In(QStringConverter::Utf16LE, text)), expected);
    EXPECT_EQ(ParseObjectBytes(In(QStringConverter::Utf16BE, text)), expected);
}

TEST(ParseObjectBytes, TellsTheLineOfHalfACharacter)
{
    const QString whole = QStringLiteral("<partn101>\n<PREC>\U0001F600</PREC></partn101>");
    EXPECT_EQ(Complaint(In(QStringConverter::Utf16LE, whole)), QString());
    for (const char16_t half : {u'\xD83D', u'\xDE00'}) {
        const QString text = QStringLiteral("<partn101>\n<PREC>%1</PREC></partn101>").arg(QChar(half));
        QByteArray bytes("\xFF\xFE", 2);
        bytes.append(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
        EXPECT_TRUE(Complaint(bytes).contains(QStringLiteral("line 2 holds half of a character")));
    }
}

TEST(ParseObjectBytes, RefusesBytesThatAreLeftOver)
{
    const QByteArray whole = In(QStringConverter::Utf16LE, QStringLiteral("<partn101><PREC/></partn101>\n"));
    EXPECT_EQ(Complaint(whole), QString());
    EXPECT_TRUE(Complaint(whole + '<').contains(QStringLiteral("damaged")));
    EXPECT_TRUE(Complaint(whole.chopped(1)).contains(QStringLiteral("damaged")));
}

TEST(ParseObjectBytes, RefusesNumbersThatAreNoCharacterInUtf32)
{
    const QByteArray start = In(QStringConverter::Utf32LE, QStringLiteral("<partn101><PREC/></partn101>"));
    EXPECT_EQ(Complaint(start), QString());
    EXPECT_TRUE(Complaint(start + QByteArray("\x00\x00\x11\x00", 4)).contains(QStringLiteral("damaged")));
    EXPECT_TRUE(Complaint(start + QByteArray("\x3D\xD8\x00\x00", 4)).contains(QStringLiteral("damaged")));
}

TEST(ParseObjectBytes, ReadsDeclaredSingleByteEncodings)
{
    EXPECT_EQ(ParseObjectBytes("<?xml version='1.0' encoding='windows-1252'?><a>\x80</a>"),
              (ObjectText{"<?xml version='1.0' encoding=\"UTF-8\"?>", "<a>\xE2\x82\xAC</a>"}));
    EXPECT_EQ(ParseObjectBytes("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE4</a>").Object, "<a>\xC3\xA4</a>");
}

TEST(ParseObjectBytes, TellsTheLineOfAByteThatIsNotUtf8)
{
    EXPECT_TRUE(Complaint("<partn101>\n<PREC>\xE4</PREC></partn101>").startsWith(QStringLiteral("Line 2 ")));
}

TEST(ParseObjectBytes, RefusesAnEncodingThatItDoesNotKnow)
{
    EXPECT_TRUE(Complaint("<?xml version='1.0' encoding='EBCDIC'?><a/>").contains(QStringLiteral("ebcdic")));
}

TEST(CheckObject, TakesTheSmallestObject) { EXPECT_EQ(Complaint("<partn101><PREC/></partn101>"), QString()); }

TEST(CheckObject, TellsWhatIsWrongWithOthers)
{
    EXPECT_TRUE(Complaint("").contains(QStringLiteral("no root element")));
    EXPECT_TRUE(Complaint("plain text").contains(QStringLiteral("no root element")));
    EXPECT_TRUE(Complaint("<!DOCTYPE a><a/>").contains(QStringLiteral("document type declaration")));
    EXPECT_TRUE(Complaint("<!-- 1 -->\n<partn101>\n<PREC></partn101>").contains(QStringLiteral("Line 3")));
    EXPECT_TRUE(Complaint("<html/>").contains(QStringLiteral("\"html\"")));
    EXPECT_TRUE(Complaint("<partn101/>").contains(QStringLiteral("PREC")));
}

TEST(CheckObject, RefusesARootThatNoFileCanBeNamedBy)
{
    EXPECT_TRUE(Complaint("<par..101><PREC/></par..101>").contains(QStringLiteral("\"par..101\". Two dots")));
    EXPECT_EQ(Complaint("<par.t.01><PREC/></par.t.01>"), QString());
}

TEST(WriteObjectFile, KeepsPermissionsAndPutsTheLeadInFront)
{
    const TemporaryFolder folder;
    const auto path = folder / "object.xml";
    Put(path, "old");
    std::filesystem::permissions(path, std::filesystem::perms(0640));
    WriteObjectFile(PathOf(path), {"<?xml version='1.0'?>\n", "<a/>"});
    EXPECT_EQ(Contents(path), "<?xml version='1.0'?>\n<a/>");
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0640));
}

TEST(WriteObjectFile, ReplacesTheFileThatALinkLeadsTo)
{
    const TemporaryFolder folder;
    Put(folder / "object.xml", "old");
    std::filesystem::create_symlink("object.xml", folder / "link.xml");
    WriteObjectFile(PathOf(folder / "link.xml"), {"", "<a/>"});
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.xml"));
    EXPECT_EQ(Contents(folder / "object.xml"), "<a/>");
}

TEST(WriteObjectFile, LeavesTheOldTextWhereTheNewOneWouldNotLoad)
{
    const TemporaryFolder folder;
    const auto path = folder / "object.xml";
    WriteObjectFile(PathOf(path), {"", "<a/>"});
    EXPECT_THROW(WriteObjectFile(PathOf(path), {"", "<a><b></a>"}), HostError);
    EXPECT_EQ(ReadObjectFile(PathOf(path)).Object, "<a/>");
}

TEST(WriteObjectFile, LeavesTheOldTextWhereItCanNotWrite)
{
    const TemporaryFolder folder;
    const QString missing = PathOf(folder / "nowhere" / "object.xml");
    EXPECT_THROW(WriteObjectFile(missing, {"", "<a/>"}), HostError);
    std::filesystem::create_directory(folder / "object.xml");
    EXPECT_THROW(WriteObjectFile(PathOf(folder / "object.xml"), {"", "<a/>"}), HostError);
    EXPECT_TRUE(std::filesystem::is_directory(folder / "object.xml"));
}

TEST(ReadObjectFile, ReadsBackWhatWasWritten)
{
    const TemporaryFolder folder;
    const ObjectText text{"<?xml version='1.0'?>\n", "<partn101><PREC>\xC3\xA4</PREC></partn101>\n"};
    WriteObjectFile(PathOf(folder / "object.xml"), text);
    EXPECT_EQ(ReadObjectFile(PathOf(folder / "object.xml")), text);
}

// What the user is told of a file that is no object.
std::string ComplaintAbout(const std::filesystem::path& path)
{
    try {
        (void)ReadObjectFile(PathOf(path));
    } catch (const HostError& error) {
        return error.what();
    }
    return {};
}

TEST(ReadObjectFile, TellsWhatStandsThereInsteadOfAFile)
{
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe.xml").c_str(), 0600), 0);
    std::filesystem::create_symlink("pipe.xml", folder / "link.xml");
    EXPECT_THAT(ComplaintAbout(folder / "pipe.xml"), HasSubstr("pipe.xml is a pipe between programs"));
    EXPECT_THAT(ComplaintAbout(folder / "link.xml"), HasSubstr("link.xml is a pipe between programs"));
    EXPECT_THAT(ComplaintAbout(folder.Path()), HasSubstr("is a folder, not a file"));
    EXPECT_THAT(ComplaintAbout("/dev/zero"), HasSubstr("/dev/zero is a device"));
    EXPECT_THAT(ComplaintAbout(folder / "none.xml"), HasSubstr("No such file"));
}

TEST(ReadObjectFile, TellsAFileThatItsUserMayNotRead)
{
    const TemporaryFolder folder;
    Put(folder / "object.xml", "<a/>");
    std::filesystem::permissions(folder / "object.xml", std::filesystem::perms::none);
    const OrdinaryUser user(folder.Path());
    EXPECT_THAT(ComplaintAbout(folder / "object.xml"), HasSubstr("Permission denied"));
}

TEST(ReadObjectFile, TellsAFileThatIsTooLargeForTheMachine)
{
    const TemporaryFolder folder;
    Put(folder / "object.xml", "<a/>");
    std::error_code error;
    std::filesystem::resize_file(folder / "object.xml", static_cast<std::uintmax_t>(LargestFile()) + 1, error);
    if (error)
        GTEST_SKIP() << "the file system takes no file of that size";
    EXPECT_THAT(ComplaintAbout(folder / "object.xml"), HasSubstr("is too large"));
}

TEST(StampOf, TellsThatAnotherProgramWroteTheFile)
{
    const TemporaryFolder folder;
    const QString path = PathOf(folder / "object.xml");
    EXPECT_EQ(StampOf(path), FileStamp{});
    Put(folder / "object.xml", "one");
    const FileStamp before = StampOf(path);
    EXPECT_EQ(StampOf(path), before);
    Put(folder / "object.xml", "four");
    EXPECT_NE(StampOf(path), before);
}

TEST(RootName, ReadsTheNameOfTheRootAlone)
{
    EXPECT_EQ(RootName("<partn101 a='1'><PREC/></partn101>"), QStringLiteral("partn101"));
    EXPECT_EQ(RootName("no xml"), QString());
}

} // namespace
} // namespace rulemesh
