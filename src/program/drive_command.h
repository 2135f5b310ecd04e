#pragma once

#include <string>

namespace rulemesh {

/// How `rulemesh drive` was asked to run.
struct DriveOptions {
    std::string File; ///< the requests; "" for standard input
    bool Window = false;
    bool Strict = false; ///< ends behind the first request that was not done
};

/// `rulemesh drive`: answers each line of the requests on standard output until they end, and returns the exit status;
/// what went wrong is told on standard error. A line that the input failed in the midst of is not carried out.
int RunDrive(const DriveOptions& options);

} // namespace rulemesh
