#include "desktop/tool_tips.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

namespace rulemesh {

QString PlainToolTip(const QString& text)
{
    if (!Qt::mightBeRichText(text))
        return text;
    return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped());
}

bool ShowToolTip(const QHelpEvent& event, QWidget& widget)
{
    QString text = widget.toolTip();
    QRect place;
    if (const auto* items = qobject_cast<QAbstractItemView*>(&widget); items != nullptr) {
        const QModelIndex index = items->indexAt(items->viewport()->mapFromGlobal(event.globalPos()));
        const QString ofItem = index.data(Qt::ToolTipRole).toString();
        if (!ofItem.isEmpty()) {
            text = ofItem;
            place = items->visualRect(index);
        }
    }
    if (text.isEmpty())
        return false;
    QToolTip::showText(event.globalPos(), PlainToolTip(text), &widget, place);
    return true;
}

} // namespace rulemesh
