#pragma once

#include <memory>

#include "drive/stage.h"
#include "window/window_hands.h"

class QWidget;

namespace rulemesh {

class RulemeshWidget;

/// A designer in a window of its own, on whatever Qt platform the application runs. Its size is the host's to give:
/// no layout pass is run before the host asks for one.
class WindowStage : public Stage {
public:
    /// Needs a QApplication, which must outlive the stage.
    WindowStage();
    ~WindowStage() override;
    WindowStage(const WindowStage&) = delete;
    WindowStage& operator=(const WindowStage&) = delete;

    void Create(Platform& platform, ControlEvents& events) override;
    [[nodiscard]] ctlRulemesh& Control() override;
    [[nodiscard]] UserHands& Hands() override { return hands_; }
    void Settle() override;

    [[nodiscard]] RulemeshWidget& Designer() noexcept { return *designer_; }

private:
    void Drop();

    WindowHands hands_;
    std::unique_ptr<QWidget> window_;
    std::unique_ptr<RulemeshWidget> designer_;
};

} // namespace rulemesh
