#include "platform/process_launcher.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/failure.h"
#include "base/utf8.h"

extern char** environ; // NOLINT: POSIX leaves its declaration to the program

namespace rulemesh {

namespace {

// Each of these returns only when the file has been closed in it.
constexpr std::array<TextView, 5> KnownEditors{
    u"gnome-text-editor -s", u"gedit -s -w", u"kate -b", u"mousepad", u"xterm -e vi",
};

std::vector<std::string> WordsOf(TextView command)
{
    std::vector<Text> words;
    bool inWord = false;
    bool quoted = false;
    for (const char16_t character : command) {
        const bool separates = !quoted && (character == u' ' || character == u'\t');
        if (!separates && !inWord)
            words.emplace_back();
        inWord = !separates;
        if (character == u'"')
            quoted = !quoted;
        else if (inWord)
            words.back().push_back(character);
    }
    std::vector<std::string> utf8(words.size());
    std::transform(words.begin(), words.end(), utf8.begin(), [](const Text& word) { return ToUtf8(word); });
    return utf8;
}

[[noreturn]] void FailToStart(TextView StrEditor, const std::string& reason)
{
    throw Failure(FailureCode::FileNotFound, FromUtf8("Unable to start \"" + ToUtf8(StrEditor) + "\": " + reason));
}

// A NUL would cut the argument short and name another program or file.
bool HoldsNul(TextView text) noexcept { return text.find(u'\0') != TextView::npos; }

std::string ProgramFolders()
{
    if (const char* folders = std::getenv("PATH"))
        return folders;
    std::string folders(::confstr(_CS_PATH, nullptr, 0), '\0');
    ::confstr(_CS_PATH, folders.data(), folders.size());
    return folders.substr(0, folders.find('\0'));
}

bool IsProgram(const std::string& path)
{
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

bool IsInstalled(const std::string& program)
{
    const std::string folders = ProgramFolders();
    for (std::size_t from = 0; from <= folders.size();) {
        const std::size_t end = std::min(folders.find(':', from), folders.size());
        const std::string folder = end == from ? "." : folders.substr(from, end - from);
        if (IsProgram(folder + "/" + program))
            return true;
        from = end + 1;
    }
    return false;
}

} // namespace

int RunAndWait(TextView StrEditor, TextView StrPath)
{
    std::vector<std::string> words = WordsOf(StrEditor);
    if (words.empty() || words.front().empty())
        FailToStart(StrEditor, "no program is named");
    if (HoldsNul(StrEditor) || HoldsNul(StrPath))
        FailToStart(StrEditor, "a character that no command can hold");
    words.push_back(ToUtf8(StrPath));

    std::vector<char*> arguments(words.size() + 1, nullptr);
    std::transform(words.begin(), words.end(), arguments.begin(), [](std::string& word) { return word.data(); });
    pid_t child = 0;
    const int error = ::posix_spawnp(&child, arguments.front(), nullptr, nullptr, arguments.data(), environ);
    if (error != 0)
        FailToStart(StrEditor, std::generic_category().message(error));

    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        // Somebody else in the program has taken the status away, so nobody knows how the editor ended.
        if (errno != EINTR)
            throw Failure(FailureCode::InvalidProcedureCall, u"The exit status of the editor is lost");
    }
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

Text FallbackEditor()
{
    const auto installed = [](TextView command) { return IsInstalled(WordsOf(command).front()); };
    const auto editor = std::find_if(KnownEditors.begin(), KnownEditors.end(), installed);
    return editor == KnownEditors.end() ? Text() : Text(*editor) + u" ";
}

} // namespace rulemesh
