#pragma once

#include <optional>

#include "script/control_events.h"
#include "shell/history.h"

namespace rulemesh {

/// The one place that knows, when an action has ended, whether the work changed by it. Everything that a user or a host
/// does is an action, with all that handlers, boxes, events and calls of the host do inside of it, also when a failure
/// ends it; whoever wants to hear of changes hangs here: the history, and then the host's WorkChanged.
class WorkWatch {
public:
    /// All must outlive the watch.
    WorkWatch(XmlDocument& document, DesignerViews& views, Moments& moments, History& history, ControlEvents& events);
    WorkWatch(const WorkWatch&) = delete;
    WorkWatch& operator=(const WorkWatch&) = delete;

private:
    struct Begun {
        Moment Before;
        Work WorkBefore;
    };

    void ActionBegins();
    void ActionEnds(const Action& action);

    XmlDocument& XmlDocument_;
    Moments& moments_;
    History& history_;
    ControlEvents& events_;
    std::optional<Begun> begun_; // while an action is running; none when there was no memory for it
};

} // namespace rulemesh
