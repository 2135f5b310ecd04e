#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <QByteArray>

namespace rulemesh::monkey {

/// What a process of the monkey is to do: the actions of a seed with these numbers, on an object.
struct Errand {
    QByteArray Object;
    std::uint64_t Seed = 1;
    std::vector<int> Numbers;
    std::string Except; // differences that match this regular expression are known already; "" for none
    bool Tell = false;  // writes each action to standard error before it is done
};

struct Finding {
    int Number = 0; // of the action behind which it was found
    std::string Sentence;
};

/// Does the actions one after the other. After each, what the widgets show must be what the views hold, and the toolkit
/// must not have warned. An action that takes longer than half a minute ends the process by an alarm. `progress` is a
/// file descriptor to which a dot is written behind each action, or -1. Ends at the first finding; the process is
/// good for nothing but its own end then, as boxes may still be waiting.
[[nodiscard]] std::optional<Finding> DoErrand(const Errand& errand, int progress);

} // namespace rulemesh::monkey
