#pragma once

#include <cstdio>
#include <string>

namespace rulemesh {

class Session;

/// Answers each line of the input on standard output until it ends, and returns the exit status. A line that the input
/// failed in the midst of is not carried out.
int AnswerRequests(Session& session, std::FILE* requests, const std::string& nameOfRequests);

/// `rulemesh drive`: the requests come from the file, or from standard input when no name is given. Returns the exit
/// status; what went wrong is told on standard error.
int RunDrive(const std::string& file, bool window);

} // namespace rulemesh
