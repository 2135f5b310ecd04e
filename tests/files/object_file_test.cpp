#include "files/object_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/temporary_folder.h"

// What the application's tests of its own face on this room don't see: which encoding a file has, and the way back.

namespace rulemesh {
namespace {

using namespace std::string_literals;
using testing::HasSubstr;

std::string WrittenAgain(const std::string& bytes)
{
    ObjectInFile file = ParseObject(bytes);
    const TemporaryFolder folder;
    WriteObject(folder / "object.xml", file);
    return Contents(folder / "object.xml");
}

std::string Complaint(const std::function<void()>& work)
{
    try {
        work();
    } catch (const FileError& error) {
        return error.what();
    }
    return {};
}

// "<a>", a letter, "</a>" and a line feed, each byte of ASCII followed or preceded by zeros.
std::string Wide(const std::string& ascii, std::size_t width, bool bigEnd)
{
    std::string bytes;
    for (const char byte : ascii) {
        const std::string zeros(width - 1, '\0');
        bytes += bigEnd ? zeros + byte : byte + zeros;
    }
    return bytes;
}

TEST(ObjectInFile, ComesBackByteForByteInItsEncoding)
{
    const std::string declared = "<?xml version='1.0' encoding='UTF-16'?>\r\n<a>b</a>\n";
    const std::string plain = "<!-- c --><a>b</a>";
    for (const std::string& bytes : {
             "<?xml version=\"1.0\" encoding=\"utf-8\"?><a>\xC3\xA4\xE2\x82\xAC</a>"s,
             "\xEF\xBB\xBF<a>\xF0\x9F\x98\x80</a>\r\n"s,
             "<?xml version='1.0' encoding='windows-1252'?><a>\x80\x81\xE4</a>"s,
             "<?xml version='1.0' encoding='ISO-8859-1'?><!-- \xE4 --><a b='\x80'>\xFF</a>"s,
             "<?xml version='1.0' encoding='US-ASCII'?><a>&#228;</a>"s,
             "\xFF\xFE"s + Wide(declared, 2, false),
             "\xFE\xFF"s + Wide(declared, 2, true),
             Wide(plain, 2, false),
             Wide(plain, 2, true),
             "\xFF\xFE\0\0"s + Wide(plain, 4, false),
             "\0\0\xFE\xFF"s + Wide(plain, 4, true),
             Wide(plain, 4, false),
             Wide(plain, 4, true),
             "\xFF\xFE"s + Wide("<a>", 2, false) + "\x3D\xD8\x00\xDE"s + Wide("</a>", 2, false),
             "\xFF\xFE\0\0"s + Wide("<a>", 4, false) + "\x00\xF6\x01\x00"s + Wide("</a>", 4, false),
         })
        EXPECT_EQ(WrittenAgain(bytes), bytes) << bytes;
}

TEST(ObjectInFile, KeepsTheLeadAsItStood)
{
    const ObjectInFile file = ParseObject("<?xml version='1.0' encoding='windows-1252'?><!-- \x80 --><a>\x80</a>");
    EXPECT_EQ(file.Lead, "<?xml version='1.0' encoding='windows-1252'?><!-- \xE2\x82\xAC -->");
    EXPECT_EQ(file.Object, "<a>\xE2\x82\xAC</a>");
    EXPECT_EQ(file.Encoding, XmlEncoding::Windows1252);
}

std::string Encoded(const std::string& text, XmlEncoding encoding) { return EncodeXml({text, encoding, false}); }

TEST(EncodeXml, WritesAReferenceForACharacterThatTheEncodingLacks)
{
    EXPECT_EQ(Encoded("<a b='\xCF\x80' c=\">\xE2\x82\xAC\">\xE2\x82\xAC\xC3\xA4<b/>\xF0\x9F\x98\x80</a>",
                      XmlEncoding::Latin1),
              "<a b='&#960;' c=\">&#8364;\">&#8364;\xE4<b/>&#128512;</a>");
    EXPECT_EQ(Encoded("<a>\xE2\x82\xAC\xCF\x80</a>", XmlEncoding::Windows1252), "<a>\x80&#960;</a>");
    EXPECT_EQ(Encoded("<a>\xC3\xA4</a>", XmlEncoding::Ascii), "<a>&#228;</a>");
    EXPECT_EQ(Encoded("<!-- <x> --><?p >?><a><![CDATA[<]]>\xCF\x80</a>", XmlEncoding::Ascii),
              "<!-- <x> --><?p >?><a><![CDATA[<]]>&#960;</a>");
}

TEST(EncodeXml, RefusesOneWhereNoReferenceCanStand)
{
    for (const char* text : {"<a>\n<!-- \xCF\x80 --></a>", "<a>\n<![CDATA[>\xCF\x80]]></a>", "<a>\n<?p \xCF\x80?></a>",
                             "<a>\n<\xCF\x80/></a>", "<a>\n<b c='1' \xCF\x80='2'/></a>", "<a>\n<b></\xCF\x80></a>"})
        EXPECT_THAT(Complaint([&] { static_cast<void>(Encoded(text, XmlEncoding::Latin1)); }),
                    HasSubstr("Line 2 holds the character \"\xCF\x80\""))
            << text;
}

TEST(ParseObject, TakesUtf8UnderADeclarationOfAsciiForWhatItIs)
{
    const std::string bytes = "<?xml version='1.0' encoding='ascii'?><a>\xC3\xA4</a>";
    EXPECT_EQ(ParseObject(bytes).Encoding, XmlEncoding::Utf8);
    EXPECT_EQ(WrittenAgain(bytes), bytes);
}

TEST(CheckObject, TellsTheLineOfTheFault)
{
    for (const auto& [text, line] : std::vector<std::pair<std::string, std::string>>{
             {"<!-- 1 -->\n<partn101>\n<PREC></partn101>", "line 3 "},
             {"<partn101>\n<PREC/>\n\n", "line 4 "},
             {"<partn101 a='1' a='2'>\n<PREC/></partn101>", "line 1 "},
             {"<partn101><PREC/>\n&x;</partn101>", "line 2 "},
         })
        EXPECT_THAT(Complaint([&, &text = text] { CheckObject(ParseObject(text)); }), HasSubstr(line)) << text;
}

TEST(WriteObject, WritesNothingThatWouldNotLoadAgain)
{
    const TemporaryFolder folder;
    EXPECT_THROW(WriteObject(folder / "object.xml", {"", "<a><b></a>"}), MalformedXml);
    EXPECT_FALSE(std::filesystem::exists(folder / "object.xml"));
}

} // namespace
} // namespace rulemesh
