#include "commands/check_command.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/exit_status.h"
#include "drive/json_text.h"

namespace rulemesh {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* Clean =
    R"(<tgtab001><SRCTBL/><PREC/><TARTAB><TGTAB001><A No="1"/></TGTAB001></TARTAB></tgtab001>)";

// A note: the dump of the functions has no rule for its only field.
constexpr const char* WithNote =
    R"(<tgtab001><PREC/><FUNCTIONS>dump 7 </FUNCTIONS><TARTAB><TGTAB001><A No="1"/></TGTAB001></TARTAB></tgtab001>)";
constexpr const char* WithWarning = R"(<tgtab001><PREC/><FUNCTIONS>x
dump y</FUNCTIONS><TARTAB><TGTAB001><A No="1"/></TGTAB001></TARTAB></tgtab001>)";
constexpr const char* WithError = R"(<tgtab001><PREC/><TARTAB><TGTAB001><A No="2"/></TGTAB001></TARTAB></tgtab001>)";

class CheckCommandTest : public testing::Test {
protected:
    CheckCommandTest() { std::filesystem::create_directories(folder_); }
    ~CheckCommandTest() override { std::filesystem::remove_all(folder_); }

    /// The name of a file with that text.
    std::string File(const std::string& name, const std::string& text)
    {
        const std::string path = (folder_ / name).string();
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }

    int Run(const CheckOptions& options)
    {
        output_.str({});
        errors_.str({});
        return RunCheck(options, output_, errors_);
    }

    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() /
        ("rulemesh-check-" + std::to_string(testing::UnitTest::GetInstance()->random_seed()) +
         testing::UnitTest::GetInstance()->current_test_info()->name());
    std::ostringstream output_;
    std::ostringstream errors_;
};

TEST_F(CheckCommandTest, SaysNothingOfAnObjectThatIsWhole)
{
    EXPECT_EQ(Run({.Files = {File("clean.xml", Clean)}}), Done);
    EXPECT_THAT(output_.str(), IsEmpty());
    EXPECT_THAT(errors_.str(), IsEmpty());
}

TEST_F(CheckCommandTest, TellsAFindingInALineWithFilePlaceAndKind)
{
    const std::string file = File("note.xml", WithNote);
    EXPECT_EQ(Run({.Files = {file}}), Done);
    EXPECT_THAT(output_.str(), StartsWith(file + ": dump 7 tgtab001.a: note: "));
    EXPECT_THAT(output_.str(), HasSubstr(" [no-rule]\n"));
}

TEST_F(CheckCommandTest, TellsTheLineOfAScript)
{
    EXPECT_EQ(Run({.Files = {File("warning.xml", WithWarning)}}), Done);
    EXPECT_THAT(output_.str(), HasSubstr(": functions line 2: warning: "));
}

TEST_F(CheckCommandTest, EndsByTheSeverityThatIsAskedFor)
{
    using Severity = Finding::Severity;
    struct Case {
        const char* Object;
        int AtError, AtWarning, AtNote;
    };
    for (const Case& given : {Case{Clean, Done, Done, Done}, Case{WithNote, Done, Done, NotDone},
                              Case{WithWarning, Done, NotDone, NotDone}, Case{WithError, NotDone, NotDone, NotDone}}) {
        const std::string file = File("object.xml", given.Object);
        EXPECT_EQ(Run({.Files = {file}}), given.AtError) << given.Object;
        EXPECT_EQ(Run({.Files = {file}, .Fails = Severity::Warning}), given.AtWarning) << given.Object;
        EXPECT_EQ(Run({.Files = {file}, .Fails = Severity::Note}), given.AtNote) << given.Object;
    }
}

TEST_F(CheckCommandTest, WritesJson)
{
    const std::string file = File("note.xml", WithNote);
    EXPECT_EQ(Run({.Files = {file, File("clean.xml", Clean)}, .As = CheckOptions::Format::Json}), Done);
    const Json list = Json::parse(output_.str());
    ASSERT_EQ(list.size(), 1U);
    Json first = list[0];
    EXPECT_FALSE(first["text"].get<std::string>().empty());
    first.erase("text");
    EXPECT_EQ(first, Json({{"file", file},
                           {"kind", "no-rule"},
                           {"severity", "note"},
                           {"dump", 7},
                           {"table", "tgtab001"},
                           {"field", "a"},
                           {"line", 0}}));
    EXPECT_EQ(Run({.Files = {File("clean.xml", Clean)}, .As = CheckOptions::Format::Json}), Done);
    EXPECT_EQ(output_.str(), "[]\n");
}

TEST_F(CheckCommandTest, WritesCsv)
{
    const std::string file = File("note.xml", WithNote);
    EXPECT_EQ(Run({.Files = {file}, .As = CheckOptions::Format::Csv}), Done);
    EXPECT_THAT(output_.str(), StartsWith("file,kind,severity,dump,table,field,line,text\r\n" + file +
                                          ",no-rule,note,7,tgtab001,a,0,"));
}

TEST_F(CheckCommandTest, TellsAFileThatCannotBeReadAndChecksTheOthers)
{
    const std::string missing = (folder_ / "missing.xml").string();
    EXPECT_EQ(Run({.Files = {missing, File("error.xml", WithError)}}), CannotOpenFile);
    EXPECT_THAT(errors_.str(), HasSubstr(missing));
    EXPECT_THAT(output_.str(), HasSubstr("[numbering]"));
}

TEST_F(CheckCommandTest, RefusesWhatIsNoMappingObject)
{
    for (const char* text : {"", "text", "<tgtab001><PREC></tgtab001>", "<other/>", "<tgtab001/>"}) {
        EXPECT_EQ(Run({.Files = {File("bad.xml", text)}}), CannotOpenFile) << text;
        const std::string told = errors_.str();
        EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1) << told;
        EXPECT_THAT(output_.str(), IsEmpty());
    }
}

TEST_F(CheckCommandTest, SaysThatItsOutputCannotBeWritten)
{
    output_.setstate(std::ios::badbit);
    EXPECT_EQ(RunCheck({.Files = {File("note.xml", WithNote)}}, output_, errors_), CannotOpenFile);
    EXPECT_THAT(errors_.str(), HasSubstr("can't be written"));
}

} // namespace
} // namespace rulemesh
