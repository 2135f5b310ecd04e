#include <algorithm>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drive/run_program.h"
#include "platform/temporary_folder.h"

namespace rulemesh {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

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

TEST(Program, TellsItsVersionAndItsUse)
{
    const Outcome version = RunProgram("--version");
    EXPECT_THAT(version.output, StartsWith("rulemesh "));
    EXPECT_EQ(version.status, 0);
    EXPECT_THAT(RunProgram("drive --help").output, HasSubstr("JSON"));
}

} // namespace
} // namespace rulemesh
