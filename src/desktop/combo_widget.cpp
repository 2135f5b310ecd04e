#include "desktop/combo_widget.h"

#include <QMouseEvent>
#include <QSignalBlocker>

#include "desktop/qt_text.h"

namespace rulemesh {

ComboWidget::ComboWidget(ViewSurface& surface, ComboBox& combo, QWidget& parent)
    : ViewWidget(surface, combo), combo_(combo), widget_(std::make_unique<QComboBox>(&parent))
{
    Adopt(*widget_);
    // The box has changed by now; it goes back when the choice is lost.
    connect(widget_.get(), &QComboBox::activated, this, [this](int index) {
        Surface().Act([this, index] { combo_.UserChooses(index); });
        Sync();
    });
}

bool ComboWidget::ShowsEntries() const
{
    const std::vector<ComboBox::Entry>& entries = combo_.Entries();
    if (widget_->count() != static_cast<int>(entries.size()))
        return false;
    for (int index = 0; index < widget_->count(); ++index) {
        if (widget_->itemText(index) != ToQt(entries[static_cast<std::size_t>(index)].Text))
            return false;
    }
    return true;
}

void ComboWidget::Sync()
{
    ViewWidget::Sync();
    const QSignalBlocker blocker(widget_.get());
    if (!ShowsEntries()) {
        widget_->hidePopup();
        widget_->clear();
        for (const ComboBox::Entry& entry : combo_.Entries())
            widget_->addItem(ToQt(entry.Text));
    }
    widget_->setCurrentIndex(combo_.ListIndex());
}

bool ComboWidget::HandleMousePress(QMouseEvent& /*event*/, bool /*twice*/) { return !Surface().FocusFor(combo_); }

bool ComboWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (IsOfMouse(*event) && static_cast<QMouseEvent*>(event)->button() > Qt::LeftButton)
        return true; // only the left button opens the entries
    if (event->type() == QEvent::Wheel && !combo_.HasFocus()) {
        event->ignore(); // rolling over a combo chooses nothing
        return true;
    }
    return ViewWidget::eventFilter(watched, event);
}

} // namespace rulemesh
