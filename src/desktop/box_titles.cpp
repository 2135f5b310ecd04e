#include "desktop/box_titles.h"

#include <QApplication>
#include <QFontMetrics>
#include <QStyle>
#include <QWidget>

namespace rulemesh {

int WidthForTitle(const QWidget& window, const QString& title)
{
    constexpr int FrameButtons = 5; // an icon, three buttons and the room between them
    QFont font = QApplication::font("QMdiSubWindowTitleBar");
    font.setBold(true);
    return QFontMetrics(font, &window).horizontalAdvance(title) +
           FrameButtons * window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
}

} // namespace rulemesh
