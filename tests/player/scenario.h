#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace rulemesh::player {

/// One line of a scenario that is no comment.
struct Line {
    int number = 0; ///< from 1, as an editor shows it
    std::string text;
};

/// A request and the answer that is expected to it.
struct Exchange {
    Line request;
    Line answer; ///< without its arrow; "{}" where the scenario gives none
};

/// Answers one request line.
using Answerer = std::function<std::string(const std::string&)>;

/// The scenarios at or below a place: files that end in ".session", sorted.
[[nodiscard]] std::vector<std::filesystem::path> FindScenarios(const std::filesystem::path& top);

/// A line that begins with "-> " is the answer to the request above it; empty lines and those that begin with # are
/// comments. Throws std::runtime_error when the file can't be read, has no request, or an answer without one.
[[nodiscard]] std::vector<Exchange> LoadScenario(const std::filesystem::path& file);

/// Plays the requests up to the first answer that isn't as expected, and tells it; "" when all are.
/// `answered` is called behind each request.
[[nodiscard]] std::string Play(const std::vector<Exchange>& scenario, const Answerer& answer,
                               const std::function<void()>& answered);

} // namespace rulemesh::player
