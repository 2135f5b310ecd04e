#pragma once

#include <QPlainTextEdit>

namespace rulemesh {

/// A plain text editor that can show line numbers and marks the current line while it has the focus.
class TextEdit : public QPlainTextEdit {
    Q_OBJECT

public:
    enum class LineNumbers { Hidden, Shown };

    TextEdit(LineNumbers numbers, QWidget* parent);

    /// The whole text, soft line breaks kept apart from line feeds.
    [[nodiscard]] QString WholeText() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    class NumberArea;

    [[nodiscard]] int NumberWidth() const;
    void PlaceNumberArea();
    void PaintNumbers(QPaintEvent& event);
    void MarkCurrentLine();

    NumberArea* numbers_ = nullptr; // owned as a child; none when hidden
};

} // namespace rulemesh
