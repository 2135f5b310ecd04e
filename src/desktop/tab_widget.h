#pragma once

#include "desktop/view_widget.h"
#include "views/tab_control.h"

class QTabBar;

namespace rulemesh {

class TabWidget : public ViewWidget {
public:
    TabWidget(ViewSurface& surface, TabControl& tabs, QWidget& parent);
    [[nodiscard]] QWidget& Widget() override;
    [[nodiscard]] QWidget& Pane() override { return *pane_; }
    [[nodiscard]] QTabBar& Bar() noexcept { return *bar_; }
    void Sync() override;

private:
    TabControl& tabs_;
    std::unique_ptr<QWidget> pane_;
    QTabBar* bar_; // owned by the pane
};

} // namespace rulemesh
