#include "views/text_box.h"

#include <algorithm>
#include <utility>

#include "views/view_tree.h"

namespace rulemesh {

void TextBox::Text(rulemesh::Text text)
{
    text_ = std::make_shared<const rulemesh::Text>(Kept(std::move(text)));
    caret_ = 0;
    Changed();
    Run(Change);
}

void TextBox::UserTypes(rulemesh::Text text, Typing how)
{
    const Action::Kind kind = how == Typing::AtOnce     ? Action::Kind::Step
                              : how == Typing::KeyByKey ? Action::Kind::Typing
                                                        : Action::Kind::TypingAnew;
    const ActionScope action(Tree().Acting, {kind, u"Typing", how == Typing::AtOnce ? nullptr : this});
    if (!Tree().MoveFocus(*this) || locked_)
        return;
    Text(std::move(text));
    caret_ = text_->size();
    ChangedUnseen();
}

rulemesh::Text SyntaxBox::Kept(rulemesh::Text text) const
{
    std::size_t kept = 0;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t returnsEnd = at;
        while (returnsEnd < text.size() && text[returnsEnd] == u'\r')
            ++returnsEnd;
        const bool folds = returnsEnd > at + 1 && returnsEnd < text.size() && text[returnsEnd] == u'\n';
        if (folds)
            at = returnsEnd - 1;
        const std::size_t end = std::max(returnsEnd, at + 1);
        while (at < end)
            text[kept++] = text[at++];
    }
    text.resize(kept);
    return text;
}

} // namespace rulemesh
