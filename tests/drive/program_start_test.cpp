#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drive/run_program.h"
#include "platform/temporary_folder.h"

// How the application is started: `rulemesh`, `rulemesh FILE`, `rulemesh open`.

namespace rulemesh {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// No display and a home of the test's own, until a command says otherwise.
class ProgramStart : public testing::Test {
protected:
    ProgramStart() { Put(folder / "object.xml", "<partn101><PREC/><SRCTAB/><TARTAB/></partn101>"); }

    /// Starts the program and waits until a line is true, 60 seconds at most; then ends it.
    [[nodiscard]] Outcome StartUntil(const std::string& command, const std::string& condition) const
    {
        return RunShell("export QT_QPA_PLATFORM=offscreen; " + command + " & program=$!; for wait in $(seq 600); do " +
                        condition +
                        " && echo 'as expected' && break; kill -0 $program || break; sleep 0.1; done;"
                        " kill $program; wait $program 2>/dev/null; true");
    }

    TemporaryFolder folder;
    Environment display{"DISPLAY"};
    Environment wayland{"WAYLAND_DISPLAY"};
    Environment qt{"QT_QPA_PLATFORM"};
    Environment home{"HOME", folder.Path().native()};
    Environment settings{"XDG_CONFIG_HOME", folder.Path().native()};
    Environment data{"XDG_DATA_HOME", folder.Path().native()};
    Environment temporary{"TMPDIR", folder.Path().native()};
};

// The application remembers what it opened.
TEST_F(ProgramStart, AFileAloneOpensIt)
{
    const std::string file = (folder / "object.xml").native();
    const Outcome outcome =
        StartUntil("\"$RULEMESH\" '" + file + "'", "grep -rqs object.xml '" + (folder / "rulemesh").native() + "'");
    EXPECT_THAT(outcome.output, HasSubstr("as expected"));
}

TEST_F(ProgramStart, AWordThatIsNeitherCommandNorFileIsNamed)
{
    const Outcome outcome = RunProgram("nosuch");
    EXPECT_EQ(outcome.output, "rulemesh: \"nosuch\" is no command and no file; see rulemesh --help\n");
    EXPECT_GE(outcome.status, 100);
    const Outcome before = RunProgram("nosuch drive </dev/null");
    EXPECT_EQ(before.output, outcome.output);
    EXPECT_EQ(before.status, outcome.status);
}

TEST_F(ProgramStart, WithoutWordsAndDisplayTheHelpIsShown)
{
    const Outcome outcome = RunProgram("");
    EXPECT_THAT(outcome.output, AllOf(StartsWith("rulemesh: there is no display to open the application on\n"),
                                      HasSubstr("Usage: rulemesh"), HasSubstr("drive"), HasSubstr("open")));
    EXPECT_GE(outcome.status, 100);
}

TEST_F(ProgramStart, WithoutWordsTheApplicationOpensOnADisplay)
{
    const Outcome outcome = RunShell("DISPLAY=:0 QT_QPA_PLATFORM=offscreen timeout 3 \"$RULEMESH\"");
    EXPECT_EQ(outcome.status, 124) << outcome.output; // still there when its time was up
}

TEST_F(ProgramStart, NothingOfTheWindowsToolkitIsLoadedWithoutAWindow)
{
    const Outcome outcome = RunShell("LD_TRACE_LOADED_OBJECTS=1 \"$RULEMESH\"");
    EXPECT_THAT(outcome.output, AllOf(HasSubstr("libstdc++"), Not(HasSubstr("Qt"))));
}

TEST_F(ProgramStart, RequestsAreAnsweredInAWindow)
{
    Put(folder / "requests", "{\"do\":\"focused\",\"id\":1}\n{\"do\":\"nonsense\"}\n{\"do\":\"xml\"}\n");
    const Outcome outcome = RunShell("QT_QPA_PLATFORM=offscreen \"$RULEMESH\" drive --window --strict '" +
                                     (folder / "requests").native() + "' 2>/dev/null");
    EXPECT_THAT(outcome.output,
                AllOf(HasSubstr("{\"id\":1,\"ok\":true"), HasSubstr("no verb"), Not(HasSubstr("value\":\"\""))));
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(ProgramStart, AMissingWindowProgramIsTold)
{
    const std::string lone = (folder / "rulemesh").native();
    const Outcome outcome =
        RunShell("cp \"$RULEMESH\" '" + lone + "' && QT_QPA_PLATFORM=offscreen '" + lone + "' open");
    EXPECT_THAT(outcome.output, AllOf(StartsWith("rulemesh: can't start "),
                                      HasSubstr("which opens windows: No such file or directory")));
    EXPECT_EQ(outcome.status, 6);
}

TEST_F(ProgramStart, WindowsWithoutADisplayAreRefused)
{
    for (const std::string& arguments : {"open '" + (folder / "object.xml").native() + "'",
                                         "'" + (folder / "object.xml").native() + "'", std::string("drive --window")}) {
        const Outcome outcome = RunProgram(arguments + " </dev/null");
        EXPECT_EQ(outcome.output, "rulemesh: there is no display to open a window on (DISPLAY is not set)\n");
        EXPECT_EQ(outcome.status, 6) << arguments;
    }
}

} // namespace
} // namespace rulemesh
