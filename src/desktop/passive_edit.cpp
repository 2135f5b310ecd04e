#include "desktop/passive_edit.h"

#include <algorithm>

#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>

namespace rulemesh {

class PassiveEdit::NumberArea : public QWidget {
public:
    explicit NumberArea(PassiveEdit& editor) : QWidget(&editor), editor_(editor) {}

protected:
    void paintEvent(QPaintEvent* event) override { editor_.PaintNumbers(*event); }

private:
    PassiveEdit& editor_;
};

PassiveEdit::PassiveEdit(LineNumbers numbers, Owner& owner, QWidget* parent) : QPlainTextEdit(parent), owner_(owner)
{
    setTabChangesFocus(false);
    setUndoRedoEnabled(false); // the owner takes changes back
    if (numbers == LineNumbers::Hidden)
        return;
    setLineWrapMode(QPlainTextEdit::NoWrap);
    numbers_ = new NumberArea(*this);
    connect(this, &QPlainTextEdit::blockCountChanged, this, &PassiveEdit::PlaceNumberArea);
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& rect, int dy) {
        if (dy != 0)
            numbers_->scroll(0, dy);
        else
            numbers_->update(0, rect.y(), numbers_->width(), rect.height());
    });
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &PassiveEdit::MarkCurrentLine);
    PlaceNumberArea();
}

QString PassiveEdit::WholeText() const
{
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    return text;
}

int PassiveEdit::NumberWidth() const
{
    const int digits = std::max(2, static_cast<int>(QString::number(blockCount()).size()));
    return 10 + digits * fontMetrics().horizontalAdvance(QLatin1Char('9'));
}

void PassiveEdit::PlaceNumberArea()
{
    if (numbers_ == nullptr)
        return;
    setViewportMargins(NumberWidth(), 0, 0, 0);
    const QRect inside = contentsRect();
    numbers_->setGeometry(inside.left(), inside.top(), NumberWidth(), inside.height());
}

void PassiveEdit::PaintNumbers(QPaintEvent& event)
{
    QPainter painter(numbers_);
    painter.fillRect(event.rect(), palette().alternateBase());
    painter.setFont(font());
    QTextBlock block = firstVisibleBlock();
    QRectF line = blockBoundingGeometry(block).translated(contentOffset());
    while (block.isValid() && line.top() <= event.rect().bottom()) {
        const bool current = hasFocus() && block == textCursor().block();
        painter.setPen(palette().color(current ? QPalette::Active : QPalette::Disabled, QPalette::Text));
        painter.drawText(QRectF(0, line.top(), numbers_->width() - 5, fontMetrics().height()), Qt::AlignRight,
                         QString::number(block.blockNumber() + 1));
        block = block.next();
        line = blockBoundingGeometry(block).translated(contentOffset());
    }
}

void PassiveEdit::MarkCurrentLine()
{
    if (numbers_ == nullptr)
        return;
    QList<QTextEdit::ExtraSelection> marks;
    if (hasFocus()) {
        QTextEdit::ExtraSelection mark;
        QColor color = palette().color(QPalette::Highlight);
        color.setAlpha(28);
        mark.format.setBackground(color);
        mark.format.setProperty(QTextFormat::FullWidthSelection, true);
        mark.cursor = textCursor();
        mark.cursor.clearSelection();
        marks.append(mark);
    }
    setExtraSelections(marks);
    numbers_->update();
}

void PassiveEdit::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    PlaceNumberArea();
}

void PassiveEdit::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        PlaceNumberArea();
}

void PassiveEdit::focusInEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusInEvent(event);
    MarkCurrentLine();
}

void PassiveEdit::focusOutEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusOutEvent(event);
    MarkCurrentLine();
}

bool PassiveEdit::focusNextPrevChild(bool /*next*/)
{
    return false; // the tab key is text here
}

} // namespace rulemesh
