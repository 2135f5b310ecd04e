#include "window/window_stage.h"

#include <QApplication>

#include "desktop/rulemesh_widget.h"
#include "desktop/view_surface.h"

namespace rulemesh {

namespace {

constexpr QSize LargestWindow(4000, 4000); // pixels; what a host sizes beyond is cut

} // namespace

WindowStage::WindowStage() : window_(std::make_unique<QWidget>())
{
    window_->setWindowTitle(QStringLiteral("Rulemesh"));
    window_->setFocusPolicy(Qt::ClickFocus); // a click beside the designer leaves it
}

WindowStage::~WindowStage() { Drop(); }

void WindowStage::Drop()
{
    hands_.WorkOn(nullptr);
    designer_.reset();
}

void WindowStage::Create(Platform& platform, ControlEvents& events)
{
    Drop();
    designer_ = std::make_unique<RulemeshWidget>(platform, events, window_.get());
    designer_->SetLayoutPasses(RulemeshWidget::LayoutPasses::ByHost);
    hands_.WorkOn(&designer_->Surface());
    designer_->show();
    window_->setFocus(); // no view has the focus at the start
    window_->show();
    Settle();
}

ctlRulemesh& WindowStage::Control() { return designer_->Control(); }

// The window follows the size that the host gave to the control, and shows how things stand.
void WindowStage::Settle()
{
    ViewSurface& surface = designer_->Surface();
    surface.Sync();
    const TabControl& tabs = designer_->Control().Views().MainTab;
    const QSize size(surface.Pixels(tabs.Right() + 10), surface.Pixels(tabs.Bottom() + 10));
    designer_->resize(size);
    window_->resize(size.boundedTo(LargestWindow));
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace rulemesh
