// The temporary folder lies in a place that everybody can write to, and a file's name is made from what a document
// says. So nothing is reached by its whole path: the folder is opened once without following a link, looked at through
// its descriptor, and files are opened relative to that descriptor. What was checked is then what is used, whatever
// somebody else does to the path meanwhile.

#include "platform/private_folder_files.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/failure.h"
#include "base/utf8.h"

namespace rulemesh {

namespace {

constexpr mode_t OwnerAlone = 0700;
constexpr mode_t OthersToo = 0077;
constexpr mode_t NewFile = 0600;

// Without O_NONBLOCK a pipe that stands in the file's place would hold the user's program for ever.
constexpr int Careful = O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

class Descriptor {
public:
    explicit Descriptor(int number) noexcept : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (number_ >= 0)
            ::close(number_);
    }

    [[nodiscard]] bool IsOpen() const noexcept { return number_ >= 0; }
    [[nodiscard]] int Number() const noexcept { return number_; }

    // Closes and tells whether everything that was written has arrived. EINTR leaves the descriptor closed.
    [[nodiscard]] bool Close() noexcept
    {
        const int number = number_;
        number_ = -1;
        return ::close(number) == 0 || errno == EINTR;
    }

private:
    int number_;
};

[[noreturn]] void Refuse(const std::string& path, const std::string& reason)
{
    throw Failure(FailureCode::PathFileAccess, FromUtf8("Path/File access error: " + path + ": " + reason));
}

[[noreturn]] void RefuseBySystem(const std::string& path) { Refuse(path, std::generic_category().message(errno)); }

// A folder whose name is no UTF-8 could not be told to an editor.
std::string TemporaryFolder()
{
    const char* chosen = std::getenv("TMPDIR");
    const bool usable = chosen != nullptr && chosen[0] == '/' && ToUtf8(FromUtf8(chosen)) == chosen;
    return usable ? chosen : "/tmp";
}

// An absolute path means the same to the editor, and after the host has changed its current folder.
Text AbsoluteFolder(TextView folder)
{
    std::error_code error;
    return FromUtf8(std::filesystem::absolute(ToUtf8(folder), error).native());
}

// One separator at the end; without a folder's own name between, O_NOFOLLOW would follow a link.
Text WithSeparator(Text folder)
{
    folder.erase(folder.find_last_not_of(u'/') + 1);
    return folder + u'/';
}

void MakeFolder(const std::string& folder)
{
    if (::mkdir(folder.c_str(), OwnerAlone) == 0 || errno == EEXIST)
        return;
    if (errno == ENOENT || errno == ENOTDIR)
        throw Failure(FailureCode::PathNotFound, FromUtf8("Path not found: " + folder));
    RefuseBySystem(folder);
}

struct stat StatusOf(const Descriptor& opened, const std::string& path)
{
    struct stat status = {};
    if (::fstat(opened.Number(), &status) != 0)
        RefuseBySystem(path);
    return status;
}

// The descriptor stays the caller's to close.
int OpenFolder(const std::string& folder)
{
    const int number = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (number < 0 && errno == ENOENT)
        throw Failure(FailureCode::PathNotFound, FromUtf8("Path not found: " + folder));
    if (number < 0)
        RefuseBySystem(folder);
    return number;
}

void CheckFolder(const Descriptor& opened, const std::string& folder)
{
    const struct stat status = StatusOf(opened, folder);
    if (status.st_uid != ::geteuid())
        Refuse(folder, "the folder belongs to another user");
    if ((status.st_mode & OthersToo) != 0)
        Refuse(folder, "the folder is open to other users");
}

void WriteAll(const Descriptor& file, std::string_view bytes, const std::string& path)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(file.Number(), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            RefuseBySystem(path);
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

std::string ReadAll(const Descriptor& file, std::size_t expectedSize, const std::string& path)
{
    std::string bytes;
    bytes.reserve(expectedSize);
    std::array<char, 65536> block{};
    for (;;) {
        const ssize_t count = ::read(file.Number(), block.data(), block.size());
        if (count == 0)
            return bytes;
        if (count < 0 && errno != EINTR)
            RefuseBySystem(path);
        if (count > 0)
            bytes.append(block.data(), static_cast<std::size_t>(count));
    }
}

} // namespace

PrivateFolderFiles::PrivateFolderFiles(CodePage page)
    : PrivateFolderFiles(FromUtf8(TemporaryFolder() + "/rulemesh-" + std::to_string(::geteuid())), page)
{
}

PrivateFolderFiles::PrivateFolderFiles(TextView StrFolder, CodePage page)
    : folder_(WithSeparator(AbsoluteFolder(StrFolder))), page_(page)
{
}

void PrivateFolderFiles::Write(TextView StrPath, std::string_view bytes)
{
    const std::string name = NameIn(StrPath);
    const std::string path = ToUtf8(StrPath);
    const std::string folder = FolderWithoutSeparator();
    MakeFolder(folder);
    const Descriptor opened(OpenFolder(folder));
    CheckFolder(opened, folder);

    Descriptor file(::openat(opened.Number(), name.c_str(), O_WRONLY | O_CREAT | Careful, NewFile));
    if (!file.IsOpen())
        RefuseBySystem(path);
    const struct stat status = StatusOf(file, path);
    if (!S_ISREG(status.st_mode) || status.st_nlink != 1 || status.st_uid != ::geteuid())
        Refuse(path, "not a plain file of the user");
    if (::ftruncate(file.Number(), 0) != 0)
        RefuseBySystem(path);
    WriteAll(file, bytes, path);
    if (!file.Close())
        RefuseBySystem(path);
}

std::string PrivateFolderFiles::Read(TextView StrPath)
{
    const std::string name = NameIn(StrPath);
    const std::string path = ToUtf8(StrPath);
    const std::string folder = FolderWithoutSeparator();
    const Descriptor opened(OpenFolder(folder));
    CheckFolder(opened, folder);

    const Descriptor file(::openat(opened.Number(), name.c_str(), O_RDONLY | Careful));
    if (!file.IsOpen() && errno == ENOENT)
        throw Failure(FailureCode::FileNotFound, FromUtf8("File not found: " + path));
    if (!file.IsOpen())
        RefuseBySystem(path);
    const struct stat status = StatusOf(file, path);
    if (!S_ISREG(status.st_mode))
        Refuse(path, "not a plain file");
    return ReadAll(file, static_cast<std::size_t>(status.st_size), path);
}

// Both separators are refused, so that a document that is harmless here is so on every system.
std::string PrivateFolderFiles::NameIn(TextView StrPath) const
{
    const bool inside = StrPath.starts_with(folder_);
    const TextView name = inside ? StrPath.substr(folder_.size()) : TextView();
    const bool harmless = name.find_first_of(TextView(u"/\\\0", 3)) == TextView::npos &&
                          name.find(u"..") == TextView::npos && name != u".";
    if (name.empty() || !harmless)
        Refuse(ToUtf8(StrPath), "not the name of a file in " + ToUtf8(folder_));
    return ToUtf8(name);
}

std::string PrivateFolderFiles::FolderWithoutSeparator() const
{
    return ToUtf8(TextView(folder_).substr(0, folder_.size() - 1));
}

} // namespace rulemesh
