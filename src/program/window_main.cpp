// The program rulemesh-window: what `rulemesh open` and `rulemesh drive --window` become. It is not for people to call.

#include <cstring>
#include <iostream>
#include <optional>
#include <string>

#include <QApplication>
#include <QString>

#include "commands/exit_status.h"
#include "host/application.h"
#include "program/answer_requests.h"
#include "program/end_without_memory.h"
#include "program/window_program.h"
#include "window/window_stage.h"

namespace {

using namespace rulemesh;

int Open(char* program, const char* file)
{
    int count = 1;
    char* words[] = {program, nullptr};
    return RunApplication(count, words, *file == '\0' ? std::nullopt : std::optional(QString::fromStdString(file)));
}

int Drive(char* program, const RequestStream& stream)
{
    int count = 1;
    char* words[] = {program, nullptr};
    const QApplication application(count, words);
    return AnswerRequests(stream, [] { return std::make_unique<WindowStage>(); });
}

} // namespace

int main(int argc, char** argv)
{
    std::set_terminate(EndWithoutMemory);
    if (argc == 3 && std::strcmp(argv[1], WindowProgram::Open) == 0)
        return Open(argv[0], argv[2]);
    if (argc == 4 && std::strcmp(argv[1], WindowProgram::Drive) == 0)
        return Drive(argv[0], {.File = argv[3], .Strict = std::strcmp(argv[2], WindowProgram::Strict) == 0});
    std::cerr << "rulemesh-window is a part of rulemesh; call `rulemesh open` or `rulemesh drive --window`\n";
    return CannotOpenFile;
}
