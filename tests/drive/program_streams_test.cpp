#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drive/run_program.h"
#include "platform/temporary_folder.h"

// What `rulemesh drive` does when its requests can't be read or its answers can't be written.

namespace rulemesh {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr int NotDone = 1;
constexpr int CannotOpenFile = 2;
constexpr int CannotWriteAnswer = 3;
constexpr int CannotReadRequests = 4;

class ProgramStreams : public testing::Test {
protected:
    ProgramStreams() { Put(folder / "requests", "{\"do\":\"focused\"}\n{\"do\":\"focused\"}\n"); }

    [[nodiscard]] std::string Quoted(const char* name) const { return "'" + (folder / name).native() + "'"; }

    TemporaryFolder folder;
};

TEST_F(ProgramStreams, StrictEndsBehindTheFirstRequestThatWasNotDone)
{
    Put(folder / "requests", "{\"do\":\"focused\"}\n{\"do\":\"nonsense\",\"id\":2}\n{\"do\":\"focused\",\"id\":3}\n");
    const Outcome strict = RunProgram("drive --strict " + Quoted("requests"));
    EXPECT_EQ(strict.status, NotDone);
    EXPECT_THAT(strict.output, AllOf(HasSubstr("{\"id\":2,\"ok\":false,"), Not(HasSubstr("\"id\":3"))));
    const Outcome lenient = RunProgram("drive " + Quoted("requests"));
    EXPECT_EQ(lenient.status, 0);
    EXPECT_THAT(lenient.output, HasSubstr("{\"id\":3,\"ok\":true,"));
}

TEST_F(ProgramStreams, StrictEndsBehindAFailureToo)
{
    const Outcome outcome = RunShell("printf '{\"do\":\"get\",\"name\":\"MappingObjectXML\"}\n{\"do\":\"xml\"}\n' |"
                                     " \"$RULEMESH\" drive --strict");
    EXPECT_EQ(outcome.status, NotDone);
    EXPECT_THAT(outcome.output, AllOf(HasSubstr("\"failure\""), EndsWith("}\n"), Not(HasSubstr("\"value\""))));
}

TEST_F(ProgramStreams, StrictEndsWellWhereAllWasDone)
{
    const Outcome outcome = RunProgram("drive --strict " + Quoted("requests"));
    EXPECT_EQ(outcome.status, 0);
}

TEST_F(ProgramStreams, AFullDiskUnderTheAnswersIsTold)
{
    if (!std::filesystem::exists("/dev/full"))
        GTEST_SKIP() << "no /dev/full here";
    const Outcome outcome = RunProgram("drive " + Quoted("requests") + " > /dev/full");
    EXPECT_EQ(outcome.status, CannotWriteAnswer);
    EXPECT_EQ(outcome.output, "rulemesh: can't write an answer to standard output: No space left on device\n");
}

TEST_F(ProgramStreams, AReaderThatWentAwayIsToldAndNoSignalEndsTheProgram)
{
    const Outcome outcome = RunShell("yes '{\"do\":\"focused\"}' 2>/dev/null |"
                                     " { \"$RULEMESH\" drive 2>" +
                                     Quoted("said") + "; echo $? >" + Quoted("status") + "; } | head -n 1");
    EXPECT_EQ(outcome.output, "{\"ok\":true,\"value\":null,\"happened\":[]}\n");
    EXPECT_EQ(Contents(folder / "status"), std::to_string(CannotWriteAnswer) + "\n");
    EXPECT_EQ(Contents(folder / "said"), "rulemesh: can't write an answer to standard output: Broken pipe\n");
}

TEST_F(ProgramStreams, AClosedOutputIsTold)
{
    const Outcome outcome = RunProgram("drive " + Quoted("requests") + " >&-");
    EXPECT_EQ(outcome.status, CannotWriteAnswer);
    EXPECT_EQ(outcome.output, "rulemesh: can't write answers: standard output is closed\n");
}

TEST_F(ProgramStreams, AFolderInPlaceOfTheRequestsIsTold)
{
    const std::string name = folder.Path().native();
    const Outcome asArgument = RunProgram("drive '" + name + "'");
    EXPECT_EQ(asArgument.status, CannotReadRequests);
    EXPECT_EQ(asArgument.output, "rulemesh: can't read " + name + ": Is a directory\n");

    const Outcome asInput = RunProgram("drive < '" + name + "'");
    EXPECT_EQ(asInput.status, CannotReadRequests);
    EXPECT_EQ(asInput.output, "rulemesh: can't read standard input: Is a directory\n");
}

TEST_F(ProgramStreams, AReadThatFailsIsTold)
{
    // The first page of a process is mapped by nobody, so that reading it fails as a broken disk does.
    if (!std::filesystem::exists("/proc/self/mem"))
        GTEST_SKIP() << "no /proc/self/mem here";
    const Outcome asArgument = RunProgram("drive /proc/self/mem");
    EXPECT_EQ(asArgument.status, CannotReadRequests);
    EXPECT_EQ(asArgument.output, "rulemesh: can't read /proc/self/mem: Input/output error\n");

    const Outcome asInput = RunProgram("drive < /proc/self/mem");
    EXPECT_EQ(asInput.status, CannotReadRequests);
    EXPECT_EQ(asInput.output, "rulemesh: can't read standard input: Input/output error\n");
}

TEST_F(ProgramStreams, AClosedInputIsTold)
{
    const Outcome outcome = RunProgram("drive <&-");
    EXPECT_EQ(outcome.status, CannotReadRequests);
    EXPECT_EQ(outcome.output, "rulemesh: can't read requests: standard input is closed\n");
}

TEST_F(ProgramStreams, AFileThatIsMissingIsTold)
{
    const Outcome outcome = RunProgram("drive " + Quoted("none"));
    EXPECT_EQ(outcome.status, CannotOpenFile);
    EXPECT_THAT(outcome.output, AllOf(StartsWith("rulemesh: can't open "), HasSubstr("/none: No such file")));
}

TEST_F(ProgramStreams, ARootThatIsNotTheTargetTableIsAWarningBesideTheAnswers)
{
    Put(folder / "requests", "{\"do\":\"let\",\"name\":\"TargetTable\",\"value\":\"salor101\"}\n"
                             "{\"do\":\"let\",\"name\":\"MappingObjectXML\",\"value\":\"<salor102/>\"}\n"
                             "{\"do\":\"call\",\"name\":\"ShowControl\"}\n");
    const std::string run = "drive " + Quoted("requests");
    const Outcome answers = RunProgram(run + " 2>/dev/null");
    EXPECT_EQ(answers.output, "{\"ok\":true,\"happened\":[]}\n{\"ok\":true,\"happened\":[]}\n"
                              "{\"ok\":true,\"happened\":[]}\n");
    EXPECT_EQ(answers.status, 0);
    EXPECT_EQ(RunProgram(run + " 2>&1 >/dev/null").output,
              "rulemesh: nothing is shown, since the object's root is \"salor102\" and TargetTable is \"salor101\"\n");
}

TEST_F(ProgramStreams, ARootThatIsTheTargetTableIsNoWarning)
{
    Put(folder / "requests", "{\"do\":\"let\",\"name\":\"TargetTable\",\"value\":\"salor101\"}\n"
                             "{\"do\":\"call\",\"name\":\"ShowControl\"}\n"
                             "{\"do\":\"let\",\"name\":\"MappingObjectXML\",\"value\":\"<salor101/>\"}\n"
                             "{\"do\":\"call\",\"name\":\"ShowControl\"}\n");
    EXPECT_EQ(RunProgram("drive " + Quoted("requests") + " 2>&1 >/dev/null").output, "");
}

} // namespace
} // namespace rulemesh
