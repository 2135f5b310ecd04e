#pragma once

#include <QAbstractTableModel>
#include <QTreeView>

#include "desktop/view_widget.h"
#include "views/list_view.h"

namespace rulemesh {

/// Reads the rows of a ListView on demand.
class ListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    ListModel(ListView& list, QObject* parent);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// A screen reader's way to tick a row.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    std::function<void(int row, bool checked)> OnTick;

    /// Tells the view that rows came, went or moved; false when none did since the last call.
    bool TakeRowChanges();

private:
    ListView& list_;
    int rows_ = 0;
    unsigned rowChanges_ = 0;
};

class ListWidget : public ViewWidget {
public:
    ListWidget(ViewSurface& surface, ListView& list, QWidget& parent);
    [[nodiscard]] QWidget& Widget() override { return *widget_; }
    [[nodiscard]] QTreeView& Tree() noexcept { return *widget_; }
    void Sync() override;

    /// The place of a row's check box in the list's viewport.
    [[nodiscard]] QRect CheckBoxOf(int row) const;

protected:
    bool HandleKey(QKeyEvent& event) override;
    bool HandleMousePress(QMouseEvent& event, bool twice) override;

private:
    void ClickRow(int row);
    void SyncSelection();
    [[nodiscard]] int CurrentRow() const;
    [[nodiscard]] int RowFor(int key) const;

    ListView& list_;
    std::unique_ptr<QTreeView> widget_;
    ListModel model_;
    std::vector<int> columnWidths_; // twips, as they were brought to the header last
};

} // namespace rulemesh
