#pragma once

#include <QElapsedTimer>

#include "desktop/edit_history.h"
#include "desktop/passive_edit.h"
#include "desktop/shown_text.h"
#include "desktop/view_widget.h"
#include "views/text_box.h"

namespace rulemesh {

class ScriptHighlighter;

/// A text box on the screen. The model keeps the text with its own line ends, and what the user does is done there: the
/// editor shows the outcome. Enter adds a carriage return and a line feed.
class TextBoxWidget : public ViewWidget, private PassiveEdit::Owner {
public:
    TextBoxWidget(ViewSurface& surface, TextBox& box, QWidget& parent);
    ~TextBoxWidget() override;
    [[nodiscard]] QWidget& Widget() override;
    [[nodiscard]] PassiveEdit& Editor() noexcept { return *widget_; }
    void Sync() override;

protected:
    bool HandleKey(QKeyEvent& event) override;
    bool HandleMousePress(QMouseEvent& event, bool twice) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Replace(int from, int to, const QString& text) override;
    void Type(int from, int to, const QString& text) override;
    [[nodiscard]] QString Kept(int from, int to) const override;
    void Undo() override;
    void Redo() override;
    [[nodiscard]] bool CanUndo() const override;
    [[nodiscard]] bool CanRedo() const override;

    void ChooseBars();
    void TakeOverEdit();
    enum class Noted { AsChange, Already };
    void Change(Text text, std::size_t caret, Noted noted, TextBox::Typing how = TextBox::Typing::AtOnce);
    void ReplaceBy(int from, int to, const QString& text, TextBox::Typing how);
    [[nodiscard]] TextBox::Typing HowTyped(const QString& text);
    void ShowText();
    void ShowKnown();
    void PutCaret(std::size_t caret);
    void StandOnGridRow();

    TextBox& box_;
    SyntaxBox* script_; // the same box, when it colours its text
    std::unique_ptr<PassiveEdit> widget_;
    std::unique_ptr<ScriptHighlighter> highlighter_;
    Text known_;          // the model's text that the editor shows
    EditHistory history_; // of a form that has none of its own
    QElapsedTimer sinceTyped_;
    bool lineEnded_ = false; // a line end was typed last
    unsigned caretMoves_ = 0;
    bool showing_ = false;
};

} // namespace rulemesh
