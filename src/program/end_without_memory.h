#pragma once

namespace rulemesh {

/// For std::set_terminate: where memory ends outside of a request, or where nothing may be thrown, the program says so
/// and ends by itself.
[[noreturn]] void EndWithoutMemory();

} // namespace rulemesh
