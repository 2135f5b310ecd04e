#include "player/scenario.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include "player/comparison.h"

namespace rulemesh::player {

namespace {

constexpr std::string_view Arrow = "-> ";

nlohmann::json ParsedExpectation(const Line& line)
{
    try {
        return nlohmann::json::parse(line.text);
    } catch (const nlohmann::json::exception& error) {
        throw std::runtime_error("line " + std::to_string(line.number) + ": " + error.what());
    }
}

} // namespace

std::vector<std::filesystem::path> FindScenarios(const std::filesystem::path& top)
{
    if (!std::filesystem::is_directory(top))
        return {top};
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(top))
        if (entry.path().extension() == ".session")
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<Exchange> LoadScenario(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw std::runtime_error("it can't be read");
    std::vector<Exchange> exchanges;
    int number = 0;
    for (std::string text; std::getline(stream, text);) {
        ++number;
        if (text.empty() || text.front() == '#')
            continue;
        if (!text.starts_with(Arrow)) {
            exchanges.push_back({{number, text}, {number, "{}"}});
            continue;
        }
        if (exchanges.empty() || exchanges.back().answer.number != exchanges.back().request.number)
            throw std::runtime_error("line " + std::to_string(number) + ": an answer without a request");
        exchanges.back().answer = {number, text.substr(Arrow.size())};
    }
    if (exchanges.empty())
        throw std::runtime_error("it says nothing");
    return exchanges;
}

std::string Play(const std::vector<Exchange>& scenario, const Answerer& answer, const std::function<void()>& answered)
{
    for (const auto& [request, wanted] : scenario) {
        const nlohmann::json expected = ParsedExpectation(wanted);
        const nlohmann::json actual = nlohmann::json::parse(answer(request.text), nullptr, false);
        answered();
        const std::string place = "line " + std::to_string(request.number) + " " + Shortened(request.text);
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
