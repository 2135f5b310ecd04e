#pragma once

#include <string>

#include <nlohmann/json.hpp>

/// A request in words: "The user clicks CmdGuess."
[[nodiscard]] std::string RequestInWords(const nlohmann::json& request);

/// What came of it, in indented lines: boxes, forms, events and files, then what was looked at.
[[nodiscard]] std::string AnswerInWords(const nlohmann::json& request, const nlohmann::json& answer);
