#pragma once

#include <memory>

#include "drive/request.h"
#include "drive/scripted_platform.h"
#include "drive/stage.h"

namespace rulemesh {

/// One control with the desktop and the host that it talks to.
class Desk {
public:
    explicit Desk(std::unique_ptr<Stage> stage);

    /// Drops the control and makes a new one. Replies that lie ready and files stay.
    void CreateAnew();

    [[nodiscard]] ctlRulemesh& Control() { return stage_->Control(); }
    [[nodiscard]] Stage& Where() noexcept { return *stage_; }
    [[nodiscard]] ScriptedPlatform& Platform() noexcept { return platform_; }

private:
    void ActInEvent(const Request& reply);

    std::unique_ptr<Stage> stage_;
    ScriptedPlatform platform_;
};

} // namespace rulemesh
