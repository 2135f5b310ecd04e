#pragma once

#include <cstdint>
#include <vector>

#include "platform/platform.h"
#include "views/text_box.h"

namespace rulemesh {

/// Warns of every dump number above 0 that the scripts named before a save and don't name after it. When the user keeps
/// the number, it is written back over a renumbered statement of the script in the box, or added to it in a dummy line.
///
/// Lists of one length are taken for a renumbering in place: the old number at an index became the new one there.
void ReconcileDumps(std::vector<std::int16_t>& IntNewNumbers, const std::vector<std::int16_t>& IntOldNumbers,
                    SyntaxBox& txtMainQuery, Platform& platform);

} // namespace rulemesh
