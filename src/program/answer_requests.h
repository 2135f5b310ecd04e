#pragma once

#include <functional>
#include <string>

#include "drive/stage.h"

namespace rulemesh {

/// Where the requests come from, and what is done when one is not carried out.
struct RequestStream {
    std::string File;    ///< the requests; "" for standard input
    bool Strict = false; ///< ends behind the first request that was not done
};

/// What can be wrong with standard input and output before anything is read; told on standard error. Returns the exit
/// status, Done for nothing.
[[nodiscard]] int CheckStreams(const RequestStream& stream);

/// Answers each line of the requests on standard output until they end, by designers on stages of this maker, and
/// returns the exit status; what went wrong is told on standard error. A line that the input failed in the midst of is
/// not carried out.
int AnswerRequests(const RequestStream& stream, StageMaker maker);

} // namespace rulemesh
