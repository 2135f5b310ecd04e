#include "desktop/tab_widget.h"

#include <QSignalBlocker>
#include <QTabBar>

#include "desktop/qt_text.h"

namespace rulemesh {

namespace {

constexpr int BarHeight = 360; // twips; the frames of the tabs begin below

} // namespace

TabWidget::TabWidget(ViewSurface& surface, TabControl& tabs, QWidget& parent)
    : ViewWidget(surface, tabs), tabs_(tabs), pane_(std::make_unique<QWidget>(&parent)), bar_(new QTabBar(pane_.get()))
{
    Adopt(*bar_);
    pane_->setObjectName(QStringLiteral("MainTabPane"));
    bar_->setDocumentMode(true);
    bar_->setDrawBase(true);
    bar_->setExpanding(false);
    for (int tab = 0; tab < TabControl::TabCount; ++tab)
        bar_->addTab(ToQt(tabs.TabCaption(tab)));
    // The bar has changed by now. It goes back: the click may be lost, or ask something first.
    connect(bar_, &QTabBar::currentChanged, this, [this](int tab) {
        Sync();
        Surface().Act([this, tab] { tabs_.UserClicksTab(tab); });
    });
}

QWidget& TabWidget::Widget() { return *bar_; }

void TabWidget::Sync()
{
    const int left = Surface().Pixels(tabs_.Left());
    const int top = Surface().Pixels(tabs_.Top());
    const int width = Surface().Pixels(tabs_.Right()) - left;
    pane_->setGeometry(left, top, width, Surface().Pixels(tabs_.Bottom()) - top);
    pane_->setEnabled(tabs_.Enabled());
    pane_->setVisible(tabs_.Visible());
    bar_->setGeometry(0, 0, width, Surface().Pixels(BarHeight));
    const QSignalBlocker blocker(bar_);
    for (int tab = 0; tab < TabControl::TabCount; ++tab)
        bar_->setTabEnabled(tab, tabs_.TabEnabled(tab));
    bar_->setCurrentIndex(tabs_.Tab());
    for (View* view : Surface().Tree().Views()) {
        if (view->Parent() == &tabs_)
            Surface().WidgetOf(*view).setVisible(view->IsShown());
    }
}

} // namespace rulemesh
