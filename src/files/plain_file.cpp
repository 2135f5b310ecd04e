#include "files/plain_file.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "files/file_error.h"

namespace rulemesh {

namespace {

[[noreturn]] void RefuseBySystem(const std::string& path, const char* what)
{
    throw FileError(path + " " + what + ": " + std::generic_category().message(errno) + ".");
}

std::string SizeForPeople(std::int64_t bytes)
{
    constexpr std::array units = {"bytes", "KiB", "MiB", "GiB", "TiB", "PiB"};
    auto size = static_cast<double>(bytes);
    std::size_t unit = 0;
    for (; size >= 1024 && unit + 1 < units.size(); ++unit)
        size /= 1024;
    std::array<char, 40> text = {};
    std::snprintf(text.data(), text.size(), unit == 0 ? "%.0f %s" : "%.2f %s", size, units[unit]);
    return text.data();
}

void CheckKind(const std::string& path, const struct stat& status)
{
    if (!S_ISREG(status.st_mode))
        throw FileError(path + " is " + KindOf(status.st_mode) + ".");
    if (status.st_size > LargestFile())
        throw FileError(path + " is too large: it has " + SizeForPeople(status.st_size) +
                        ", and this machine has memory for objects of up to " + SizeForPeople(LargestFile()) + ".");
}

// A file that is open for reading.
class InputFile {
public:
    explicit InputFile(const std::string& path)
        : number_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY))
    {
    }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile()
    {
        if (number_ >= 0)
            ::close(number_);
    }

    [[nodiscard]] int Number() const noexcept { return number_; }

private:
    int number_;
};

} // namespace

std::string KindOf(mode_t mode)
{
    if (S_ISDIR(mode))
        return "a folder, not a file";
    if (S_ISFIFO(mode))
        return "a pipe between programs, not a file";
    if (S_ISSOCK(mode))
        return "a socket between programs, not a file";
    if (S_ISCHR(mode) || S_ISBLK(mode))
        return "a device, not a file";
    return S_ISREG(mode) ? "a file" : "no file that holds a text";
}

std::int64_t LargestFile()
{
    constexpr std::int64_t TimesHeld = 16; // as bytes, texts, document, draft, and room for the work on them
    return std::int64_t{::sysconf(_SC_PHYS_PAGES)} * ::sysconf(_SC_PAGESIZE) / TimesHeld;
}

// Looked at by its name first, as opening some devices does something already, and once more when it is open.
std::string ReadPlainFile(const std::string& path)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        RefuseBySystem(path, "can't be opened");
    CheckKind(path, status);
    const InputFile file(path);
    if (file.Number() < 0 || ::fstat(file.Number(), &status) != 0)
        RefuseBySystem(path, "can't be opened");
    CheckKind(path, status);

    // One byte more than it has, so that the end shows at the first try.
    std::string bytes(static_cast<std::size_t>(status.st_size) + 1, '\0');
    std::size_t filled = 0;
    for (;;) {
        const ssize_t count = ::read(file.Number(), bytes.data() + filled, bytes.size() - filled);
        if (count == 0)
            break;
        if (count < 0 && errno != EINTR)
            RefuseBySystem(path, "can't be read");
        filled += count < 0 ? 0 : static_cast<std::size_t>(count);
        if (filled == bytes.size())
            bytes.resize(bytes.size() * 2); // it grows while it is read
    }
    bytes.resize(filled);
    return bytes;
}

} // namespace rulemesh
