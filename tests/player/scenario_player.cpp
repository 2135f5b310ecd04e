// Plays scenarios, one by one or all below a folder, and tells which answers are not as expected.
//
//   scenario_player [--window] [--jobs N] [--first] [--results FILE] PLACE...
//   scenario_player [--window] --answers FILE      prints what is answered to one scenario's requests
//
// With --window every designer has a window, and is worked by input events. With --first no scenario is begun behind
// the first one that fails.
//
// Some values outlive a control, so that every scenario has a process of its own, as it has with the real program.

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "drive/session.h"
#include "player/scenario.h"

#ifdef RULEMESH_HAS_WINDOW
#include <QApplication>

#include "window/window_stage.h"
#endif

namespace rulemesh::player {

namespace {

// Written by the process of a scenario behind each answer, so that a crash can be told with its request.
constexpr char Answered = '.';

struct Running {
    std::filesystem::path scenario;
    pid_t process = 0;
    int pipe = 0;
    std::string received;
};

struct Arguments {
    std::vector<std::filesystem::path> places;
    std::size_t jobs = std::max(1U, std::thread::hardware_concurrency());
    std::string results;
    bool printAnswers = false;
    bool endsAtFirst = false;
    bool window = false;
};

#ifdef RULEMESH_HAS_WINDOW
// One designer with the application that it needs.
class WindowSession {
public:
    [[nodiscard]] std::string Answer(const std::string& request) { return session_.Answer(request); }

private:
    int count_ = 1;
    char name_[16] = "scenario_player";
    char* words_[2] = {name_, nullptr};
    QApplication application_{count_, words_};
    Session session_{[] { return std::make_unique<WindowStage>(); }};
};
#endif

void Send(int pipe, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t sent = write(pipe, text.data(), text.size());
        if (sent <= 0)
            std::abort();
        text.remove_prefix(static_cast<std::size_t>(sent));
    }
}

// Runs a task with a session of the kind that is asked for.
template <typename Task> auto WithSession([[maybe_unused]] bool window, Task task)
{
#ifdef RULEMESH_HAS_WINDOW
    if (window) {
        WindowSession session;
        return task([&](const std::string& request) { return session.Answer(request); });
    }
#endif
    Session session;
    return task([&](const std::string& request) { return session.Answer(request); });
}

// A folder of the scenario's own as the current one, empty at first, so that it may load what it has saved.
class ScratchFolder {
public:
    ScratchFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "scenario-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no folder for its files");
        folder_ = name;
        std::filesystem::current_path(folder_);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder()
    {
        std::error_code error;
        std::filesystem::current_path("/", error);
        std::filesystem::remove_all(folder_, error);
    }

private:
    std::filesystem::path folder_;
};

std::string PlayFile(const std::filesystem::path& scenario, bool window, int progress)
{
    try {
        const std::vector<Exchange> exchanges = LoadScenario(scenario);
        const ScratchFolder folder;
        return WithSession(window, [&](const Answerer& answer) {
            return Play(exchanges, answer, [&] { Send(progress, {&Answered, 1}); });
        });
    } catch (const std::exception& error) {
        return std::string("can't be played: ") + error.what();
    }
}

Running Start(const std::filesystem::path& scenario, bool window)
{
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    std::cout.flush(); // or both processes would print what waits in it
    const pid_t process = fork();
    if (process < 0)
        throw std::runtime_error("no process");
    if (process == 0) {
        close(ends[0]);
        Send(ends[1], PlayFile(scenario, window, ends[1]));
        close(ends[1]);
        std::exit(0); // not _exit: leaks and coverage are told at a process's regular end
    }
    close(ends[1]);
    return {scenario, process, ends[0], {}};
}

// What the process told, "" if all went well.
std::string Finish(const Running& running)
{
    close(running.pipe);
    int status = 0;
    waitpid(running.process, &status, 0);
    const std::size_t answers = std::min(running.received.find_first_not_of(Answered), running.received.size());
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0)
        return running.received.substr(answers);
    return "the process died " +
           (WIFSIGNALED(status) ? "of signal " + std::to_string(WTERMSIG(status))
                                : "with status " + std::to_string(WEXITSTATUS(status))) +
           " behind " + std::to_string(answers) + " answers";
}

// Reads what has come; false at the end.
bool Receive(Running& running)
{
    char bytes[4096];
    const ssize_t count = read(running.pipe, bytes, sizeof bytes);
    if (count > 0)
        running.received.append(bytes, static_cast<std::size_t>(count));
    return count > 0;
}

// Plays all, some at a time, and returns the number of those that failed.
std::size_t PlayAll(const std::vector<std::filesystem::path>& scenarios, const Arguments& arguments)
{
    std::size_t failed = 0;
    std::size_t next = 0;
    std::vector<Running> running;
    while (next < scenarios.size() || !running.empty()) {
        while (running.size() < arguments.jobs && next < scenarios.size())
            running.push_back(Start(scenarios[next++], arguments.window));
        std::vector<pollfd> ready;
        for (const Running& one : running)
            ready.push_back({one.pipe, POLLIN, 0});
        poll(ready.data(), ready.size(), -1);
        for (std::size_t at = running.size(); at-- > 0;) {
            if (ready[at].revents == 0 || Receive(running[at]))
                continue;
            if (const std::string told = Finish(running[at]); !told.empty()) {
                ++failed;
                std::cout << "FAILED " << running[at].scenario.string() << "\n    " << told << '\n';
                if (arguments.endsAtFirst)
                    next = scenarios.size();
            }
            running.erase(running.begin() + static_cast<std::ptrdiff_t>(at));
        }
    }
    return failed;
}

int PrintAnswers(const std::filesystem::path& scenario, bool window)
{
    const std::vector<Exchange> exchanges = LoadScenario(scenario);
    const ScratchFolder folder;
    return WithSession(window, [&](const Answerer& answer) {
        for (const Exchange& exchange : exchanges)
            std::cout << exchange.request.text << "\n-> " << answer(exchange.request.text) << '\n';
        return 0;
    });
}

Arguments Parsed(const std::vector<std::string>& words)
{
    Arguments arguments;
    for (std::size_t at = 0; at < words.size(); ++at) {
        const bool hasValue = at + 1 < words.size();
        if (words[at] == "--answers")
            arguments.printAnswers = true;
        else if (words[at] == "--first")
            arguments.endsAtFirst = true;
#ifdef RULEMESH_HAS_WINDOW
        else if (words[at] == "--window")
            arguments.window = true;
#endif
        else if (words[at] == "--jobs" && hasValue)
            arguments.jobs = std::max(1UL, std::stoul(words[++at]));
        else if (words[at] == "--results" && hasValue)
            arguments.results = words[++at];
        else
            arguments.places.emplace_back(words[at]);
    }
    if (arguments.places.empty())
        throw std::runtime_error("name a scenario, or a folder with scenarios");
    return arguments;
}

int Run(const Arguments& arguments)
{
    if (arguments.printAnswers)
        return PrintAnswers(arguments.places.front(), arguments.window);

    std::vector<std::filesystem::path> scenarios;
    for (const std::filesystem::path& place : arguments.places)
        for (std::filesystem::path& scenario : FindScenarios(place))
            scenarios.push_back(std::move(scenario));
    const std::size_t failed = PlayAll(scenarios, arguments);
    if (failed == 0 || !arguments.endsAtFirst)
        std::cout << scenarios.size() - failed << " scenarios passed, " << failed << " failed\n";
    // In the form that the other test programs leave behind.
    if (!arguments.results.empty())
        std::ofstream(arguments.results) << "<testsuites tests=\"" << scenarios.size() << "\" failures=\"" << failed
                                         << "\" name=\"scenarios\"/>\n";
    return failed == 0 && !scenarios.empty() ? 0 : 1;
}

} // namespace

} // namespace rulemesh::player

int main(int count, char** words)
{
    try {
        return rulemesh::player::Run(rulemesh::player::Parsed({words + 1, words + count}));
    } catch (const std::exception& error) {
        std::cerr << "scenario_player: " << error.what() << '\n';
        return 2;
    }
}
