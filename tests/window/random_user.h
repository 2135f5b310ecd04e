#pragma once

#include <random>
#include <string>
#include <vector>

#include "drive/json_text.h"

namespace rulemesh {

/// Requests that a host and its user might make at random: every verb on every view, at the edges of rows, entries and
/// texts, and much that is refused.
class RandomUser {
public:
    explicit RandomUser(unsigned seed) : random_(seed) {}

    /// What opens an object, a read-only one, or nothing at all.
    [[nodiscard]] std::vector<Json> Begin();

    [[nodiscard]] Json Next();

private:
    [[nodiscard]] Json UsersRequest();
    [[nodiscard]] Json HostsRequest();
    [[nodiscard]] Json Reply();
    [[nodiscard]] Json FormSteps();
    [[nodiscard]] Json Property();
    [[nodiscard]] Json Call();
    [[nodiscard]] std::string View();
    [[nodiscard]] int Row();

    [[nodiscard]] int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }
    template <typename Value> [[nodiscard]] Value AnyOf(const std::vector<Value>& values)
    {
        return values[static_cast<std::size_t>(Below(static_cast<int>(values.size())))];
    }
    [[nodiscard]] std::string AnyText();

    std::mt19937 random_;
};

/// A whole session: the beginning, so many steps, each followed by a look at the focus, and a look at everything.
[[nodiscard]] std::vector<Json> RandomSession(unsigned seed, int steps);

/// How a session with a window answers otherwise than one without: "" when it doesn't. Both begin anew.
[[nodiscard]] std::string DifferenceWithAWindow(const std::vector<Json>& requests);

} // namespace rulemesh
