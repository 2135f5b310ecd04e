#pragma once

#include <memory>

#include "drive/request.h"
#include "drive/scripted_platform.h"
#include "drive/stage.h"
#include "files/object_file.h"

namespace rulemesh {

/// One control with the desktop and the host that it talks to.
class Desk {
public:
    explicit Desk(std::unique_ptr<Stage> stage);

    /// Drops the control and makes a new one. Replies that lie ready and files stay.
    void CreateAnew();

    /// How the object stood in the file that it was loaded from, for its save; its text is the control's. Plain UTF-8
    /// for an object that the host has handed over.
    [[nodiscard]] ObjectInFile& File() noexcept { return file_; }

    /// Sets a property of the control.
    [[nodiscard]] Json Let(const Request& request);

    [[nodiscard]] ctlRulemesh& Control() { return stage_->Control(); }
    [[nodiscard]] Stage& Where() noexcept { return *stage_; }
    [[nodiscard]] ScriptedPlatform& Platform() noexcept { return platform_; }

private:
    void ActInEvent(const Request& reply);

    std::unique_ptr<Stage> stage_;
    ScriptedPlatform platform_;
    ObjectInFile file_;
};

} // namespace rulemesh
