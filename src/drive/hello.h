#pragma once

#include <string>
#include <vector>

#include "drive/json_text.h"

namespace rulemesh {

/// The number of the protocol. It grows when a request that was answered is answered otherwise; what only comes on top
/// of it is told by the lists of names.
inline constexpr int ProtocolNumber = 1;

/// What a session offers by name.
struct Offer {
    std::vector<std::string> Verbs;
    std::vector<std::string> Members;
    std::vector<std::string> Views;
};

/// Who answers here: the program, its version, the protocol, and the offer.
[[nodiscard]] Json Introduction(const Offer& offer);

} // namespace rulemesh
