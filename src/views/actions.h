#pragma once

#include <functional>

#include "base/text.h"

namespace rulemesh {

class View;

/// One thing that a user or a host does, with everything that handlers, boxes, events and host calls do inside of it.
struct Action {
    enum class Kind {
        Step,       // may change the work
        Move,       // looks around: what it stores belongs to the step before it
        Typing,     // a step that goes on with the typing before it, when that went into the same box
        TypingAnew, // typing that begins a step
        Key,        // a move that lets typing go on, unless it moves anything
        Begin       // what stands behind it has nothing to do with what stood before
    };

    Kind What = Kind::Step;
    TextView Name = {};        // for a menu: "Guess"; of a text that lives as long as the program
    const View* Box = nullptr; // of typing, and of keys
};

/// Knows how deep the actions that are running stand in each other, and tells of the outermost one when it begins and
/// when it ends.
class Actions {
public:
    /// Neither may raise anything.
    std::function<void(const Action&)> Begins;
    std::function<void(const Action&)> Ends;

    /// How many actions are running, each inside of the one before; 0 for none.
    [[nodiscard]] int Depth() const noexcept { return depth_; }
    [[nodiscard]] bool Running() const noexcept { return depth_ > 0; }

private:
    friend class ActionScope;

    int depth_ = 0;
};

/// An action from its making to its end, also when a failure ends it.
class ActionScope {
public:
    ActionScope(Actions& actions, Action action) : actions_(actions), action_(action)
    {
        if (actions_.depth_++ == 0 && actions_.Begins)
            actions_.Begins(action_);
    }
    ActionScope(const ActionScope&) = delete;
    ActionScope& operator=(const ActionScope&) = delete;
    ~ActionScope()
    {
        if (--actions_.depth_ == 0 && actions_.Ends)
            actions_.Ends(action_);
    }

private:
    Actions& actions_;
    Action action_;
};

} // namespace rulemesh
