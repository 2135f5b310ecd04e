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
#include "views/grid.h"

namespace rulemesh {

namespace {

constexpr QChar SoftBreak = QChar::LineSeparator;
constexpr std::size_t MostRemembered = 64;

bool IsLineEndAt(TextView text, std::size_t at) noexcept
{
    return text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
}

ScannedFor ScannersOf(const View& view)
{
    const bool precondition = view.Name() == u"txtPreCondition";
    return {.Migrate = precondition, .Dump = view.Name() != u"txtVariables"};
}

// A character that editors show as a line end of its own.
QChar Shown(char16_t character) noexcept
{
    switch (character) {
    case u'\r':
        return SoftBreak;
    case QChar::ParagraphSeparator:
    case 0xFDD0:
    case 0xFDD1:
        return u'\n';
    default:
        return character;
    }
}

// Whether a text has line ends other than those that typing leaves.
bool HasOddLineEnds(TextView text) noexcept
{
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (IsLineEndAt(text, at))
            ++at;
        else if (Shown(text[at]) == SoftBreak || Shown(text[at]) == u'\n')
            return true;
    }
    return false;
}

// What the user typed, with the line ends that the model keeps.
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
        shown += Shown(text[at]);
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
    widget_->OnInsert = [this](int from, int to, const QString& text) { Insert(from, to, text); };
    widget_->OnCopy = [this](int from, int to) {
        const TextView text = box_.Text();
        const std::size_t begin = ModelPosition(text, from);
        return ToQt(text.substr(begin, ModelPosition(text.substr(begin), to - from)));
    };
}

TextWidget::~TextWidget()
{
    widget_->disconnect(this); // taking the colours away looks like an edit to the editor
}

QWidget& TextWidget::Widget() { return *widget_; }

void TextWidget::Sync()
{
    const QScopedValueRollback<bool> guard(syncing_, true);
    ViewWidget::Sync();
    widget_->setReadOnly(box_.Locked());
    widget_->setTextInteractionFlags(widget_->textInteractionFlags() | Qt::TextSelectableByKeyboard);
    if (highlighter_ != nullptr)
        highlighter_->SwitchOn(script_->Highlight());
    ShowText();
    const bool hasRoom = widget_->height() >= 4 * widget_->fontMetrics().lineSpacing();
    widget_->setVerticalScrollBarPolicy(hasRoom ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    StandOnGridRow();
    widget_->raise(); // the edit box lies over its grid
}

// Rows are drawn in whole pixels, all of one height; a box on one of them stands where the row is drawn.
void TextWidget::StandOnGridRow()
{
    for (const View* view : Surface().Tree().Views()) {
        const bool besideBox = view->Kind() == ViewKind::Grid && view->Parent() == box_.Parent();
        const int below = box_.Top() - view->Top();
        if (besideBox && below >= 0 && below % Grid::RowHeight == 0) {
            const int rowHeight = Surface().Pixels(Grid::RowHeight);
            const QRect place = widget_->geometry();
            widget_->setGeometry(place.left(), Surface().Pixels(view->Top()) + below / Grid::RowHeight * rowHeight,
                                 place.width(), rowHeight);
        }
    }
}

void TextWidget::ShowText()
{
    QString text = ShownText(box_.Text());
    const bool textChanged = text != shown_;
    if (textChanged) {
        shown_ = std::move(text);
        widget_->setPlainText(shown_);
        lineEnds_.clear();
        Remember();
    }
    const bool caretPlaced = std::exchange(caretMoves_, box_.CaretMoves()) != box_.CaretMoves();
    if (textChanged || caretPlaced) {
        QTextCursor cursor = widget_->textCursor();
        cursor.setPosition(static_cast<int>(ShownText(TextView(box_.Text()).substr(0, box_.SelStart())).size()));
        widget_->setTextCursor(cursor);
    }
}

// The editor's undo knows one kind of line end; a text that has others comes back from here.
void TextWidget::Remember()
{
    const int step = widget_->document()->availableUndoSteps();
    if (HasOddLineEnds(box_.Text()))
        lineEnds_[step] = box_.Text();
    else
        lineEnds_.erase(step);
    if (lineEnds_.size() > MostRemembered)
        lineEnds_.erase(lineEnds_.begin());
}

void TextWidget::TakeOverEdit()
{
    if (syncing_)
        return;
    QString now = widget_->WholeText();
    if (now == shown_)
        return; // only the colours changed
    const auto before = lineEnds_.find(widget_->document()->availableUndoSteps());
    Text text = before != lineEnds_.end() && ShownText(before->second) == now ? before->second
                                                                              : EditedText(box_.Text(), shown_, now);
    shown_ = std::move(now);
    Surface().Act([&] {
        box_.UserTypes(std::move(text));
        Remember();
    });
}

void TextWidget::Insert(int from, int to, const QString& text)
{
    // A text that is moved within the box has been taken out of its old place by now.
    Text whole = EditedText(box_.Text(), shown_, widget_->WholeText());
    const std::size_t begin = ModelPosition(whole, from);
    whole.replace(begin, ModelPosition(TextView(whole).substr(begin), to - from), FromQt(text));
    {
        const QScopedValueRollback<bool> guard(syncing_, true);
        QTextCursor cursor = widget_->textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        cursor.insertText(ShownText(FromQt(text)));
        widget_->setTextCursor(cursor);
        shown_ = widget_->WholeText();
    }
    Surface().Act([&] {
        box_.UserTypes(std::move(whole));
        Remember();
    });
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
