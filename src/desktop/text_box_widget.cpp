#include "desktop/text_box_widget.h"

#include <algorithm>
#include <utility>

#include <QFontDatabase>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QTextCursor>

#include "desktop/qt_text.h"
#include "desktop/script_highlighter.h"
#include "views/grid.h"

namespace rulemesh {

namespace {

ScannedFor ScannersOf(const View& view)
{
    const bool precondition = view.Name() == u"txtPreCondition";
    return {.Migrate = precondition, .Dump = view.Name() != u"txtVariables"};
}

// The least replacement that makes one text of the other, never through the middle of a pair of surrogates.
void ReplaceDifference(QTextDocument& document, const QString& before, const QString& after)
{
    const qsizetype shorter = std::min(before.size(), after.size());
    const auto difference = std::mismatch(before.begin(), before.begin() + shorter, after.begin());
    qsizetype front = difference.first - before.begin();
    if (front > 0 && before[front - 1].isHighSurrogate())
        --front;
    qsizetype back = 0;
    while (back < shorter - front && before[before.size() - 1 - back] == after[after.size() - 1 - back])
        ++back;
    if (back > 0 && before[before.size() - back].isLowSurrogate())
        --back;
    QTextCursor cursor(&document);
    cursor.setPosition(static_cast<int>(front));
    cursor.setPosition(static_cast<int>(before.size() - back), QTextCursor::KeepAnchor);
    cursor.insertText(after.mid(front, after.size() - back - front));
}

// Where the text that is there now stops differing from the one that was there.
std::size_t EndOfDifference(const Text& before, const Text& now)
{
    const std::size_t shorter = std::min(before.size(), now.size());
    const auto front = static_cast<std::size_t>(
        std::mismatch(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(shorter), now.begin()).second -
        now.begin());
    std::size_t back = 0;
    while (back < shorter - front && before[before.size() - 1 - back] == now[now.size() - 1 - back])
        ++back;
    return now.size() - back;
}

} // namespace

TextBoxWidget::TextBoxWidget(ViewSurface& surface, TextBox& box, QWidget& parent)
    : ViewWidget(surface, box), box_(box), script_(dynamic_cast<SyntaxBox*>(&box)),
      widget_(std::make_unique<PassiveEdit>(script_ != nullptr ? PassiveEdit::LineNumbers::Shown
                                                               : PassiveEdit::LineNumbers::Hidden,
                                            static_cast<PassiveEdit::Owner&>(*this), &parent))
{
    Adopt(*widget_, widget_->viewport());
    ChooseBars();
    if (script_ != nullptr) {
        QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        font.setPointSizeF(widget_->font().pointSizeF());
        widget_->setFont(font);
        highlighter_ = std::make_unique<ScriptHighlighter>(*widget_->document(), ScannersOf(box));
    }
    connect(widget_.get(), &QPlainTextEdit::textChanged, this, &TextBoxWidget::TakeOverEdit);
}

TextBoxWidget::~TextBoxWidget()
{
    widget_->disconnect(this); // taking the colours away looks like an edit to the editor
}

QWidget& TextBoxWidget::Widget() { return *widget_; }

// The edit box of the grid is one row high: its one line must have room beside the border.
void TextBoxWidget::ChooseBars()
{
    if (box_.Name() == u"txtgrdline") {
        widget_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        widget_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        widget_->setFrameStyle(int(QFrame::Box) | int(QFrame::Plain));
        widget_->document()->setDocumentMargin(1);
    } else if (script_ == nullptr) {
        widget_->setLineWrapMode(QPlainTextEdit::NoWrap);
        widget_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        widget_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    }
}

void TextBoxWidget::Sync()
{
    const QScopedValueRollback<bool> guard(showing_, true);
    ViewWidget::Sync();
    widget_->setReadOnly(box_.Locked());
    widget_->setTextInteractionFlags(widget_->textInteractionFlags() | Qt::TextSelectableByKeyboard);
    if (highlighter_ != nullptr)
        highlighter_->SwitchOn(script_->Highlight());
    StandOnGridRow();
    ShowText();
    widget_->raise(); // the edit box lies over its grid
}

// Rows are drawn in whole pixels, all of one height; a box on one of them stands where the row is drawn.
void TextBoxWidget::StandOnGridRow()
{
    for (const View* view : Surface().Tree().Views()) {
        if (view->Kind() != ViewKind::Grid || view->Parent() != box_.Parent())
            continue;
        const RowPlaces places = static_cast<const Grid*>(view)->Places();
        const GridRow row = places.RowThatBeginsAt(box_.Top() - view->Top());
        if (row == NoGridRow)
            continue;
        const RowPlaces drawn(places.Top(), Surface().Pixels(places.RowHeight()));
        const QRect place = widget_->geometry();
        widget_->setGeometry(place.left(), Surface().Pixels(view->Top()) + drawn.TopOf(row), place.width(),
                             drawn.RowHeight());
    }
}

// What the program put into the box begins a history of its own.
void TextBoxWidget::ShowText()
{
    const bool textChanged = box_.Text() != known_;
    std::size_t changedAt = 0;
    if (textChanged) {
        const Text before = std::exchange(known_, box_.Text());
        if (Surface().IsGoingBack())
            ShowKnown();
        else
            widget_->setPlainText(ShownText(known_));
        history_.Clear();
        lineEnded_ = false;
        sinceTyped_.start(); // a character that opened the box is the first of what is typed
        changedAt = EndOfDifference(before, known_);
    }
    const bool caretPlaced = std::exchange(caretMoves_, box_.CaretMoves()) != box_.CaretMoves();
    if (Surface().IsGoingBack() && textChanged)
        PutCaret(changedAt);
    else if (textChanged || (caretPlaced && !Surface().IsGoingBack()))
        PutCaret(box_.SelStart());
}

void TextBoxWidget::ShowKnown()
{
    const QScopedValueRollback<bool> guard(showing_, true);
    ReplaceDifference(*widget_->document(), widget_->WholeText(), ShownText(known_));
}

// Behind so many characters of the model's text.
void TextBoxWidget::PutCaret(std::size_t caret)
{
    QTextCursor cursor = widget_->textCursor();
    cursor.setPosition(ShownPosition(known_, caret));
    widget_->setTextCursor(cursor);
    widget_->ensureCursorVisible();
}

// The user's change goes to the model. Where it doesn't get there (the box is locked, or leaving another view has
// changed or hidden it), the editor goes back to what the model holds.
void TextBoxWidget::Change(Text text, std::size_t caret, Noted noted, TextBox::Typing how)
{
    const Text before = known_;
    bool taken = false;
    Surface().Act([&] {
        if (!Surface().Tree().MoveFocus(box_) || box_.Locked() || box_.Text() != before)
            return;
        box_.UserTypes(std::move(text), how);
        if (noted == Noted::AsChange && !Surface().History)
            history_.Note(before, box_.Text());
        known_ = box_.Text();
        ShowKnown();
        PutCaret(caret);
        taken = true;
    });
    if (!taken)
        ShowKnown();
}

void TextBoxWidget::Replace(int from, int to, const QString& text)
{
    ReplaceBy(from, to, text, TextBox::Typing::AtOnce);
}

void TextBoxWidget::Type(int from, int to, const QString& text) { ReplaceBy(from, to, text, HowTyped(text)); }

// A pause, or a line end, ends what is one step.
TextBox::Typing TextBoxWidget::HowTyped(const QString& text)
{
    constexpr qint64 Pause = 1000; // milliseconds
    const bool ended = lineEnded_ || (sinceTyped_.isValid() && sinceTyped_.hasExpired(Pause));
    lineEnded_ = text.contains(QLatin1Char('\n'));
    sinceTyped_.start();
    return ended ? TextBox::Typing::KeyByKeyAnew : TextBox::Typing::KeyByKey;
}

void TextBoxWidget::ReplaceBy(int from, int to, const QString& text, TextBox::Typing how)
{
    const std::size_t begin = ModelPosition(known_, from);
    Text whole = known_;
    whole.replace(begin, ModelPosition(TextView(known_).substr(begin), to - from), FromQt(text));
    Change(std::move(whole), begin + static_cast<std::size_t>(text.size()), Noted::AsChange, how);
}

QString TextBoxWidget::Kept(int from, int to) const
{
    const std::size_t begin = ModelPosition(known_, from);
    const TextView behind = TextView(known_).substr(begin);
    return ToQt(behind.substr(0, ModelPosition(behind, to - from)));
}

bool TextBoxWidget::CanUndo() const { return Surface().History ? Surface().History->CanUndo() : history_.CanUndo(); }

bool TextBoxWidget::CanRedo() const { return Surface().History ? Surface().History->CanRedo() : history_.CanRedo(); }

void TextBoxWidget::Undo()
{
    if (Surface().History)
        Surface().History->Undo();
    else if (std::optional<EditHistory::Step> step = history_.Undo(known_))
        Change(std::move(step->Whole), step->Caret, Noted::Already);
}

void TextBoxWidget::Redo()
{
    if (Surface().History)
        Surface().History->Redo();
    else if (std::optional<EditHistory::Step> step = history_.Redo(known_))
        Change(std::move(step->Whole), step->Caret, Noted::Already);
}

// An assistive tool, or a drag to another program, has changed the editor itself.
void TextBoxWidget::TakeOverEdit()
{
    if (showing_)
        return;
    const QString now = widget_->WholeText();
    const QString shown = ShownText(known_);
    if (now == shown)
        return;
    Text whole = EditedText(known_, shown, now);
    const std::size_t caret = ModelPosition(whole, widget_->textCursor().position());
    Change(std::move(whole), caret, Noted::AsChange);
}

bool TextBoxWidget::HandleKey(QKeyEvent& event)
{
    // A plain tab belongs to the text; with control it moves on, as the scripts' own keys do.
    const bool tab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    const bool moves = tab && (event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
    if (!moves)
        return false;
    Surface().MoveFocusByTab(event.key() == Qt::Key_Tab && !(event.modifiers() & Qt::ShiftModifier));
    return true;
}

bool TextBoxWidget::HandleMousePress(QMouseEvent& /*event*/, bool /*twice*/) { return !Surface().FocusFor(box_); }

// Every button brings the focus, since each can change the text: by the menu, or by the selection of the mouse.
bool TextBoxWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress && watched == widget_->viewport() &&
        static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton && !Surface().FocusFor(box_))
        return true;
    return ViewWidget::eventFilter(watched, event);
}

} // namespace rulemesh
