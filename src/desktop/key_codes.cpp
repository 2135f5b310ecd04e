#include "desktop/key_codes.h"

#include <array>
#include <utility>

namespace rulemesh {

namespace {

constexpr std::int16_t FirstFunctionKey = 112;
constexpr std::int16_t LastFunctionKey = FirstFunctionKey + 23;

// The first of two keys with one number is the one that stands for it.
constexpr std::array<std::pair<int, std::int16_t>, 21> NamedKeys = {
    {{Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},      {Qt::Key_Backtab, 9}, {Qt::Key_Return, 13}, {Qt::Key_Enter, 13},
     {Qt::Key_Shift, 16},    {Qt::Key_Control, 17}, {Qt::Key_Alt, 18},    {Qt::Key_Escape, 27}, {Qt::Key_PageUp, 33},
     {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},     {Qt::Key_Home, 36},   {Qt::Key_Left, 37},   {Qt::Key_Up, 38},
     {Qt::Key_Right, 39},    {Qt::Key_Down, 40},    {Qt::Key_Insert, 45}, {Qt::Key_Delete, 46}, {Qt::Key_Pause, 19},
     {Qt::Key_CapsLock, 20}}};

bool IsItsOwnNumber(int key)
{
    return (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9) || key == Qt::Key_Space;
}

} // namespace

std::int16_t KeyCodeOf(const QKeyEvent& event)
{
    const int key = event.key();
    if (IsItsOwnNumber(key))
        return static_cast<std::int16_t>(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return static_cast<std::int16_t>(FirstFunctionKey + key - Qt::Key_F1);
    for (const auto& [named, code] : NamedKeys) {
        if (named == key)
            return code;
    }
    return 0;
}

std::int16_t ShiftOf(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    int shift = 0;
    if ((modifiers & Qt::ShiftModifier) != 0 || event.key() == Qt::Key_Backtab)
        shift |= 1;
    if ((modifiers & Qt::ControlModifier) != 0)
        shift |= 2;
    if ((modifiers & Qt::AltModifier) != 0)
        shift |= 4;
    return static_cast<std::int16_t>(shift);
}

bool IsPrintable(QStringView text)
{
    if (text.isEmpty())
        return false;
    const bool pair = text.size() > 1 && text.front().isHighSurrogate() && text[1].isLowSurrogate();
    const char32_t character =
        pair ? QChar::surrogateToUcs4(text[0], text[1]) : static_cast<char32_t>(text.front().unicode());
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Other_PrivateUse:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return true;
    }
}

QString CharacterOf(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers held = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool thirdLevel = held == (Qt::ControlModifier | Qt::AltModifier);
    if (held != Qt::NoModifier && !thirdLevel)
        return {};
    if (IsPrintable(event.text()))
        return event.text();
    if (thirdLevel)
        return {};
    switch (event.key()) {
    case Qt::Key_Backspace:
        return QStringLiteral("\b");
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return QStringLiteral("\r");
    case Qt::Key_Escape:
        return QStringLiteral("\x1B");
    default:
        return {};
    }
}

std::optional<KeyStroke> KeyStrokeOf(std::int16_t KeyCode, std::int16_t Shift)
{
    if (Shift < 0 || Shift > 7)
        return {};
    KeyStroke stroke;
    stroke.Modifiers.setFlag(Qt::ShiftModifier, (Shift & 1) != 0);
    stroke.Modifiers.setFlag(Qt::ControlModifier, (Shift & 2) != 0);
    stroke.Modifiers.setFlag(Qt::AltModifier, (Shift & 4) != 0);
    if (IsItsOwnNumber(KeyCode)) {
        stroke.Key = KeyCode;
        return stroke;
    }
    if (KeyCode >= FirstFunctionKey && KeyCode <= LastFunctionKey) {
        stroke.Key = Qt::Key_F1 + KeyCode - FirstFunctionKey;
        return stroke;
    }
    for (const auto& [named, code] : NamedKeys) {
        if (code == KeyCode) {
            stroke.Key = named;
            return stroke;
        }
    }
    return {};
}

} // namespace rulemesh
