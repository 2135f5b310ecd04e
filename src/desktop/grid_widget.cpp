#include "desktop/grid_widget.h"

#include <algorithm>

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include "desktop/qt_text.h"

namespace rulemesh {

namespace {

// A table that scrolls until its last row is on top, row by row.
class LastRowOnTopTable : public QTableView {
public:
    using QTableView::QTableView;

    int Top = 0; // the row that is on top

protected:
    void updateGeometries() override
    {
        const QSignalBlocker blocker(verticalScrollBar());
        QTableView::updateGeometries();
        const int rows = model() == nullptr ? 0 : model()->rowCount();
        verticalScrollBar()->setRange(0, std::max(rows - 1, 0));
        verticalScrollBar()->setValue(Top);
        verticalHeader()->setOffsetToSectionPosition(Top);
    }
};

// A rule of several lines shows its first one.
class FirstLineDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QString displayText(const QVariant& value, const QLocale& /*locale*/) const override
    {
        const QString text = value.toString();
        const auto lineEnd = std::find_if(text.begin(), text.end(), [](QChar character) {
            return character == QLatin1Char('\r') || character == QLatin1Char('\n');
        });
        return lineEnd == text.end() ? text : text.left(lineEnd - text.begin()) + QStringLiteral(" …");
    }
};

} // namespace

GridModel::GridModel(Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Grid::ColumnCount; }

QVariant GridModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= grid_.Rows())
        return {};
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return ToQt(grid_.TextMatrix(index.row(), index.column()));
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

void GridModel::Refresh()
{
    if (rows_ != grid_.Rows()) {
        beginResetModel();
        rows_ = grid_.Rows();
        endResetModel();
    } else if (rows_ > 0) {
        emit dataChanged(index(0, 0), index(rows_ - 1, Grid::ColumnCount - 1));
    }
}

GridWidget::GridWidget(ViewSurface& surface, Grid& grid, QWidget& parent)
    : ViewWidget(surface, grid), grid_(grid), widget_(std::make_unique<LastRowOnTopTable>(&parent)),
      model_(grid, nullptr)
{
    Adopt(*widget_, widget_->viewport());
    widget_->setModel(&model_);
    widget_->setItemDelegate(new FirstLineDelegate(widget_.get()));
    widget_->setFrameShape(QFrame::NoFrame);
    widget_->horizontalHeader()->hide();
    widget_->verticalHeader()->hide();
    widget_->horizontalHeader()->setMinimumSectionSize(0);
    widget_->verticalHeader()->setMinimumSectionSize(0);
    widget_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    widget_->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    widget_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    widget_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    widget_->setSelectionMode(QAbstractItemView::SingleSelection);
    widget_->setSelectionBehavior(QAbstractItemView::SelectItems);
    widget_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    widget_->setTabKeyNavigation(false);
    widget_->setAlternatingRowColors(true);
    widget_->setAutoScroll(false);
    widget_->setWordWrap(false);
    connect(widget_->verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this](int row) { Surface().Act([&] { grid_.UserScrolls(row); }); });
}

GridWidget::~GridWidget() = default;

void GridWidget::Sync()
{
    ViewWidget::Sync();
    auto& table = static_cast<LastRowOnTopTable&>(*widget_);
    const QSignalBlocker blocker(table.verticalScrollBar());
    table.verticalHeader()->setDefaultSectionSize(Surface().Pixels(Grid::RowHeight));
    model_.Refresh();
    for (int col = 0; col < Grid::ColumnCount; ++col)
        table.horizontalHeader()->resizeSection(col, Surface().Pixels(grid_.ColWidth(col)));
    const QModelIndex current = model_.index(grid_.Row(), grid_.Col());
    table.selectionModel()->setCurrentIndex(current, QItemSelectionModel::ClearAndSelect);
    table.Top = grid_.TopRow();
    table.verticalScrollBar()->setRange(0, std::max(grid_.Rows() - 1, 0));
    table.verticalScrollBar()->setValue(table.Top);
    table.verticalHeader()->setOffsetToSectionPosition(table.Top);
    table.viewport()->update();
}

// Keys that move the current cell by themselves; the row that becomes current is brought into sight.
bool GridWidget::MoveByKey(int key)
{
    const int page = std::max(1, grid_.Height() / Grid::RowHeight - 1);
    int row = grid_.Row();
    int col = grid_.Col();
    switch (key) {
    case Qt::Key_Up:
        --row;
        break;
    case Qt::Key_Down:
        ++row;
        break;
    case Qt::Key_PageUp:
        row -= page;
        break;
    case Qt::Key_PageDown:
        row += page;
        break;
    case Qt::Key_Home:
        row = 0;
        break;
    case Qt::Key_End:
        row = grid_.Rows() - 1;
        break;
    case Qt::Key_Left:
        col = 0;
        break;
    case Qt::Key_Right:
        col = 1;
        break;
    default:
        return false;
    }
    if (grid_.Rows() == 0)
        return true;
    Surface().Act([&] {
        grid_.Row(std::clamp(row, 0, grid_.Rows() - 1));
        grid_.Col(col);
        if (!grid_.RowIsVisible(grid_.Row()))
            grid_.TopRow(grid_.Row() < grid_.TopRow() ? grid_.Row()
                                                      : grid_.Row() - grid_.Height() / Grid::RowHeight + 1);
    });
    return true;
}

bool GridWidget::HandleKey(QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    if (event.key() == Qt::Key_Tab && modifiers == Qt::NoModifier) {
        Surface().Act([&] { grid_.UserPresses(u'\t'); });
        return true;
    }
    if (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab) {
        Surface().MoveFocusByTab(event.key() == Qt::Key_Tab && !(modifiers & Qt::ShiftModifier));
        return true;
    }
    if (MoveByKey(event.key()))
        return true;
    const bool command = (modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    const QString text = event.text();
    if (command || text.isEmpty())
        return false;
    Surface().Act([&] { grid_.UserPresses(static_cast<std::int16_t>(text.at(0).unicode())); });
    return true;
}

bool GridWidget::HandleMousePress(QMouseEvent& event, bool twice)
{
    const QModelIndex index = widget_->indexAt(event.position().toPoint());
    if (!index.isValid())
        Surface().FocusFor(grid_);
    else
        Surface().Act([&] {
            grid_.UserClicksCell(index.row(), index.column(), twice ? Grid::Clicks::Second : Grid::Clicks::Single);
        });
    return true;
}

} // namespace rulemesh
