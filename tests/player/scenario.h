#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace rulemesh::player {

/// One line of a scenario's file that is no comment.
struct Line {
    int number = 0; ///< from 1, as an editor shows it
    std::string text;
};

/// A folder with requests.jsonl and answers.jsonl, line by line; empty lines and those that begin with # are comments.
struct Scenario {
    std::vector<Line> requests;
    std::vector<Line> answers;
};

/// Answers one request line.
using Answerer = std::function<std::string(const std::string&)>;

/// All folders below the given one (itself included) that hold a scenario's file, sorted.
[[nodiscard]] std::vector<std::filesystem::path> FindScenarios(const std::filesystem::path& top);

/// Throws std::runtime_error when a file is missing or the numbers of requests and answers differ.
[[nodiscard]] Scenario LoadScenario(const std::filesystem::path& folder);

/// The requests alone, for a scenario whose answers are still to be written.
[[nodiscard]] std::vector<Line> LoadRequests(const std::filesystem::path& folder);

/// Plays the requests up to the first answer that isn't as expected, and tells it; "" when all are.
/// `answered` is called behind each request.
[[nodiscard]] std::string Play(const Scenario& scenario, const Answerer& answer, const std::function<void()>& answered);

} // namespace rulemesh::player
