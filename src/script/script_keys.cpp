#include "script/script_keys.h"

namespace rulemesh {

void MoveByTabKey(std::int16_t& KeyCode, std::int16_t Shift, View& ahead, View& back)
{
    constexpr std::int16_t TabKey = 9;
    constexpr std::int16_t ShiftMask = 1;
    constexpr std::int16_t ControlMask = 2;
    if (KeyCode != TabKey || Shift == 0)
        return;
    KeyCode = 0;
    if (Shift == ControlMask)
        ahead.SetFocus();
    else if (Shift == ShiftMask)
        back.SetFocus();
}

} // namespace rulemesh
