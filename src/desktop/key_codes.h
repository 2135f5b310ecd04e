#pragma once

#include <cstdint>
#include <optional>

#include <QKeyEvent>
#include <QString>

namespace rulemesh {

/// The key's number as the designer knows keys; 0 for one that it has no number for.
[[nodiscard]] std::int16_t KeyCodeOf(const QKeyEvent& event);

/// What is held down with the key: 1 for shift, 2 for control, 4 for alt.
[[nodiscard]] std::int16_t ShiftOf(const QKeyEvent& event);

/// What a character key types: one that can be printed, or the character of backspace, enter or escape. "" for every
/// other key: what is pressed with control, alt or meta alone types nothing, with control and alt together it may.
[[nodiscard]] QString CharacterOf(const QKeyEvent& event);

/// Whether a text begins with a character that can be printed.
[[nodiscard]] bool IsPrintable(QStringView text);

/// A key of the keyboard with what is held down.
struct KeyStroke {
    int Key = 0;
    Qt::KeyboardModifiers Modifiers = Qt::NoModifier;
};

/// The key that has these numbers, if a keyboard has one.
[[nodiscard]] std::optional<KeyStroke> KeyStrokeOf(std::int16_t KeyCode, std::int16_t Shift);

} // namespace rulemesh
