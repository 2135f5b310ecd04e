#pragma once

#include <functional>

#include "monkey/action.h"
#include "monkey/place.h"
#include "monkey/stage.h"

namespace rulemesh::monkey {

/// Works a stage by raw input, as the window system delivers it: to the popup, the box or the window in front.
class Hands {
public:
    explicit Hands(MonkeyStage& stage) : stage_(stage) {}

    /// Does an action. `whenBlocked` is run with the box, form or menu that has come up and that the action waits for.
    void Do(const Action& action, const std::function<void(QWidget&)>& whenBlocked);

private:
    static void Activate(QWindow* window);
    void Perform(const Action& action);
    void PressKey(const Action& action);
    void Type(const QString& text);
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text);
    void Click(const Action& action, int times);
    void Drag(const Action& action);
    void Roll(const Action& action);
    void Compose(const Action& action);
    void Drop(const Action& action);
    void HostActs(const Action& action);

    MonkeyStage& stage_;
    std::function<void()> finishDrag_;
};

} // namespace rulemesh::monkey
