#pragma once

#include <QPlainTextEdit>

namespace rulemesh {

/// A plain text editor that can show line numbers and marks the current line while it has the focus.
///
/// It changes nothing by itself: what keys, input methods, the clipboard, drops and the menu ask for goes to its owner,
/// who changes what is shown.
class PassiveEdit : public QPlainTextEdit {
    Q_OBJECT

public:
    enum class LineNumbers { Hidden, Shown };

    /// Who holds the text. Positions are those of what is shown.
    class Owner {
    public:
        virtual ~Owner() = default;

        /// The user puts a text, with line ends of its own, in the place of what stands from one position up to
        /// another.
        virtual void Replace(int from, int to, const QString& text) = 0;

        /// The same by a key or an input method, which may go on with what was typed before.
        virtual void Type(int from, int to, const QString& text) = 0;

        /// A stretch of the text as the owner keeps it.
        [[nodiscard]] virtual QString Kept(int from, int to) const = 0;

        /// The user takes back the last change, or does it again.
        virtual void Undo() = 0;
        virtual void Redo() = 0;
        [[nodiscard]] virtual bool CanUndo() const = 0;
        [[nodiscard]] virtual bool CanRedo() const = 0;
    };

    PassiveEdit(LineNumbers numbers, Owner& owner, QWidget* parent);

    /// The whole text, soft line breaks kept apart from line feeds.
    [[nodiscard]] QString WholeText() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    class NumberArea;

    void ReplaceSelection(const QString& text);
    [[nodiscard]] int NumberWidth() const;
    void PlaceNumberArea();
    void PaintNumbers(QPaintEvent& event);
    void MarkCurrentLine();

    Owner& owner_;
    NumberArea* numbers_ = nullptr; // owned as a child; none when hidden
};

} // namespace rulemesh
