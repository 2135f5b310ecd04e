#pragma once

#include <QElapsedTimer>
#include <QTreeView>

#include "desktop/list_model.h"
#include "desktop/shown_selection.h"
#include "desktop/view_widget.h"

namespace rulemesh {

/// A list on the screen. Selection, current row and ticks are the model's: no event reaches the toolkit's own ways of
/// selecting.
class ListWidget : public ViewWidget {
public:
    ListWidget(ViewSurface& surface, ListView& list, QWidget& parent);
    ~ListWidget() override;
    [[nodiscard]] QWidget& Widget() override;
    [[nodiscard]] QTreeView& Tree() noexcept;
    void Sync() override;

    /// The place of a row's check box in the list's viewport.
    [[nodiscard]] QRect CheckBoxOf(ListRow row) const;

protected:
    bool HandleKey(QKeyEvent& event) override;
    bool HandleMousePress(QMouseEvent& event, bool twice) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class RowTree;

    /// Goes to a row as a click does, or as one with shift or control.
    void GoToRow(ListRow row, Qt::KeyboardModifiers modifiers, void (ListView::*withControl)(ListRow));
    void SetTick(ListRow row, bool checked);
    void ShowRow(ListRow row);
    void SyncSelection();
    void TypeAhead(const QString& text);
    void FollowWish(ListRow row, ShownSelection::Wish wish);
    [[nodiscard]] ListRow RowFor(int key) const;

    ListView& list_;
    std::unique_ptr<RowTree> widget_;
    ListModel model_;
    ShownSelection selection_;
    std::vector<int> columnWidths_; // twips, as they were brought to the header last
    QString typed_;                 // what is being typed ahead
    QElapsedTimer sinceTyped_;
    QPoint pressedAt_;
    std::function<void()> pressed_; // what the last press did
};

} // namespace rulemesh
