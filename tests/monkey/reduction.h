#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace rulemesh::monkey {

/// Plays a list of actions afresh and tells what was found, nothing when all went well.
using Replay = std::function<std::optional<std::string>(const std::vector<int>& numbers)>;

/// The kind of a finding: its first sentence without what differs from run to run.
[[nodiscard]] std::string KindOf(const std::string& finding);

/// Leaves actions out for as long as the rest still leads to a finding of the same kind.
[[nodiscard]] std::vector<int> Reduce(std::vector<int> numbers, const std::string& kind, const Replay& replay);

} // namespace rulemesh::monkey
