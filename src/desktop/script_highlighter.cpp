#include "desktop/script_highlighter.h"

#include <algorithm>

#include <QGuiApplication>
#include <QPalette>
#include <QTextBlock>
#include <QTextDocument>

#include "desktop/qt_text.h"

namespace rulemesh {

ScriptHighlighter::ScriptHighlighter(QTextDocument& document, ScannedFor scanned)
    : QSyntaxHighlighter(&document), scanned_(scanned)
{
    // A statement can begin lines above its word, so a change here may change the colours there.
    connect(&document, &QTextDocument::contentsChange, this, [this](int, int removed, int added) {
        if (on_ && (removed != 0 || added != 0))
            Rescan();
    });
}

// The base class takes its colours out of the document, which tells of a change when the spans are gone.
ScriptHighlighter::~ScriptHighlighter()
{
    if (document() != nullptr)
        document()->disconnect(this);
}

void ScriptHighlighter::SwitchOn(bool on)
{
    if (on == on_)
        return;
    on_ = on;
    Rescan();
    rehighlight();
}

void ScriptHighlighter::Rescan()
{
    std::vector<ScriptSpan> spans;
    if (on_) {
        QString text = document()->toRawText();
        text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
        spans = ScriptSpans(FromQt(text), scanned_);
    }
    if (spans == spans_)
        return;
    spans_ = std::move(spans);
    QMetaObject::invokeMethod(this, &QSyntaxHighlighter::rehighlight, Qt::QueuedConnection);
}

QTextCharFormat ScriptHighlighter::FormatOf(ScriptSpan::Kind kind) const
{
    const bool dark = QGuiApplication::palette().color(QPalette::Base).lightness() < 128;
    QTextCharFormat format;
    switch (kind) {
    case ScriptSpan::Kind::Comment:
        format.setForeground(QColor(dark ? 0x8fb573 : 0x3f7d20));
        format.setFontItalic(true);
        break;
    case ScriptSpan::Kind::Migrate:
        format.setForeground(QColor(dark ? 0x61afef : 0x0b5cad));
        format.setFontWeight(QFont::Bold);
        break;
    case ScriptSpan::Kind::Dump:
        format.setForeground(QColor(dark ? 0xe5a04f : 0xa14a00));
        format.setFontWeight(QFont::Bold);
        break;
    }
    return format;
}

void ScriptHighlighter::highlightBlock(const QString& text)
{
    if (!on_)
        return;
    const auto begin = static_cast<std::size_t>(currentBlock().position());
    const std::size_t end = begin + static_cast<std::size_t>(text.size());
    auto span = std::partition_point(spans_.begin(), spans_.end(), [&](const ScriptSpan& before) {
        return before.Position + before.Length <= begin;
    });
    for (; span != spans_.end() && span->Position < end; ++span) {
        const std::size_t from = std::max(span->Position, begin);
        const std::size_t to = std::min(span->Position + span->Length, end);
        setFormat(static_cast<int>(from - begin), static_cast<int>(to - from), FormatOf(span->What));
    }
}

} // namespace rulemesh
