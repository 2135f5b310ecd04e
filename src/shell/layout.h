#pragma once

#include "shell/text_panels.h"

namespace rulemesh {

/// Places the views in the control's size, and lets one of the two script boxes take the room of both. All lengths are
/// twips. A pass goes by widths and left edges; only the pane of the shown tab is laid out.
class Layout {
public:
    Layout(DesignerViews& views, TextPanels& panels) : views_(views), panels_(panels) {}

    /// The host sizes the control.
    void Resize(int width, int height);

    /// The layout pass. A step that a view refuses, such as a negative width, is skipped and the next one is done.
    void UserControl_Resize();

    void PicMQResize_Click();
    void PicPreResize_Click();

    /// Which picture invites to enlarge (true) and which to go back.
    void SetResizeImages(bool BoolPreMax, bool BoolMqMax);

private:
    void LayOutConditionTab();
    void LayOutRulesTab();

    DesignerViews& views_;
    TextPanels& panels_;
    int width_ = DesignWidth;
    int height_ = DesignHeight;
};

} // namespace rulemesh
