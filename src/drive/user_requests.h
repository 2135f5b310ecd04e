#pragma once

#include "drive/request.h"
#include "drive/stage.h"

namespace rulemesh {

/// What a user does. Each returns the request's value, null for none, and refuses what the user can't reach.
[[nodiscard]] Json Click(Stage& stage, const Request& request);
[[nodiscard]] Json ClickTab(Stage& stage, const Request& request);
[[nodiscard]] Json MoveFocus(Stage& stage, const Request& request);
[[nodiscard]] Json Leave(Stage& stage, const Request& request);
[[nodiscard]] Json Type(Stage& stage, const Request& request);
[[nodiscard]] Json PressKey(Stage& stage, const Request& request);
[[nodiscard]] Json PressCharacter(Stage& stage, const Request& request);
[[nodiscard]] Json Choose(Stage& stage, const Request& request);
[[nodiscard]] Json ClickRow(Stage& stage, const Request& request);
[[nodiscard]] Json Tick(Stage& stage, const Request& request);
[[nodiscard]] Json ClickHeader(Stage& stage, const Request& request);
[[nodiscard]] Json ClickCell(Stage& stage, const Request& request);
[[nodiscard]] Json Scroll(Stage& stage, const Request& request);

} // namespace rulemesh
