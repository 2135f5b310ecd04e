#include "program/window_program.h"

#include <cerrno>
#include <filesystem>
#include <iostream>
#include <system_error>

#include <unistd.h>

#include "commands/exit_status.h"
#include "program/display.h"

namespace rulemesh {

namespace {

constexpr char Name[] = "rulemesh-window";

// Where this program lies.
std::filesystem::path OwnFolder(const char* program)
{
    std::error_code error;
    const std::filesystem::path own = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::filesystem::absolute(program, error).parent_path() : own.parent_path();
}

// Beside this program in a build tree, in a folder of its own where it is installed.
std::filesystem::path Find(const char* program)
{
    const std::filesystem::path folder = OwnFolder(program);
    const std::filesystem::path installed = folder / RULEMESH_WINDOW_FOLDER / Name;
    std::error_code error;
    return std::filesystem::exists(installed, error) ? installed : folder / Name;
}

} // namespace

int BecomeWindowProgram(const char* program, const std::vector<std::string>& words)
{
    if (!CanMakeWindows()) {
        std::cerr << "rulemesh: there is no display to open a window on (DISPLAY is not set)\n";
        return NoDisplay;
    }
    const std::string path = Find(program).string();
    std::string name(program);
    std::vector<std::string> own(words);
    std::vector<char*> arguments = {name.data()};
    for (std::string& word : own)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    ::execv(path.c_str(), arguments.data());
    std::cerr << "rulemesh: can't start " << path << ", which opens windows: " << std::generic_category().message(errno)
              << '\n';
    return NoDisplay;
}

} // namespace rulemesh
