#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "object/control_state.h"
#include "views/designer_views.h"

namespace rulemesh {

/// Everything beside the document that a step back puts back.
struct Moment {
    ViewTree::Moment Views;
    std::shared_ptr<const ControlState> State;

    /// The memory that it takes, about, without what it shares with a former one; null for none.
    [[nodiscard]] std::size_t BytesBeside(const Moment* former) const;
};

/// What a user would miss, beside the document: the texts of the script boxes and of the open cell, the source tables,
/// the rules in the grid, and the dumps.
struct Work {
    std::vector<std::shared_ptr<const Text>> Boxes; // the open cell's last, null when none is open
    SharedRows<ListView::Row> SourceTables;
    SharedRows<Grid::Cells> Rules;
    std::shared_ptr<const ControlState> State;

    [[nodiscard]] bool IsSameAs(const Work& other) const;
};

/// Takes what the views and the control hold, sharing it with what was taken before where it is the same, and puts it
/// back without running a handler.
class Moments {
public:
    Moments(ControlState& state, DesignerViews& views) : state_(state), views_(views) {}

    [[nodiscard]] Moment Now();
    [[nodiscard]] Work WorkNow();

    /// All but what stays for life or is the host's to say: the first failure, the editor and the colouring.
    void PutBack(const Moment& moment);

private:
    [[nodiscard]] std::shared_ptr<const ControlState> StateNow();

    ControlState& state_;
    DesignerViews& views_;
    std::shared_ptr<const ControlState> stateThen_;
};

} // namespace rulemesh
