#include "platform/process_launcher.h"

#include <csignal>
#include <filesystem>
#include <string>

#include <sys/time.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "base/failure_of.h"
#include "platform/temporary_folder.h"

namespace rulemesh {
namespace {

namespace fs = std::filesystem;

void PutProgram(const fs::path& path, const std::string& lines)
{
    Put(path, "#!/bin/sh\n" + lines);
    fs::permissions(path, fs::perms::owner_all);
}

// An editor that notes its arguments, each closed by a bar.
class RunAndWaitTest : public testing::Test {
protected:
    RunAndWaitTest()
    {
        PutProgram(Editor(), "for word in \"$@\"; do printf '%s|' \"$word\"; done > '" + Notes().native() + "'\n");
    }

    [[nodiscard]] fs::path Editor() const { return folder_ / "editor"; }
    [[nodiscard]] fs::path Notes() const { return folder_ / "notes"; }

    [[nodiscard]] std::string ArgumentsOf(TextView words, TextView path) const
    {
        fs::remove(Notes());
        EXPECT_EQ(RunAndWait(TextOf(Editor()) + Text(words), path), 0);
        return Contents(Notes());
    }

    TemporaryFolder folder_;
};

TEST_F(RunAndWaitTest, SplitsTheEditorIntoWordsAndAddsThePath)
{
    struct Case {
        TextView words;
        std::string_view expected;
    };
    const Case cases[] = {
        {u"", "/p|"},
        {u"   ", "/p|"},
        {u" -s -w", "-s|-w|/p|"},
        {u"\t-s \t  -w\t", "-s|-w|/p|"},
        {u" \"two words\" x", "two words|x|/p|"},
        {u" \"tab\there\"", "tab\there|/p|"},
        {u" --title=\"two words\"x", "--title=two wordsx|/p|"},
        {u" a\"\"b", "ab|/p|"},
        {u" \"\" x", "|x|/p|"},
        {u" \"never closed x", "never closed x|/p|"},
        {u" 'a b'", "'a|b'|/p|"},
        {u" a\\ b", "a\\|b|/p|"},
        {u" \u00E4", "\xC3\xA4|/p|"},
    };
    for (const auto& [words, expected] : cases)
        EXPECT_EQ(ArgumentsOf(words, u"/p"), expected) << ToUtf8(words);
}

TEST_F(RunAndWaitTest, HandsThePathOverAsOneArgument)
{
    for (const TextView path : {u"/tmp/tgt1    Rule.bc", u"/a \"quoted\" b", u"/a\tb", u"/it's", u"/$(id) `id` $HOME",
                                u"/a;touch b", u"/*", u"/back\\slash", u"/t\u00E4rget", u"", u" "})
        EXPECT_EQ(ArgumentsOf(u" -s", path), "-s|" + ToUtf8(path) + "|") << ToUtf8(path);
}

TEST_F(RunAndWaitTest, RunsNoShell)
{
    EXPECT_EQ(ArgumentsOf(u" $HOME ; exit 3 && * > x | y", u"/p"), "$HOME|;|exit|3|&&|*|>|x|||y|/p|");
    EXPECT_FALSE(fs::exists("x"));
}

TEST_F(RunAndWaitTest, RunsAProgramWithBlanksInItsName)
{
    PutProgram(folder_ / "my editor", "exit 9\n");
    EXPECT_EQ(RunAndWait(u"\"" + TextOf(folder_ / "my editor") + u"\" -s", u"/p"), 9);
}

TEST_F(RunAndWaitTest, FindsTheProgramOnThePath)
{
    PutProgram(folder_ / "rulemesh-test-editor", "exit 4\n");
    const Environment path("PATH", "/nowhere:" + folder_.Path().native());
    EXPECT_EQ(RunAndWait(u"  rulemesh-test-editor", u"/p"), 4);
}

TEST_F(RunAndWaitTest, ReturnsTheExitStatus)
{
    struct Case {
        TextView editor;
        int expected;
    };
    const Case cases[] = {
        {u"true", 0},
        {u"false", 1},
        {u"sh -c \"exit 7\"", 7},
        {u"sh -c \"exit 255\"", 255},
        {u"sh -c \"kill -KILL $$\"", 137},
        {u"sh -c \"kill -TERM $$\"", 143},
    };
    for (const auto& [editor, expected] : cases)
        EXPECT_EQ(RunAndWait(editor, u"/p"), expected) << ToUtf8(editor);
}

TEST_F(RunAndWaitTest, WaitsForTheEnd)
{
    PutProgram(folder_ / "slow", "sleep 0.2\nprintf edited > \"$1\"\n");
    EXPECT_EQ(RunAndWait(TextOf(folder_ / "slow"), TextOf(folder_ / "x.bc")), 0);
    EXPECT_EQ(Contents(folder_ / "x.bc"), "edited");
}

TEST_F(RunAndWaitTest, WaitsOnWhenASignalComesBetween)
{
    static volatile std::sig_atomic_t alarms = 0;
    struct sigaction count = {};
    count.sa_handler = [](int) { alarms = alarms + 1; };
    struct sigaction previous = {};
    ASSERT_EQ(::sigaction(SIGALRM, &count, &previous), 0);
    const itimerval every{{0, 20'000}, {0, 20'000}};
    ::setitimer(ITIMER_REAL, &every, nullptr);

    const int status = RunAndWait(u"sh -c \"sleep 0.2; exit 3\"", u"/p");

    const itimerval never{};
    ::setitimer(ITIMER_REAL, &never, nullptr);
    ::sigaction(SIGALRM, &previous, nullptr);
    EXPECT_EQ(status, 3);
    EXPECT_GT(alarms, 0);
}

TEST_F(RunAndWaitTest, RaisesFileNotFoundWithoutAProgram)
{
    for (const TextView editor : {u"", u" ", u" \t ", u"\"\"", u" \"\" -s"})
        EXPECT_EQ(FailureOf([&] { (void)RunAndWait(editor, u"/p"); }), FailureCode::FileNotFound) << ToUtf8(editor);
}

TEST_F(RunAndWaitTest, RaisesFileNotFoundWhenTheProgramCannotBeStarted)
{
    Put(folder_ / "no-program", "#!/bin/sh\nexit 0\n");
    Put(folder_ / "no-format", "exit 0\n");
    fs::permissions(folder_ / "no-format", fs::perms::owner_all);
    for (const Text& editor :
         {Text(u"rulemesh-no-such-editor"), Text(u"/no/such/editor -s"), TextOf(folder_ / "no-program"),
          TextOf(folder_ / "no-format"), TextOf(folder_.Path()), TextOf(Editor()) + Text(1, u'\0') + u"x"})
        EXPECT_EQ(FailureOf([&] { (void)RunAndWait(editor, u"/p"); }), FailureCode::FileNotFound) << ToUtf8(editor);
}

TEST_F(RunAndWaitTest, RaisesFileNotFoundForAPathThatWouldBeCutShort)
{
    const Text path = Text(u"/p") + Text(1, u'\0') + u"/q";
    EXPECT_EQ(FailureOf([&] { (void)RunAndWait(TextOf(Editor()), path); }), FailureCode::FileNotFound);
    EXPECT_FALSE(fs::exists(Notes()));
}

TEST_F(RunAndWaitTest, RaisesWhenTheHostHasTheStatusThrownAway)
{
    const auto previous = std::signal(SIGCHLD, SIG_IGN);
    const auto failure = FailureOf([] { (void)RunAndWait(u"true", u"/p"); });
    std::signal(SIGCHLD, previous);
    EXPECT_EQ(failure, FailureCode::InvalidProcedureCall);
}

class FallbackEditorTest : public testing::Test {
protected:
    void Install(std::string_view program) const { PutProgram(folder_ / program, "exit 0\n"); }

    TemporaryFolder folder_;
    Environment path_{"PATH", folder_.Path().native()};
};

TEST_F(FallbackEditorTest, IsTheFirstThatIsInstalled)
{
    struct Case {
        std::string_view installed;
        TextView expected;
    };
    const Case fromTheLast[] = {
        {"unknown-editor", u""}, {"xterm", u"xterm -e vi "}, {"mousepad", u"mousepad "},
        {"kate", u"kate -b "},   {"gedit", u"gedit -s -w "}, {"gnome-text-editor", u"gnome-text-editor -s "},
    };
    EXPECT_EQ(FallbackEditor(), u"");
    for (const auto& [installed, expected] : fromTheLast) {
        Install(installed);
        EXPECT_EQ(FallbackEditor(), expected);
    }
}

TEST_F(FallbackEditorTest, PassesOverWhatIsNoProgram)
{
    Install("xterm");
    fs::create_directory(folder_ / "kate");
    Put(folder_ / "gedit", "");
    EXPECT_EQ(FallbackEditor(), u"xterm -e vi ");
}

TEST_F(FallbackEditorTest, LooksInEveryFolderOfThePath)
{
    Install("kate");
    for (const std::string& path : {"/nowhere:" + folder_.Path().native(), folder_.Path().native() + ":/nowhere",
                                    "/nowhere::" + folder_.Path().native()}) {
        const Environment several("PATH", path);
        EXPECT_EQ(FallbackEditor(), u"kate -b ") << path;
    }
}

TEST_F(FallbackEditorTest, CanBeStarted)
{
    Install("mousepad");
    EXPECT_EQ(RunAndWait(FallbackEditor() + u" ", u"/p"), 0);
}

} // namespace
} // namespace rulemesh
