#pragma once

#include <cstdint>

#include <QString>

namespace rulemesh::monkey {

enum class Kind {
    Key,
    Type,
    Click,
    DoubleClick,
    Drag,
    Wheel,
    Hover,
    Resize,
    SwitchWindow, // another window of the program becomes the active one, or ours again
    Compose,      // an input method composes and commits a text
    Drop,         // a text is dropped from another program
    CloseBox,     // a box or form is closed from its frame
    HostReads,
    HostTakesFocus,
    HostShows,
    HostLocks,
    Reopen,
};

/// One input of the monkey. It names its target by numbers that mean something in any state, so that a list of actions
/// can be played again with some of them left out.
struct Action {
    Kind What = Kind::Key;
    unsigned Target = 0; // of the views in their order, or of what stands in a box
    double X = 0.5;      // the place on the target, as a share of its width and height
    double Y = 0.5;
    double X2 = 0.5; // where a drag ends, as shares of the window
    double Y2 = 0.5;
    int Amount = 0; // notches of a wheel, pixels of a short drag, a length
    Qt::MouseButton Button = Qt::LeftButton;
    Qt::KeyboardModifiers Modifiers;
    Qt::Key Key = Qt::Key_unknown;
    QString Text;
};

/// The action with a number in the random sequence of a seed; it depends on nothing else.
[[nodiscard]] Action ActionOf(std::uint64_t seed, int number);

/// Whether an action of HostLocks opens the object for changes.
[[nodiscard]] bool Unlocks(const Action& action);

[[nodiscard]] QString Describe(const Action& action);

} // namespace rulemesh::monkey
