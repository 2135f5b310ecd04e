#include "files/safe_file.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

#include "files/file_error.h"
#include "files/leftovers.h"
#include "files/output_file.h"
#include "files/plain_file.h"

namespace rulemesh {

namespace {

constexpr mode_t OwnerAlone = 0600;
constexpr mode_t AsTheUserLikes = 0666; // less what the user's mask takes away

std::string ReasonOf(const std::system_error& error) { return error.code().message(); }

bool IsForbidden(const std::system_error& error)
{
    const int number = error.code().value();
    return number == EACCES || number == EPERM || number == EROFS || number == EBUSY;
}

// The file that links lead to, also where it is still to be made.
std::string FollowLinks(const std::string& path)
{
    constexpr int Most = 40;
    std::error_code error;
    std::filesystem::path file = std::filesystem::absolute(path, error);
    for (int link = 0; link < Most && std::filesystem::is_symlink(file, error); ++link)
        file = file.parent_path() / std::filesystem::read_symlink(file, error);
    return file.string();
}

// Nothing for a file that is still to be made.
std::optional<struct stat> StatusOf(const std::string& path)
{
    struct stat status = {};
    if (::lstat(path.c_str(), &status) == 0)
        return status;
    if (errno != ENOENT)
        throw std::system_error(errno, std::generic_category());
    return std::nullopt;
}

void CheckWritable(const std::string& path, const struct stat& status)
{
    if (!S_ISREG(status.st_mode))
        throw FileError(path + " is " + KindOf(status.st_mode) + ".");
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0)
        throw FileError(path + " is read-only (" + std::generic_category().message(errno) +
                        "). Allow writing to it, or save under another name.");
}

// A text on its way to its place. It goes again unless it arrives there.
class NewText {
public:
    NewText(FileCalls& calls, const std::string& file, mode_t mode) : calls_(calls)
    {
        constexpr int Most = 100;
        for (int number = 1; output_ == nullptr; ++number) {
            path_ = PathBeside(file, Beside::NewText, number);
            try {
                output_ = std::make_unique<OutputFile>(calls, path_, O_WRONLY | O_CREAT | O_EXCL, mode);
            } catch (const std::system_error& error) {
                if (error.code().value() != EEXIST || number == Most)
                    throw;
            }
        }
    }
    NewText(const NewText&) = delete;
    NewText& operator=(const NewText&) = delete;
    ~NewText()
    {
        output_.reset();
        if (!path_.empty())
            ::unlink(path_.c_str());
    }

    [[nodiscard]] OutputFile& Output() noexcept { return *output_; }

    void Arrive(const std::string& place)
    {
        output_->Sync();
        output_->Close();
        if (calls_.Rename(path_.c_str(), place.c_str()) != 0)
            throw std::system_error(errno, std::generic_category());
        path_.clear();
    }

private:
    FileCalls& calls_;
    std::string path_;
    std::unique_ptr<OutputFile> output_;
};

// False where the old file can't be replaced by another one that looks the same.
bool Replace(FileCalls& calls, const std::string& file, const std::optional<struct stat>& old, std::string_view bytes)
{
    try {
        NewText text(calls, file, old ? OwnerAlone : AsTheUserLikes);
        if (old && !text.Output().TakeAttributesOf(file, *old))
            return false;
        text.Output().Write(bytes);
        text.Arrive(file);
        return true;
    } catch (const std::system_error& error) {
        if (!old || !IsForbidden(error))
            throw;
        return false;
    }
}

std::string CopyOldText(FileCalls& calls, const std::string& file, std::string_view text)
{
    NewText copy(calls, file, OwnerAlone);
    copy.Output().Write(text);
    std::string place;
    for (int number = 1; place.empty() || StatusOf(place); ++number)
        place = PathBeside(file, Beside::OldText, number);
    copy.Arrive(place);
    SyncFolder(calls, FolderOf(file));
    return place;
}

std::string FolderOfUsersData()
{
    const char* const data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && *data == '/')
        return std::string(data) + "/rulemesh";
    const char* const home = std::getenv("HOME");
    return std::string(home == nullptr ? "" : home) + "/.local/share/rulemesh";
}

// A number for a text that hardly another one has (FNV-1a), in hexadecimal digits.
std::string Digest(const std::string& text)
{
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char byte : text)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
    std::string digits;
    for (int shift = 60; shift >= 0; shift -= 4)
        digits += "0123456789abcdef"[(hash >> shift) & 0xF];
    return digits;
}

// Where the copy of a file stands whose own folder can't be written.
std::string InUsersData(const std::string& file)
{
    return FolderOfUsersData() + "/copies/" + Digest(file) + '-' + NameOf(file);
}

std::string KeepOldText(FileCalls& calls, const std::string& file, std::string_view text)
{
    try {
        return CopyOldText(calls, file, text);
    } catch (const std::system_error& error) {
        if (!IsForbidden(error))
            throw;
    }
    const std::string elsewhere = InUsersData(file);
    std::error_code error; // what can't be made is told by the copy that can't be written there
    std::filesystem::create_directories(FolderOf(elsewhere), error);
    return CopyOldText(calls, elsewhere, text);
}

void Overwrite(FileCalls& calls, const std::string& file, std::string_view bytes)
{
    OutputFile output(calls, file, O_WRONLY, 0);
    output.Write(bytes);
    output.Truncate(bytes.size());
    output.Sync();
    output.Close();
}

void WriteInPlace(FileCalls& calls, const std::string& file, std::string_view bytes)
{
    const std::string old = ReadPlainFile(file);
    const std::string copy = KeepOldText(calls, file, old);
    try {
        Overwrite(calls, file, bytes);
    } catch (const std::system_error& error) {
        try {
            Overwrite(calls, file, old);
        } catch (const std::system_error&) {
            throw FileError(file + " can't be written: " + ReasonOf(error) +
                            ". What stood there can't be put back either. It stands whole in " + copy + ".");
        }
        ::unlink(copy.c_str());
        throw;
    }
    ::unlink(copy.c_str());
}

std::vector<std::string> OldTextsOf(const std::string& file)
{
    std::vector<std::string> texts = LeftBeside(file, Beside::OldText);
    for (std::string& text : LeftBeside(InUsersData(file), Beside::OldText))
        texts.push_back(std::move(text));
    return texts;
}

} // namespace

void WriteFileAtOnce(const std::string& path, std::string_view bytes, FileCalls& calls)
{
    const std::string file = FollowLinks(path);
    std::optional<struct stat> old;
    try {
        old = StatusOf(file);
        if (old)
            CheckWritable(file, *old);
        SweepBeside(file);
        const bool hasOneName = !old || old->st_nlink == 1;
        if (!hasOneName || !Replace(calls, file, old, bytes))
            WriteInPlace(calls, file, bytes);
    } catch (const std::system_error& error) {
        throw FileError(path + " can't be written: " + ReasonOf(error) +
                        (old ? ". What stood there still stands." : ". Nothing stands there now."));
    }
    try {
        SyncFolder(calls, FolderOf(file));
    } catch (const std::system_error& error) {
        throw FileError(path + " was written, but the system can't tell that it is safe on the disk: " +
                        ReasonOf(error) + ". Save it again, or in another folder.");
    }
    for (const std::string& copy : OldTextsOf(file))
        ::unlink(copy.c_str()); // the file is whole again
}

void SweepLeftovers(const std::string& path) { SweepBeside(FollowLinks(path)); }

std::string CopyOfCutShortSave(const std::string& path)
{
    const std::string file = FollowLinks(path);
    for (const std::string& copy : OldTextsOf(file)) {
        if (ReadPlainFile(copy) != ReadPlainFile(file))
            return copy;
        ::unlink(copy.c_str());
    }
    return {};
}

} // namespace rulemesh
