#include "program/drive_command.h"

#include <cerrno>
#include <csignal>
#include <iostream>
#include <memory>
#include <system_error>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

#include "commands/exit_status.h"
#include "drive/session.h"
#include "program/display.h"

#ifdef RULEMESH_HAS_WINDOW
#include <QApplication>

#include "window/window_stage.h"
#endif

namespace rulemesh {

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

int End(ExitStatus status, const std::string& reason)
{
    std::cerr << "rulemesh: " << reason << '\n';
    return status;
}

std::string Reason(int error) { return std::generic_category().message(error); }

enum class Taken { Line, End, Failure };

// A read that fails in the middle of a line leaves nothing of it.
Taken TakeLine(std::FILE* input, std::string& line)
{
    line.clear();
    for (int character = std::getc(input); character != EOF; character = std::getc(input)) {
        if (character == '\n')
            return Taken::Line;
        line.push_back(static_cast<char>(character));
    }
    if (std::ferror(input) != 0)
        return Taken::Failure;
    return line.empty() ? Taken::End : Taken::Line;
}

bool PutLine(const std::string& line)
{
    return std::fwrite(line.data(), 1, line.size(), stdout) == line.size() && std::fputc('\n', stdout) != EOF &&
           std::fflush(stdout) == 0;
}

#ifndef _WIN32
// The next file that is opened would take the number of a closed stream, and our answers with it.
bool IsClosed(int descriptor) { return ::fcntl(descriptor, F_GETFD) == -1; }
#endif

// Where the requests come from, and what is done when one is not carried out.
struct Input {
    std::FILE* Requests;
    std::string Name;
    bool Strict;
};

int AnswerRequests(Session& session, const Input& input)
{
    session.OnWarning = [](const std::string& warning) { std::cerr << "rulemesh: " << warning << '\n'; };
    std::string line;
    for (;;) {
        switch (TakeLine(input.Requests, line)) {
        case Taken::End:
            return Done;
        case Taken::Failure:
            return End(CannotReadRequests, "can't read " + input.Name + ": " + Reason(errno));
        case Taken::Line:
            if (!PutLine(session.Answer(line)))
                return End(CannotWriteAnswer, "can't write an answer to standard output: " + Reason(errno));
            if (input.Strict && !session.WasDone())
                return NotDone;
        }
    }
}

int AnswerWithoutWindow(const Input& input)
{
    Session session;
    return AnswerRequests(session, input);
}

#ifdef RULEMESH_HAS_WINDOW
int AnswerInWindow(const Input& input)
{
    int count = 1;
    char program[] = "rulemesh";
    char* words[] = {program, nullptr};
    const QApplication application(count, words);
    Session session([] { return std::make_unique<WindowStage>(); });
    return AnswerRequests(session, input);
}
#endif

} // namespace

int RunDrive(const DriveOptions& options)
{
#ifdef SIGPIPE
    // A reader that went away is told like a full disk, not by a signal that ends us without a word.
    std::signal(SIGPIPE, SIG_IGN);
#endif
#ifndef _WIN32
    if (IsClosed(STDOUT_FILENO))
        return End(CannotWriteAnswer, "can't write answers: standard output is closed");
    if (options.File.empty() && IsClosed(STDIN_FILENO))
        return End(CannotReadRequests, "can't read requests: standard input is closed");
#endif
    if (options.Window && !CanMakeWindows())
        return End(NoDisplay, "there is no display to open a window on (DISPLAY is not set)");
    File opened(nullptr, &std::fclose);
    if (!options.File.empty()) {
        opened.reset(std::fopen(options.File.c_str(), "rb"));
        if (!opened)
            return End(CannotOpenFile, "can't open " + options.File + ": " + Reason(errno) +
                                           "; check the name, or leave it out to read standard input");
    }
    const Input input = {.Requests = opened ? opened.get() : stdin,
                         .Name = opened ? options.File : "standard input",
                         .Strict = options.Strict};
#ifdef RULEMESH_HAS_WINDOW
    if (options.Window)
        return AnswerInWindow(input);
#endif
    return AnswerWithoutWindow(input);
}

} // namespace rulemesh
