#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QWheelEvent>

#include "desktop/editing_keys.h"
#include "desktop/passive_edit.h"

namespace rulemesh {

namespace {

// The text as the box keeps it, in code units of this machine. Other programs take the plain text.
const QString OwnFormat = QStringLiteral("application/x-rulemesh-text");

QString OwnText(const QMimeData& data)
{
    if (!data.hasFormat(OwnFormat))
        return data.text();
    const QByteArray units = data.data(OwnFormat);
    return QString(reinterpret_cast<const QChar*>(units.constData()), units.size() / qsizetype(sizeof(QChar)));
}

// The line ends that other programs expect.
QString ForOthers(QString text)
{
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

} // namespace

void PassiveEdit::ReplaceSelection(const QString& text)
{
    const QTextCursor cursor = textCursor();
    owner_.Replace(cursor.selectionStart(), cursor.selectionEnd(), text);
}

void PassiveEdit::keyPressEvent(QKeyEvent* event)
{
    if (isReadOnly())
        return QPlainTextEdit::keyPressEvent(event);
    if (event->matches(QKeySequence::Undo)) {
        owner_.Undo();
    } else if (event->matches(QKeySequence::Redo)) {
        owner_.Redo();
    } else if (event->matches(QKeySequence::Cut)) {
        copy();
        ReplaceSelection({});
    } else if (const std::optional<KeyedChange> change = ChangeByKey(*event, textCursor())) {
        owner_.Type(change->From, change->To, change->Text);
    } else {
        QKeyEvent withoutText(event->type(), event->key(), event->modifiers());
        QPlainTextEdit::keyPressEvent(&withoutText);
        event->setAccepted(withoutText.isAccepted());
        return;
    }
    event->accept();
}

void PassiveEdit::insertFromMimeData(const QMimeData* source)
{
    if (!isReadOnly() && source->hasText())
        ReplaceSelection(OwnText(*source));
}

QMimeData* PassiveEdit::createMimeDataFromSelection() const
{
    const QTextCursor cursor = textCursor();
    const QString text = owner_.Kept(cursor.selectionStart(), cursor.selectionEnd());
    auto* data = new QMimeData; // the caller owns it
    data->setText(ForOthers(text));
    data->setData(OwnFormat,
                  QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * qsizetype(sizeof(QChar))));
    return data;
}

// What is committed goes to the owner; what is still being composed is the editor's to show. It stands in the place of
// what is selected.
void PassiveEdit::inputMethodEvent(QInputMethodEvent* event)
{
    if (isReadOnly()) {
        event->ignore(); // the base class would take it
        return;
    }
    const QTextCursor cursor = textCursor();
    const QString& text = event->commitString();
    if (event->replacementLength() > 0) {
        const int length = static_cast<int>(WholeText().size());
        const int from = std::clamp(cursor.position() + event->replacementStart(), 0, length);
        owner_.Replace(from, std::clamp(from + event->replacementLength(), from, length), text);
    } else if (!text.isEmpty() || (cursor.hasSelection() && !event->preeditString().isEmpty())) {
        if (text.size() > 2) // more than a character
            ReplaceSelection(text);
        else
            owner_.Type(cursor.selectionStart(), cursor.selectionEnd(), text);
    }
    QInputMethodEvent composed(event->preeditString(), event->attributes());
    QPlainTextEdit::inputMethodEvent(&composed);
    event->accept();
}

void PassiveEdit::dropEvent(QDropEvent* event)
{
    QDragLeaveEvent leave; // ends the marking of the place
    dragLeaveEvent(&leave);
    if (isReadOnly() || !canInsertFromMimeData(event->mimeData())) {
        event->ignore();
        return;
    }
    const int at = cursorForPosition(event->position().toPoint()).position();
    const QTextCursor moved = textCursor();
    const int start = moved.selectionStart();
    const int end = moved.selectionEnd();
    if (event->source() != viewport() || event->dropAction() != Qt::MoveAction)
        owner_.Replace(at, at, OwnText(*event->mimeData()));
    else if (at < start)
        owner_.Replace(at, end, owner_.Kept(start, end) + owner_.Kept(at, start));
    else if (at > end)
        owner_.Replace(start, at, owner_.Kept(end, at) + owner_.Kept(start, end));
    event->acceptProposedAction();
}

void PassiveEdit::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    const auto add = [&](const QString& caption, QKeySequence::StandardKey key, bool enabled, auto action) {
        QAction* entry = menu.addAction(caption, this, action);
        entry->setShortcut(key);
        entry->setEnabled(enabled);
    };
    const bool editable = !isReadOnly();
    const bool selected = textCursor().hasSelection();
    add(QStringLiteral("&Undo"), QKeySequence::Undo, editable && owner_.CanUndo(), [this] { owner_.Undo(); });
    add(QStringLiteral("&Redo"), QKeySequence::Redo, editable && owner_.CanRedo(), [this] { owner_.Redo(); });
    menu.addSeparator();
    add(QStringLiteral("Cu&t"), QKeySequence::Cut, editable && selected, [this] {
        copy();
        ReplaceSelection({});
    });
    add(QStringLiteral("&Copy"), QKeySequence::Copy, selected, [this] { copy(); });
    add(QStringLiteral("&Paste"), QKeySequence::Paste, editable && canPaste(), [this] { paste(); });
    add(QStringLiteral("&Delete"), QKeySequence::Delete, editable && selected, [this] { ReplaceSelection({}); });
    menu.addSeparator();
    add(QStringLiteral("Select &All"), QKeySequence::SelectAll, !document()->isEmpty(), [this] { selectAll(); });
    menu.exec(event->globalPos());
    event->accept();
}

// The base class would enlarge the type of a locked box.
void PassiveEdit::wheelEvent(QWheelEvent* event)
{
    if ((event->modifiers() & Qt::ControlModifier) != 0)
        event->ignore();
    else
        QPlainTextEdit::wheelEvent(event);
}

} // namespace rulemesh
