#pragma once

#include <QPoint>
#include <QWidget>
#include <QWindow>

#include "monkey/action.h"
#include "monkey/stage.h"

namespace rulemesh::monkey {

/// A place on the screen.
struct Place {
    QWidget* Widget = nullptr;
    QWindow* Window = nullptr;
    QPoint Position; // in the window
};

/// Where an action goes: to its target where that can be seen, else to one of the buttons and lines of the box in
/// front, or somewhere on the window.
[[nodiscard]] Place PlaceOf(const Action& action, MonkeyStage& stage);

/// What an action aims at, in words.
[[nodiscard]] QString TargetName(const Action& action);

} // namespace rulemesh::monkey
