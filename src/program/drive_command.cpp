#include "program/drive_command.h"

#include "commands/exit_status.h"
#include "program/window_program.h"

namespace rulemesh {

int RunDrive(const DriveOptions& options, [[maybe_unused]] const char* program)
{
    if (const int status = CheckStreams(options.Requests); status != Done)
        return status;
#ifdef RULEMESH_HAS_WINDOW
    if (options.Window)
        return BecomeWindowProgram(program, {WindowProgram::Drive, options.Requests.Strict ? WindowProgram::Strict : "",
                                             options.Requests.File});
#endif
    return AnswerRequests(options.Requests, [] { return std::make_unique<WindowlessStage>(); });
}

} // namespace rulemesh
