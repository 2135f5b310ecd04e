#pragma once

#include <map>

#include "desktop/view_widget.h"
#include "views/text_box.h"

namespace rulemesh {

class ScriptHighlighter;
class TextEdit;

/// A text box on the screen. The model keeps the text with its own line ends: the editor shows one line end for each,
/// and what the user changes there is changed at the same place of the model's text. Enter adds a carriage return and
/// a line feed.
class TextWidget : public ViewWidget {
public:
    TextWidget(ViewSurface& surface, TextBox& box, QWidget& parent);
    ~TextWidget() override;
    [[nodiscard]] QWidget& Widget() override;
    [[nodiscard]] TextEdit& Editor() noexcept { return *widget_; }
    void Sync() override;

protected:
    bool HandleKey(QKeyEvent& event) override;
    bool HandleMousePress(QMouseEvent& event, bool twice) override;

private:
    void TakeOverEdit();
    void Insert(int from, int to, const QString& text);
    void ShowText();
    void StandOnGridRow();
    void Remember();

    TextBox& box_;
    SyntaxBox* script_; // the same box, when it colours its text
    std::unique_ptr<TextEdit> widget_;
    std::unique_ptr<ScriptHighlighter> highlighter_;
    QString shown_;
    std::map<int, Text> lineEnds_; // texts with line ends of several kinds, by the steps of the editor's undo
    unsigned caretMoves_ = 0;
    bool syncing_ = false;
};

/// A model's text as the editor shows it: each carriage return and line feed as one line feed, a carriage return alone
/// as a soft line break, and whatever else an editor takes for the end of a paragraph as a line feed.
[[nodiscard]] QString ShownText(TextView text);

/// The place in a model's text of a place in what is shown of it.
[[nodiscard]] std::size_t ModelPosition(TextView text, qsizetype shownPosition);

/// The model's text after the user changed what is shown from `before` to `after`.
[[nodiscard]] Text EditedText(TextView text, const QString& before, const QString& after);

} // namespace rulemesh
