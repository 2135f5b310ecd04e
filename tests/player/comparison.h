#pragma once

#include <string>

#include <nlohmann/json.hpp>

namespace rulemesh::player {

/// What is wrong with an answer, or "" when it is as expected: the place as a JSON pointer, what was expected there and
/// what came.
///
/// Members that the expected answer leaves out mean: `ok` true, `happened` empty, no `failure`, no `refused`, any
/// `value`. A `refused` of true allows any reason. Objects compare by the members that the expected one names, arrays
/// and plain values exactly, and {"$xml": TEXT} compares as an XML tree.
/// Throws std::runtime_error when the expected answer itself is malformed.
[[nodiscard]] std::string DifferenceOfAnswer(const nlohmann::json& expected, const nlohmann::json& actual);

/// The text cut to what fits on a line.
[[nodiscard]] std::string Shortened(const std::string& text);

} // namespace rulemesh::player
