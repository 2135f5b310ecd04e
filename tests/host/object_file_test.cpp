#include "host/object_file.h"

#include <filesystem>

#include <gtest/gtest.h>

#include <QFile>
#include <QStringEncoder>

#include "host/host_error.h"
#include "platform/temporary_folder.h"

namespace rulemesh {
namespace {

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
