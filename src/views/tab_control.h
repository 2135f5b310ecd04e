#pragma once

#include <array>
#include <functional>

#include "views/view.h"

namespace rulemesh {

/// A control of two tabs, each with a frame of its own. Tabs count from 0.
class TabControl : public View {
public:
    static constexpr int TabCount = 2;

    TabControl(ViewTree& tree, const ViewDesign& design, std::array<TextView, TabCount> captions)
        : View(tree, ViewKind::Tab, design), captions_(captions)
    {
    }

    [[nodiscard]] TextView TabCaption(int tab) const { return captions_.at(static_cast<std::size_t>(tab)); }

    /// Says which view stands on a tab; it is shown while that tab is.
    void Pane(int tab, const View& pane) { panes_.at(static_cast<std::size_t>(tab)) = &pane; }

    [[nodiscard]] int Tab() const noexcept { return tab_; }

    /// Shows a tab, disabled or not. The view that this hides loses the focus; then the click handler is run with the
    /// tab that was left. Showing the tab that is shown runs nothing.
    void Tab(int tab);

    [[nodiscard]] bool TabEnabled(int tab) const { return tabEnabled_.at(static_cast<std::size_t>(tab)); }
    void TabEnabled(int tab, bool enabled)
    {
        tabEnabled_.at(static_cast<std::size_t>(tab)) = enabled;
        Changed();
    }

    /// Moves the focus here and shows the tab, unless it has been disabled by then.
    void UserClicksTab(int tab);

    Event<void(std::int16_t PreviousTab)> Click;

protected:
    [[nodiscard]] bool Shows(const View& child) const noexcept override
    {
        return panes_[static_cast<std::size_t>(tab_)] == &child;
    }

    [[nodiscard]] std::unique_ptr<ViewValues> CopyOwnValues() const override
    {
        return CopyOf(std::tie(tab_, tabEnabled_));
    }
    void PutOwnValuesBack(const ViewValues& values) override { PutBack(values, std::tie(tab_, tabEnabled_)); }

private:
    std::array<TextView, TabCount> captions_;
    std::array<const View*, TabCount> panes_{};
    std::array<bool, TabCount> tabEnabled_{true, true};
    int tab_ = 0;
};

} // namespace rulemesh
