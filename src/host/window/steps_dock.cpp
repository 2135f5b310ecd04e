#include "host/window/steps_dock.h"

#include <QKeyEvent>
#include <QListView>

#include "desktop/rulemesh_widget.h"

namespace rulemesh {

StepsDock::StepsDock(QWidget* parent) : QDockWidget(QStringLiteral("Steps"), parent), list_(new QListView(this))
{
    setObjectName(QStringLiteral("steps")); // by which the window remembers its place
    setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    list_->setModel(&model_);
    list_->setAccessibleName(QStringLiteral("Steps"));
    list_->setFocusPolicy(Qt::TabFocus);
    list_->setUniformItemSizes(true);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->installEventFilter(this);
    setWidget(list_);
    connect(list_, &QListView::clicked, this, &StepsDock::GoTo);
    connect(this, &QDockWidget::visibilityChanged, this, &StepsDock::Refresh);
    toggleViewAction()->setText(QStringLiteral("&Steps"));
    connect(toggleViewAction(), &QAction::triggered, list_, [this](bool shown) {
        if (shown)
            list_->setFocus(Qt::ShortcutFocusReason);
    });
    hide();
}

void StepsDock::Follow(RulemeshWidget* designer)
{
    designer_ = designer;
    if (designer != nullptr)
        connect(designer, &RulemeshWidget::HistoryChanged, this, &StepsDock::Refresh);
    Refresh();
}

void StepsDock::Refresh()
{
    if (isHidden())
        return;
    model_.Show(designer_);
    const QModelIndex present = model_.index(model_.Present());
    list_->setCurrentIndex(present);
    list_->scrollTo(present);
}

void StepsDock::GoTo(const QModelIndex& index)
{
    if (designer_ != nullptr && index.isValid())
        designer_->GoToStep(index.row());
}

bool StepsDock::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == list_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            GoTo(list_->currentIndex());
            return true;
        }
    }
    return QDockWidget::eventFilter(watched, event);
}

void StepsDock::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        Leave();
    else
        QDockWidget::keyPressEvent(event);
}

// Back to the designer, with the list left open.
void StepsDock::Leave()
{
    if (designer_ != nullptr)
        designer_->setFocus(Qt::OtherFocusReason);
}

} // namespace rulemesh
