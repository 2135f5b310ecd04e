#pragma once

#include "program/answer_requests.h"

namespace rulemesh {

/// How `rulemesh drive` was asked to run.
struct DriveOptions {
    RequestStream Requests;
    bool Window = false;
};

/// `rulemesh drive`: answers the requests, in this process or in that of the window's program, and returns the exit
/// status. `program` is the name by which this program was called.
int RunDrive(const DriveOptions& options, const char* program);

} // namespace rulemesh
