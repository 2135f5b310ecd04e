#include "player/scenario.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "player/comparison.h"

namespace rulemesh::player {

namespace {

constexpr const char* RequestsFile = "requests.jsonl";
constexpr const char* AnswersFile = "answers.jsonl";

std::vector<Line> LoadLines(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw std::runtime_error("no file " + file.filename().string());
    std::vector<Line> lines;
    int number = 0;
    for (std::string text; std::getline(stream, text);) {
        ++number;
        if (!text.empty() && text.front() != '#')
            lines.push_back({number, text});
    }
    if (lines.empty())
        throw std::runtime_error(file.filename().string() + " says nothing");
    return lines;
}

nlohmann::json ParsedExpectation(const Line& line)
{
    try {
        return nlohmann::json::parse(line.text);
    } catch (const nlohmann::json::exception& error) {
        throw std::runtime_error(std::string(AnswersFile) + ":" + std::to_string(line.number) + ": " + error.what());
    }
}

} // namespace

std::vector<std::filesystem::path> FindScenarios(const std::filesystem::path& top)
{
    const auto holdsScenario = [](const std::filesystem::path& folder) {
        return std::filesystem::exists(folder / RequestsFile) || std::filesystem::exists(folder / AnswersFile);
    };
    std::vector<std::filesystem::path> folders;
    if (holdsScenario(top))
        folders.push_back(top);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(top))
        if (entry.is_directory() && holdsScenario(entry.path()))
            folders.push_back(entry.path());
    std::sort(folders.begin(), folders.end());
    return folders;
}

std::vector<Line> LoadRequests(const std::filesystem::path& folder) { return LoadLines(folder / RequestsFile); }

Scenario LoadScenario(const std::filesystem::path& folder)
{
    Scenario scenario{LoadRequests(folder), LoadLines(folder / AnswersFile)};
    if (scenario.requests.size() != scenario.answers.size())
        throw std::runtime_error(std::to_string(scenario.requests.size()) + " requests, but " +
                                 std::to_string(scenario.answers.size()) + " answers");
    return scenario;
}

std::string Play(const Scenario& scenario, const Answerer& answer, const std::function<void()>& answered)
{
    for (std::size_t at = 0; at < scenario.requests.size(); ++at) {
        const Line& request = scenario.requests[at];
        const nlohmann::json expected = ParsedExpectation(scenario.answers[at]);
        const nlohmann::json actual = nlohmann::json::parse(answer(request.text), nullptr, false);
        answered();
        const std::string place = "request " + std::to_string(at + 1) + " (" + RequestsFile + ":" +
                                  std::to_string(request.number) + ") " + Shortened(request.text);
        try {
            if (const std::string difference = DifferenceOfAnswer(expected, actual); !difference.empty())
                return place + "\n    " + difference;
        } catch (const std::runtime_error& error) {
            return place + "\n    the expected answer is malformed: " + error.what();
        }
    }
    return "";
}

} // namespace rulemesh::player
