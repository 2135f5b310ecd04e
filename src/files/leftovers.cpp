#include "files/leftovers.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <filesystem>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace rulemesh {

namespace {

constexpr std::string_view Infix = ".rulemesh-";
constexpr std::size_t LongestStem = 200; // of the 255 bytes that a name may have

std::string StemOf(const std::string& name) { return name.substr(0, LongestStem).append(Infix); }

std::string_view EndingFor(Beside purpose) { return purpose == Beside::OldText ? ".old" : ""; }

// A whole number and nothing else; 0 for another text.
int NumberIn(std::string_view text)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? number : 0;
}

// The process in `PROCESS-NUMBER`; 0 for another text.
pid_t WriterIn(std::string_view mark)
{
    const std::size_t dash = mark.find('-');
    if (dash == std::string_view::npos || NumberIn(mark.substr(dash + 1)) <= 0)
        return 0;
    return std::max(NumberIn(mark.substr(0, dash)), 0);
}

bool Lives(pid_t process) { return process != ::getpid() && (::kill(process, 0) == 0 || errno != ESRCH); }

// A writer on another machine has no process here, but holds its lock here too.
bool IsLocked(const std::string& path)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool locked = ::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(file);
    return locked;
}

bool IsLeft(const std::string& path, std::string_view mark)
{
    const pid_t writer = WriterIn(mark);
    return writer != 0 && !Lives(writer) && !IsLocked(path);
}

// The files of a folder; none of one that can't be read.
std::vector<std::string> NamesIn(const std::string& folder)
{
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code unknown;
        if (entry->is_regular_file(unknown))
            names.push_back(entry->path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

std::string FolderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, std::max<std::size_t>(slash, 1));
}

std::string NameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

std::string PathBeside(const std::string& file, Beside purpose, int number)
{
    return FolderOf(file) + '/' + StemOf(NameOf(file)) + std::to_string(::getpid()) + '-' + std::to_string(number) +
           std::string(EndingFor(purpose));
}

std::vector<std::string> LeftBeside(const std::string& file, Beside purpose)
{
    const std::string folder = FolderOf(file);
    const std::string stem = StemOf(NameOf(file));
    const std::string_view ending = EndingFor(purpose);
    std::vector<std::string> left;
    for (const std::string& name : NamesIn(folder)) {
        if (name.size() <= stem.size() + ending.size() || !name.starts_with(stem) || !name.ends_with(ending))
            continue;
        const std::string path = folder + '/' + name;
        const std::size_t length = name.size() - stem.size() - ending.size();
        if (IsLeft(path, std::string_view(name).substr(stem.size(), length)))
            left.push_back(path);
    }
    return left;
}

void SweepBeside(const std::string& file)
{
    for (const std::string& path : LeftBeside(file, Beside::NewText))
        ::unlink(path.c_str());
}

void SweepFolder(const std::string& folder, std::string_view ending)
{
    for (const std::string& name : NamesIn(folder)) {
        const std::size_t infix = name.rfind(Infix);
        if (infix != std::string::npos && std::string_view(name).substr(0, infix).ends_with(ending))
            SweepBeside(folder + '/' + name.substr(0, infix));
    }
}

} // namespace rulemesh
