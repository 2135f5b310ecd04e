#pragma once

#include <optional>

#include <QKeyEvent>
#include <QTextCursor>

namespace rulemesh {

/// What a key puts in the place of what stands from one position of a shown text up to another.
struct KeyedChange {
    int From = 0;
    int To = 0;
    QString Text;
};

/// The change that a key makes to the text under a caret; none for a key that changes nothing by itself. A key that is
/// held with Alt alone, Ctrl alone or Meta types nothing; Alt Gr, which comes as Ctrl and Alt or by itself, types.
[[nodiscard]] std::optional<KeyedChange> ChangeByKey(const QKeyEvent& event, const QTextCursor& cursor);

} // namespace rulemesh
