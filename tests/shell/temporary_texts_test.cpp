#include "shell/temporary_texts.h"

#include <vector>

#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "platform/memory_files.h"

namespace rulemesh {
namespace {

const Text Path = u"C:\\Temp\\tgtab001Rule.bc";

TEST(RequireEncodable, RefusesWhatTheCodePageLacks)
{
    const MemoryFiles singleByte;
    const MemoryFiles utf8(CodePage::Utf8);
    struct Case {
        Text text;
        bool singleByte;
        bool utf8;
    };
    const std::vector<Case> cases = {
        {u"", true, true},
        {u"a\r\n\t", true, true},
        {u"\u00E9\u20AC\u2019", true, true},
        {u"\u4E2D", false, true},
        {u"a\u0416", false, true},
        {u"\U0001F600", false, true},
        {Text(1, 0xD800), false, false},
        {u"x" + Text(1, 0xDC00), false, false},
    };
    for (const auto& [text, inSingleByte, inUtf8] : cases) {
        const auto refused = [&, &text = text](const TextFiles& files) {
            return FailureOf([&] { RequireEncodable(files, text); });
        };
        EXPECT_EQ(refused(singleByte), inSingleByte ? std::nullopt : std::optional(FailureCode::InvalidProcedureCall));
        EXPECT_EQ(refused(utf8), inUtf8 ? std::nullopt : std::optional(FailureCode::InvalidProcedureCall));
    }
}

TEST(TemporaryTexts, AreStoredInOneByteForEachCharacter)
{
    MemoryFiles files;
    WriteTextFile(files, Path, u"caf\u00E9 \u20AC\r\n");
    EXPECT_EQ(files.Contents().at(Path), "caf\xE9 \x80\r\n");
    EXPECT_EQ(ReadTextFile(files, Path), u"caf\u00E9 \u20AC\r\n");
    files.Put(Path, "\x81\x8D");
    EXPECT_EQ(ReadTextFile(files, Path), u"\u0081\u008D");
}

TEST(TemporaryTexts, AreStoredInUtf8WhereTheHostSaysSo)
{
    MemoryFiles files(CodePage::Utf8);
    WriteTextFile(files, Path, u"\u4E2D\u00E9");
    EXPECT_EQ(files.Contents().at(Path), "\xE4\xB8\xAD\xC3\xA9");
    EXPECT_EQ(ReadTextFile(files, Path), u"\u4E2D\u00E9");
}

TEST(TemporaryTexts, AnEmptyFileIsAnEmptyText)
{
    MemoryFiles files;
    files.Put(Path, "");
    EXPECT_EQ(ReadTextFile(files, Path), u"");
    EXPECT_EQ(FailureOf([&] { static_cast<void>(ReadTextFile(files, u"C:\\Temp\\none")); }), FailureCode::FileNotFound);
}

} // namespace
} // namespace rulemesh
