#include "desktop/text_widget.h"

#include <algorithm>
#include <utility>

#include <QFontDatabase>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QTextCursor>

#include "desktop/qt_text.h"
#include "desktop/script_highlighter.h"
#include "desktop/text_edit.h"

namespace rulemesh {

namespace {

constexpr QChar SoftBreak = QChar::LineSeparator;

bool IsLineEndAt(TextView text, std::size_t at) noexcept
{
    return text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
}

ScannedFor ScannersOf(const View& view)
{
    const bool precondition = view.Name() == u"txtPreCondition";
    return {.Migrate = precondition, .Dump = view.Name() != u"txtVariables"};
}

// What the user typed or pasted, with the line ends that the model keeps.
Text TypedText(QStringView shown)
{
    Text text;
    for (const QChar character : shown) {
        if (character == QLatin1Char('\n') || character == SoftBreak)
            text += LineEnd;
        else
            text += character.unicode();
    }
    return text;
}

} // namespace

QString ShownText(TextView text)
{
    QString shown;
    shown.reserve(static_cast<qsizetype>(text.size()));
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (IsLineEndAt(text, at))
            ++at;
        shown += text[at] == u'\r' ? SoftBreak : QChar(text[at]);
    }
    return shown;
}

std::size_t ModelPosition(TextView text, qsizetype shownPosition)
{
    std::size_t at = 0;
    for (; shownPosition > 0 && at < text.size(); --shownPosition)
        at += IsLineEndAt(text, at) ? 2 : 1;
    return at;
}

Text EditedText(TextView text, const QString& before, const QString& after)
{
    const qsizetype shorter = std::min(before.size(), after.size());
    const auto difference = std::mismatch(before.begin(), before.begin() + shorter, after.begin());
    const qsizetype front = difference.first - before.begin();
    qsizetype back = 0;
    while (back < shorter - front && before[before.size() - 1 - back] == after[after.size() - 1 - back])
        ++back;
    const std::size_t from = ModelPosition(text, front);
    const std::size_t to = from + ModelPosition(text.substr(from), before.size() - back - front);
    return Text(text.substr(0, from)) + TypedText(QStringView(after).mid(front, after.size() - back - front)) +
           Text(text.substr(to));
}

TextWidget::TextWidget(ViewSurface& surface, TextBox& box, QWidget& parent)
    : ViewWidget(surface, box), box_(box), script_(dynamic_cast<SyntaxBox*>(&box)),
      widget_(std::make_unique<TextEdit>(
          script_ != nullptr ? TextEdit::LineNumbers::Shown : TextEdit::LineNumbers::Hidden, &parent))
{
    Adopt(*widget_, widget_->viewport());
    if (script_ != nullptr) {
        QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        font.setPointSizeF(widget_->font().pointSizeF());
        widget_->setFont(font);
        highlighter_ = std::make_unique<ScriptHighlighter>(*widget_->document(), ScannersOf(box));
    }
    connect(widget_.get(), &QPlainTextEdit::textChanged, this, &TextWidget::TakeOverEdit);
}

TextWidget::~TextWidget() = default;

QWidget& TextWidget::Widget() { return *widget_; }

void TextWidget::Sync()
{
    const QScopedValueRollback<bool> guard(syncing_, true);
    ViewWidget::Sync();
    widget_->setReadOnly(box_.Locked());
    widget_->setTextInteractionFlags(widget_->textInteractionFlags() | Qt::TextSelectableByKeyboard);
    if (highlighter_ != nullptr)
        highlighter_->SwitchOn(script_->Highlight());
    QString text = ShownText(box_.Text());
    const bool textChanged = text != shown_;
    if (textChanged) {
        shown_ = std::move(text);
        widget_->setPlainText(shown_);
    }
    if (textChanged || std::exchange(caretMoves_, box_.CaretMoves()) != box_.CaretMoves()) {
        QTextCursor cursor = widget_->textCursor();
        cursor.setPosition(static_cast<int>(ShownText(TextView(box_.Text()).substr(0, box_.SelStart())).size()));
        widget_->setTextCursor(cursor);
    }
    widget_->raise(); // the edit box lies over its grid
}

void TextWidget::TakeOverEdit()
{
    if (syncing_)
        return;
    QString now = widget_->WholeText();
    if (now == shown_)
        return; // only the colours changed
    Text text = EditedText(box_.Text(), shown_, now);
    shown_ = std::move(now);
    Surface().Act([&] { box_.UserTypes(std::move(text)); });
}

bool TextWidget::HandleKey(QKeyEvent& event)
{
    // A plain tab belongs to the text; with control it moves on, as the scripts' own keys do.
    const bool tab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    const bool moves = tab && (event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
    if (!moves)
        return false;
    Surface().MoveFocusByTab(event.key() == Qt::Key_Tab && !(event.modifiers() & Qt::ShiftModifier));
    return true;
}

bool TextWidget::HandleMousePress(QMouseEvent& /*event*/, bool /*twice*/) { return !Surface().FocusFor(box_); }

} // namespace rulemesh
