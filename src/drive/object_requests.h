#pragma once

#include "drive/desk.h"

namespace rulemesh {

/// Opens an object from a file, as the application does, and saves it as one act. The text stays off the wire.
[[nodiscard]] Json LoadObject(Desk& desk, const Request& request);
[[nodiscard]] Json SaveObject(Desk& desk, const Request& request);

} // namespace rulemesh
