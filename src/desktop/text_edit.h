#pragma once

#include <functional>

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

    /// Puts a text with line ends of its own, pasted or from an input method, in the place of what stands from one
    /// position up to another.
    std::function<void(int from, int to, const QString& text)> OnInsert;

    /// A stretch of the text with its own line ends, for the clipboard.
    std::function<QString(int from, int to)> OnCopy;

protected:
    void insertFromMimeData(const QMimeData* source) override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    void inputMethodEvent(QInputMethodEvent* event) override;
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
