#pragma once

#include <QAbstractTableModel>
#include <QTableView>

#include "desktop/shown_selection.h"
#include "desktop/view_widget.h"
#include "views/grid.h"

namespace rulemesh {

/// Reads the cells of a Grid on demand.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    GridModel(Grid& grid, QObject* parent);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

    /// Tells the view that the number of rows has changed, if it has, and that every cell may have.
    void Refresh();

private:
    Grid& grid_;
    int rows_ = 0;
};

/// A grid on the screen. Current cell and scroll place are the model's: no event reaches the toolkit's own ways of
/// selecting, and whatever scrolls does so by the user's entrance.
class GridWidget : public ViewWidget {
public:
    GridWidget(ViewSurface& surface, Grid& grid, QWidget& parent);
    ~GridWidget() override;
    [[nodiscard]] QWidget& Widget() override { return *widget_; }
    [[nodiscard]] QTableView& Table() noexcept { return *widget_; }
    void Sync() override;

protected:
    bool HandleKey(QKeyEvent& event) override;
    bool HandleMousePress(QMouseEvent& event, bool twice) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool MoveByKey(const QKeyEvent& event);
    void ClickCell(GridRow row, int col, Grid::Clicks clicks);

    Grid& grid_;
    std::unique_ptr<QTableView> widget_;
    GridModel model_;
    ShownSelection selection_;
    QPoint pressedAt_;
    QPoint pressedCell_; // column and row of the last press
};

} // namespace rulemesh
