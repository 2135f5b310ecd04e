#include "program/answer_requests.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <iostream>
#include <memory>
#include <system_error>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

#include "commands/exit_status.h"
#include "drive/session.h"

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

struct Input {
    std::FILE* Requests;
    std::string Name;
    bool Strict;
};

int AnswerEach(Session& session, const Input& input)
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

} // namespace

int CheckStreams([[maybe_unused]] const RequestStream& stream)
{
#ifndef _WIN32
    if (IsClosed(STDOUT_FILENO))
        return End(CannotWriteAnswer, "can't write answers: standard output is closed");
    if (stream.File.empty() && IsClosed(STDIN_FILENO))
        return End(CannotReadRequests, "can't read requests: standard input is closed");
#endif
    return Done;
}

int AnswerRequests(const RequestStream& stream, StageMaker maker)
{
#ifdef SIGPIPE
    // A reader that went away is told like a full disk, not by a signal that ends us without a word.
    std::signal(SIGPIPE, SIG_IGN);
#endif
    File opened(nullptr, &std::fclose);
    if (!stream.File.empty()) {
        opened.reset(std::fopen(stream.File.c_str(), "rb"));
        if (!opened)
            return End(CannotOpenFile, "can't open " + stream.File + ": " + Reason(errno) +
                                           "; check the name, or leave it out to read standard input");
    }
    Session session(std::move(maker));
    return AnswerEach(session, {.Requests = opened ? opened.get() : stdin,
                                .Name = opened ? stream.File : "standard input",
                                .Strict = stream.Strict});
}

} // namespace rulemesh
