#include "desktop/grid_widget.h"

#include <algorithm>

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include "desktop/key_codes.h"
#include "desktop/qt_text.h"

namespace rulemesh {

namespace {

// A table that scrolls until its last row is on top, row by row, and never sideways. Input methods may type into it.
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
        horizontalScrollBar()->setRange(0, 0);
    }

    void focusInEvent(QFocusEvent* event) override
    {
        QTableView::focusInEvent(event);
        setAttribute(Qt::WA_InputMethodEnabled);
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
        return static_cast<int>(Qt::AlignLeft | (index.column() == 0 ? Qt::AlignVCenter : Qt::AlignTop));
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
      model_(grid, nullptr), selection_(model_)
{
    Adopt(*widget_, widget_->viewport());
    widget_->setModel(&model_);
    widget_->setSelectionModel(&selection_);
    selection_.OnWish = [this](const QModelIndex& index, ShownSelection::Wish wish) {
        if (wish != ShownSelection::Wish::Deselect)
            ClickCell(index.row(), index.column(), Grid::Clicks::Single);
    };
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
    const QModelIndex current = model_.index(grid_.Row().Number(), grid_.Col());
    selection_.Show(current, QItemSelection(current, current));
    table.setAttribute(Qt::WA_InputMethodEnabled);
    table.Top = grid_.TopRow().Number();
    table.verticalScrollBar()->setRange(0, std::max(grid_.Rows() - 1, 0));
    table.verticalScrollBar()->setValue(table.Top);
    table.verticalHeader()->setOffsetToSectionPosition(table.Top);
    table.viewport()->update();
}

// Keys that move the current cell by themselves; the row that becomes current is brought into sight.
bool GridWidget::MoveByKey(const QKeyEvent& event)
{
    if ((event.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) != 0)
        return false;
    const int page = std::max(1, grid_.Places().CountIn(grid_.Height()) - 1);
    GridRow row = grid_.Row();
    int col = grid_.Col();
    switch (event.key()) {
    case Qt::Key_Up:
        row = row - 1;
        break;
    case Qt::Key_Down:
        ++row;
        break;
    case Qt::Key_PageUp:
        row = row - page;
        break;
    case Qt::Key_PageDown:
        row = row + page;
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
    Surface().Act([&] { grid_.UserMovesTo(row, col); });
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
    if (event.matches(QKeySequence::Copy))
        return false; // copying selects nothing
    if (MoveByKey(event))
        return true;
    const QString character = CharacterOf(event);
    if (character.isEmpty())
        event.ignore(); // not the grid's; the widgets around may have a use for it
    else
        Surface().Act([&] { grid_.UserTypes(FromQt(character)); });
    return true;
}

// A row that is drawn in part is scrolled into sight first.
void GridWidget::ClickCell(GridRow row, int col, Grid::Clicks clicks)
{
    Surface().Act([&] {
        grid_.UserScrollsToShow(row);
        grid_.UserClicksCell(row, col, clicks);
    });
}

bool GridWidget::HandleMousePress(QMouseEvent& event, bool twice)
{
    const QPoint at = event.position().toPoint();
    const QModelIndex index = widget_->indexAt(at);
    if (!index.isValid()) {
        Surface().FocusFor(grid_);
        return true;
    }
    // The first press may have scrolled; the second one of a double click is for the same cell.
    const bool again = twice && (at - pressedAt_).manhattanLength() <= QApplication::startDragDistance();
    if (!again)
        pressedCell_ = {index.column(), index.row()};
    pressedAt_ = at;
    ClickCell(pressedCell_.y(), pressedCell_.x(), twice ? Grid::Clicks::Second : Grid::Clicks::Single);
    return true;
}

bool GridWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget_.get() && event->type() == QEvent::InputMethod) {
        const QString text = static_cast<QInputMethodEvent*>(event)->commitString();
        if (IsPrintable(text))
            Surface().Act([&] { grid_.UserTypes(FromQt(text)); });
        return true;
    }
    const bool taken = ViewWidget::eventFilter(watched, event);
    return taken || (watched == widget_->viewport() && IsOfMouse(*event));
}

} // namespace rulemesh
