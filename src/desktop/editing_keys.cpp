#include "desktop/editing_keys.h"

#include <array>

namespace rulemesh {

namespace {

struct DeletingKey {
    QKeySequence::StandardKey Key;
    QTextCursor::MoveOperation UpTo;
};

constexpr std::array<DeletingKey, 3> DeletingKeys = {{
    {QKeySequence::Delete, QTextCursor::NextCharacter},
    {QKeySequence::DeleteEndOfWord, QTextCursor::NextWord},
    {QKeySequence::DeleteStartOfWord, QTextCursor::PreviousWord},
}};

bool Types(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    const bool control = (modifiers & Qt::ControlModifier) != 0;
    const bool alt = (modifiers & Qt::AltModifier) != 0;
    if (control != alt || (modifiers & Qt::MetaModifier) != 0 || event.text().isEmpty())
        return false;
    const QChar first = event.text().at(0);
    return first == QLatin1Char('\t') || first.category() != QChar::Other_Control;
}

// Half of a character outside the basic plane is never left behind.
void SelectPreviousCharacter(QTextCursor& cursor)
{
    const int at = cursor.position();
    const QTextDocument& text = *cursor.document();
    const bool pair = at > 1 && text.characterAt(at - 1).isLowSurrogate() && text.characterAt(at - 2).isHighSurrogate();
    cursor.setPosition(std::max(0, at - (pair ? 2 : 1)), QTextCursor::KeepAnchor);
}

void SelectEndOfLine(QTextCursor& cursor)
{
    cursor.movePosition(cursor.atBlockEnd() ? QTextCursor::NextCharacter : QTextCursor::EndOfBlock,
                        QTextCursor::KeepAnchor);
}

void SelectLine(QTextCursor& cursor)
{
    cursor.movePosition(QTextCursor::StartOfBlock);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
}

KeyedChange Replacing(const QTextCursor& selected, const QString& text)
{
    return {selected.selectionStart(), selected.selectionEnd(), text};
}

} // namespace

std::optional<KeyedChange> ChangeByKey(const QKeyEvent& event, const QTextCursor& cursor)
{
    QTextCursor selected = cursor;
    const bool backspace = event.key() == Qt::Key_Backspace && (event.modifiers() & ~Qt::ShiftModifier) == 0;
    if (backspace) {
        if (!selected.hasSelection())
            SelectPreviousCharacter(selected);
        return Replacing(selected, {});
    }
    for (const auto& [key, upTo] : DeletingKeys) {
        if (!event.matches(key))
            continue;
        if (!selected.hasSelection())
            selected.movePosition(upTo, QTextCursor::KeepAnchor);
        return Replacing(selected, {});
    }
    if (event.matches(QKeySequence::DeleteEndOfLine)) {
        if (!selected.hasSelection())
            SelectEndOfLine(selected);
        return Replacing(selected, {});
    }
    if (event.matches(QKeySequence::DeleteCompleteLine)) {
        SelectLine(selected);
        return Replacing(selected, {});
    }
    if (event.matches(QKeySequence::InsertParagraphSeparator) || event.matches(QKeySequence::InsertLineSeparator))
        return Replacing(selected, QStringLiteral("\r\n"));
    if (Types(event))
        return Replacing(selected, event.text());
    return {};
}

} // namespace rulemesh
