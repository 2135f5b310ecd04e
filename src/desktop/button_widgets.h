#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include "desktop/view_widget.h"
#include "views/button.h"

namespace rulemesh {

class ButtonWidget : public ViewWidget {
public:
    ButtonWidget(ViewSurface& surface, Button& button, QWidget& parent);
    [[nodiscard]] QWidget& Widget() override { return *widget_; }
    void Sync() override;

protected:
    bool HandleKey(QKeyEvent& event) override;

private:
    Button& button_;
    std::unique_ptr<QPushButton> widget_;
};

/// A label whose caption in the design has an access key brings the focus to the view that stands behind it there. Any
/// other shows texts of the object, as they are.
class LabelWidget : public ViewWidget {
public:
    LabelWidget(ViewSurface& surface, Label& label, QWidget& parent);
    [[nodiscard]] QWidget& Widget() override { return *widget_; }
    void Sync() override;

private:
    Label& label_;
    std::unique_ptr<QLabel> widget_;
    bool hasAccessKey_;
};

class FrameWidget : public ViewWidget {
public:
    FrameWidget(ViewSurface& surface, Frame& frame, QWidget& parent);
    [[nodiscard]] QWidget& Widget() override { return *widget_; }
    void Sync() override;

private:
    Frame& frame_;
    std::unique_ptr<QWidget> widget_;
    QGroupBox* box_ = nullptr; // the same widget, when the frame has a caption
};

class PictureWidget : public ViewWidget {
public:
    PictureWidget(ViewSurface& surface, PictureButton& picture, QWidget& parent);
    [[nodiscard]] QWidget& Widget() override { return *widget_; }
    void Sync() override;

private:
    PictureButton& picture_;
    std::unique_ptr<QToolButton> widget_;
};

} // namespace rulemesh
