#include "desktop/button_widgets.h"

#include <algorithm>

#include <QKeyEvent>
#include <QPainter>

#include "desktop/accessible_names.h"
#include "desktop/captions.h"
#include "desktop/qt_text.h"

namespace rulemesh {

namespace {

// Two arrows that point away from each other to enlarge, and toward each other to go back, in the text's colour.
QIcon ResizeIcon(PictureButton::Picture picture, const QPalette& palette)
{
    constexpr int size = 32;
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette.color(QPalette::ButtonText), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const bool enlarges = picture == PictureButton::Picture::ImgMax;
    const auto arrow = [&](QPointF tip, QPointF tail) {
        const double back = tip.y() < tail.y() ? 6 : -6;
        painter.drawLine(tip, tail);
        painter.drawPolyline(QPolygonF({tip + QPointF(-6, back), tip, tip + QPointF(6, back)}));
    };
    if (enlarges) {
        arrow({16, 3}, {16, 14});
        arrow({16, 29}, {16, 18});
    } else {
        arrow({16, 14}, {16, 3});
        arrow({16, 18}, {16, 29});
    }
    return QIcon(pixmap);
}

} // namespace

ButtonWidget::ButtonWidget(ViewSurface& surface, Button& button, QWidget& parent)
    : ViewWidget(surface, button), button_(button), widget_(std::make_unique<QPushButton>(&parent))
{
    Adopt(*widget_);
    widget_->setAutoDefault(false);
    connect(widget_.get(), &QPushButton::clicked, this, [this] { Surface().Act([this] { button_.UserClicks(); }); });
}

void ButtonWidget::Sync()
{
    ViewWidget::Sync();
    if (widget_->text() != WithAccessKey(button_.Caption()))
        widget_->setText(WithAccessKey(button_.Caption()));
    widget_->setDefault(button_.Default());
}

bool ButtonWidget::HandleKey(QKeyEvent& event)
{
    if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter)
        return false;
    widget_->click();
    return true;
}

LabelWidget::LabelWidget(ViewSurface& surface, Label& label, QWidget& parent)
    : ViewWidget(surface, label), label_(label), widget_(std::make_unique<QLabel>(&parent)),
      hasAccessKey_(AccessKeyOf(label.Caption()) != 0)
{
    widget_->setTextFormat(Qt::PlainText);
    Adopt(*widget_);
}

void LabelWidget::Sync()
{
    ViewWidget::Sync();
    widget_->setText(ToQt(label_.Caption()));
    widget_->setAccessibleName(hasAccessKey_ ? AccessibleName(label_) : ToQt(label_.Caption()));
    QFont font = widget_->parentWidget()->font();
    font.setBold(label_.Type().Bold);
    widget_->setFont(font);
    widget_->resize(widget_->size().expandedTo({widget_->sizeHint().width(), 0})); // no caption is cut
    if (!hasAccessKey_ || widget_->buddy() != nullptr)
        return;
    const std::vector<View*>& views = Surface().Tree().Views();
    const auto behind = std::find_if(std::find(views.begin(), views.end(), &label_), views.end(),
                                     [](const View* view) { return view->TakesFocus(); });
    if (behind != views.end())
        widget_->setBuddy(&Surface().WidgetOf(**behind));
}

FrameWidget::FrameWidget(ViewSurface& surface, Frame& frame, QWidget& parent)
    : ViewWidget(surface, frame), frame_(frame)
{
    if (frame.Caption().empty()) {
        widget_ = std::make_unique<QWidget>(&parent);
    } else {
        auto box = std::make_unique<QGroupBox>(&parent);
        box_ = box.get();
        widget_ = std::move(box);
    }
    Adopt(*widget_);
}

void FrameWidget::Sync()
{
    ViewWidget::Sync();
    if (box_ == nullptr)
        return;
    box_->setTitle(WithAccessKey(frame_.Caption()));
    box_->setAccessibleName(AccessibleName(frame_));
}

PictureWidget::PictureWidget(ViewSurface& surface, PictureButton& picture, QWidget& parent)
    : ViewWidget(surface, picture), picture_(picture), widget_(std::make_unique<QToolButton>(&parent))
{
    Adopt(*widget_);
    widget_->setAutoRaise(true);
    connect(widget_.get(), &QToolButton::clicked, this, [this] { Surface().Act([this] { picture_.UserClicks(); }); });
}

void PictureWidget::Sync()
{
    ViewWidget::Sync();
    widget_->setIcon(ResizeIcon(picture_.Image(), widget_->palette()));
}

} // namespace rulemesh
