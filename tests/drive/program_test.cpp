#include <algorithm>
#include <cstdio>
#include <string>

#include <sys/wait.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/temporary_folder.h"

namespace rulemesh {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

struct Outcome {
    int status = -1;
    std::string output;
};

/// Runs the program by a shell; what it says to the terminal comes with its output.
Outcome RunProgram(const std::string& arguments)
{
    const std::string command = std::string("'") + RULEMESH_PROGRAM + "' " + arguments + " 2>&1";
    std::FILE* pipe = ::popen(command.c_str(), "r");
    Outcome outcome;
    if (pipe == nullptr)
        return outcome;
    for (int character = std::fgetc(pipe); character != EOF; character = std::fgetc(pipe))
        outcome.output.push_back(static_cast<char>(character));
    const int status = ::pclose(pipe);
    if (WIFEXITED(status))
        outcome.status = WEXITSTATUS(status);
    return outcome;
}

constexpr const char* Requests = "{\"do\":\"let\",\"name\":\"Edit\",\"value\":true}\nnonsense\n{\"do\":\"focused\"}";
// One line for each request, the one that is none included.
void ExpectAnswers(const Outcome& outcome)
{
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, StartsWith("{\"ok\":true,\"happened\":[]}\n"));
    EXPECT_THAT(outcome.output, HasSubstr("\"refused\":"));
    EXPECT_THAT(outcome.output, EndsWith("\n{\"ok\":true,\"value\":null,\"happened\":[]}\n"));
    EXPECT_EQ(std::count(outcome.output.begin(), outcome.output.end(), '\n'), 3);
}

TEST(Program, AnswersEachLineOfItsInput)
{
    const TemporaryFolder folder;
    Put(folder / "requests", Requests);
    ExpectAnswers(RunProgram("drive < '" + (folder / "requests").native() + "'"));
}

TEST(Program, ReadsTheRequestsFromAFile)
{
    const TemporaryFolder folder;
    Put(folder / "requests", Requests);
    ExpectAnswers(RunProgram("drive '" + (folder / "requests").native() + "' < /dev/null"));
}

TEST(Program, EndsWellOnAnEmptyInput)
{
    const Outcome outcome = RunProgram("drive < /dev/null");
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST(Program, SaysThatAFileCanNotBeOpened)
{
    const TemporaryFolder folder;
    const Outcome outcome = RunProgram("drive '" + (folder / "none").native() + "'");
    EXPECT_THAT(outcome.output, HasSubstr("none"));
    EXPECT_NE(outcome.status, 0);
}

TEST(Program, TellsItsVersionAndItsUse)
{
    const Outcome version = RunProgram("--version");
    EXPECT_THAT(version.output, StartsWith("rulemesh "));
    EXPECT_EQ(version.status, 0);
    EXPECT_THAT(RunProgram("drive --help").output, HasSubstr("JSON"));
    EXPECT_NE(RunProgram("").status, 0);
}

} // namespace
} // namespace rulemesh
