#pragma once

#include <QComboBox>

#include "desktop/view_widget.h"
#include "views/combo_box.h"

namespace rulemesh {

class ComboWidget : public ViewWidget {
public:
    ComboWidget(ViewSurface& surface, ComboBox& combo, QWidget& parent);
    [[nodiscard]] QWidget& Widget() override { return *widget_; }
    void Sync() override;

protected:
    bool HandleMousePress(QMouseEvent& event, bool twice) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool ShowsEntries() const;

    ComboBox& combo_;
    std::unique_ptr<QComboBox> widget_;
};

} // namespace rulemesh
