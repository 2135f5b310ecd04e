#include "platform/memory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/failure_of.h"

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(MemoryFiles, ReadTheSameOnEveryMachine)
{
    const MemoryFiles files;
    EXPECT_EQ(files.Folder(), u"C:\\Temp\\");
    EXPECT_EQ(files.Page(), CodePage::Windows1252);
}

TEST(MemoryFiles, KeepTheCodePageOfTheHost) { EXPECT_EQ(MemoryFiles(CodePage::Utf8).Page(), CodePage::Utf8); }

TEST(MemoryFiles, GiveBackWhatWasWritten)
{
    MemoryFiles files;
    files.Write(u"C:\\Temp\\tgt1    Rule.bc", std::string_view("a\0b\xFF", 4));
    files.Write(u"C:\\Temp\\tgt1    MQ.bc", "");
    EXPECT_EQ(files.Read(u"C:\\Temp\\tgt1    Rule.bc"), std::string("a\0b\xFF", 4));
    EXPECT_EQ(files.Read(u"C:\\Temp\\tgt1    MQ.bc"), "");
}

TEST(MemoryFiles, ReplaceAllThatAFileHeld)
{
    MemoryFiles files;
    files.Write(u"C:\\Temp\\x", "a longer text");
    files.Write(u"C:\\Temp\\x", "short");
    EXPECT_THAT(files.Contents(), ElementsAre(Pair(u"C:\\Temp\\x", "short")));
}

TEST(MemoryFiles, RaiseFileNotFoundForAMissingFile)
{
    MemoryFiles files;
    files.Write(u"C:\\Temp\\x", "");
    EXPECT_EQ(FailureOf([&] { (void)files.Read(u"C:\\Temp\\y"); }), FailureCode::FileNotFound);
}

TEST(MemoryFiles, FailOnceWithoutWriting)
{
    MemoryFiles files;
    files.FailNext();
    EXPECT_EQ(FailureOf([&] { files.Write(u"C:\\Temp\\x", "lost"); }), FailureCode::PathFileAccess);
    EXPECT_THAT(files.Contents(), IsEmpty());
    files.Write(u"C:\\Temp\\x", "kept");
    EXPECT_EQ(files.Read(u"C:\\Temp\\x"), "kept");
}

TEST(MemoryFiles, FailOnceAtAReadEvenOfAMissingFile)
{
    MemoryFiles files;
    files.FailNext();
    EXPECT_EQ(FailureOf([&] { (void)files.Read(u"C:\\Temp\\x"); }), FailureCode::PathFileAccess);
    EXPECT_EQ(FailureOf([&] { (void)files.Read(u"C:\\Temp\\x"); }), FailureCode::FileNotFound);
}

TEST(MemoryFiles, FailAsOftenAsTheyWereTold)
{
    MemoryFiles files;
    files.FailNext();
    files.FailNext();
    EXPECT_EQ(FailureOf([&] { files.Write(u"C:\\Temp\\x", ""); }), FailureCode::PathFileAccess);
    EXPECT_EQ(FailureOf([&] { files.Write(u"C:\\Temp\\x", ""); }), FailureCode::PathFileAccess);
    EXPECT_EQ(FailureOf([&] { files.Write(u"C:\\Temp\\x", ""); }), std::nullopt);
}

} // namespace
} // namespace rulemesh
