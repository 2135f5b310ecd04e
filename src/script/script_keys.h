#pragma once

#include <cstdint>

#include "views/view.h"

namespace rulemesh {

/// The tab key in a script box: with control it moves the focus ahead, with shift back, with any other shift state it
/// is only lost; a plain tab is left to the box.
void MoveByTabKey(std::int16_t& KeyCode, std::int16_t Shift, View& ahead, View& back);

} // namespace rulemesh
