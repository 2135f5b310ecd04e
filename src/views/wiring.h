#pragma once

#include <cassert>
#include <functional>

#include "views/view.h"

namespace rulemesh {

/// One row of the table that hangs handlers on events: the view (or the form), its event, the name of the action by
/// which a user sets the event off, and the handler, which takes as many of the event's arguments as it wants.
class Wire {
public:
    template <typename Kind, typename Base, typename Signature, typename Owner, typename Declared, typename... Taken>
    Wire(Kind& view, Event<Signature> Base::*event, TextView action, Owner& owner, void (Declared::*handler)(Taken...))
        : hang_([&view, event, action, &owner, handler] {
              Event<Signature>& slot = view.*event;
              assert(!slot && "an event has one handler");
              slot.Action = action;
              slot = [&owner, handler](Taken... taken, auto&&... /*rest*/) { (owner.*handler)(taken...); };
          })
    {
    }

    /// Hangs the handler on the event. All that the row names must outlive the view.
    void Hang() const { hang_(); }

private:
    std::function<void()> hang_;
};

} // namespace rulemesh
