#pragma once

#include <algorithm>
#include <memory>

#include "views/view.h"

namespace rulemesh {

/// A multi-line text box. Keeps line ends as they are given.
class TextBox : public View {
public:
    TextBox(ViewTree& tree, const ViewDesign& design) : TextBox(tree, ViewKind::Text, design) {}

    [[nodiscard]] const rulemesh::Text& Text() const noexcept { return *text_; }
    void Text(rulemesh::Text text);

    /// The text as it is now; a later change leaves it as it is.
    [[nodiscard]] std::shared_ptr<const rulemesh::Text> SharedText() const noexcept { return text_; }

    [[nodiscard]] bool Locked() const noexcept { return locked_; }
    void Locked(bool locked)
    {
        locked_ = locked;
        Changed();
    }

    /// Characters in front of the caret. A position past the end means the end.
    [[nodiscard]] std::size_t SelStart() const noexcept { return caret_; }
    void SelStart(std::size_t position)
    {
        caret_ = std::min(position, text_->size());
        ++caretMoves_;
        Changed();
    }

    /// Counts the times that the program placed the caret, so that a front end can tell them from the user's moves.
    [[nodiscard]] unsigned CaretMoves() const noexcept { return caretMoves_; }

    /// The user replaces the whole text in one change. A locked box keeps its text. What is typed key by key goes on
    /// with the step before, unless it begins one.
    enum class Typing { AtOnce, KeyByKey, KeyByKeyAnew };
    void UserTypes(rulemesh::Text text, Typing how = Typing::AtOnce);

    Slot Change;

protected:
    TextBox(ViewTree& tree, ViewKind kind, const ViewDesign& design) : View(tree, kind, design) {}

    /// The form in which the box keeps a text.
    [[nodiscard]] virtual rulemesh::Text Kept(rulemesh::Text text) const { return text; }

    [[nodiscard]] std::unique_ptr<ViewValues> CopyOwnValues() const override
    {
        return CopyOf(std::tie(text_, caret_, locked_), text_->size() * sizeof(char16_t));
    }
    void PutOwnValuesBack(const ViewValues& values) override
    {
        PutBack(values, std::tie(text_, caret_, locked_));
        ++caretMoves_;
    }

private:
    std::shared_ptr<const rulemesh::Text> text_ = std::make_shared<const rulemesh::Text>();
    std::size_t caret_ = 0;
    unsigned caretMoves_ = 0;
    bool locked_ = false;
};

/// A text box that colours a script. Folds several carriage returns in front of a line feed into one, so that a script
/// doesn't grow each time it is shown; a bare line feed stays bare.
class SyntaxBox : public TextBox {
public:
    SyntaxBox(ViewTree& tree, const ViewDesign& design) : TextBox(tree, ViewKind::Syntax, design) {}

    [[nodiscard]] bool Highlight() const noexcept { return highlight_; }
    void Highlight(bool highlight)
    {
        highlight_ = highlight;
        Changed();
    }

protected:
    [[nodiscard]] rulemesh::Text Kept(rulemesh::Text text) const override;

private:
    bool highlight_ = false;
};

} // namespace rulemesh
