#pragma once

#include <cstdio>
#include <string>

#include <sys/wait.h>

namespace rulemesh {

struct Outcome {
    int status = -1;
    std::string output;
};

/// Runs a command of the shell in which $RULEMESH is the program; what goes to standard error comes with the output.
inline Outcome RunShell(const std::string& command)
{
    const std::string whole = std::string("RULEMESH='") + RULEMESH_PROGRAM + "'; exec 2>&1; " + command;
    std::FILE* pipe = ::popen(whole.c_str(), "r");
    Outcome outcome;
    if (pipe == nullptr)
        return outcome;
    for (int character = std::fgetc(pipe); character != EOF; character = std::fgetc(pipe))
        outcome.output.push_back(static_cast<char>(character));
    const int status = ::pclose(pipe);
    if (WIFEXITED(status))
        outcome.status = WEXITSTATUS(status);
    return outcome;
}

/// Runs the program with arguments as the shell reads them.
inline Outcome RunProgram(const std::string& arguments) { return RunShell("\"$RULEMESH\" " + arguments); }

} // namespace rulemesh
