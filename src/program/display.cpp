#include "program/display.h"

#include <cstdlib>

namespace rulemesh {

namespace {

[[maybe_unused]] bool IsSet(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
}

} // namespace

bool HasDisplay()
{
#if defined(_WIN32) || defined(__APPLE__)
    return true;
#else
    return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY");
#endif
}

bool CanMakeWindows() { return HasDisplay() || IsSet("QT_QPA_PLATFORM"); }

} // namespace rulemesh
