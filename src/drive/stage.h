#pragma once

#include <functional>
#include <memory>

#include "drive/user_hands.h"

namespace rulemesh {

/// Where a session's designer lives: makes it anew, and lends the hands that work it.
class Stage {
public:
    virtual ~Stage() = default;

    /// Drops the designer that there is and makes a new one.
    virtual void Create(Platform& platform, ControlEvents& events) = 0;
    [[nodiscard]] virtual ctlRulemesh& Control() = 0;
    [[nodiscard]] virtual UserHands& Hands() = 0;

    /// A request has been carried out.
    virtual void Settle() {}
};

/// Makes the stage of one more designer.
using StageMaker = std::function<std::unique_ptr<Stage>()>;

/// A designer without a window.
class WindowlessStage : public Stage {
public:
    void Create(Platform& platform, ControlEvents& events) override
    {
        control_.reset();
        control_ = std::make_unique<ctlRulemesh>(platform, events);
    }
    [[nodiscard]] ctlRulemesh& Control() override { return *control_; }
    [[nodiscard]] UserHands& Hands() override { return hands_; }

private:
    std::unique_ptr<ctlRulemesh> control_;
    UserHands hands_;
};

} // namespace rulemesh
