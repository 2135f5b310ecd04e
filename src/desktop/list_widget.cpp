#include "desktop/list_widget.h"

#include <algorithm>

#include <QHeaderView>
#include <QItemSelection>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include "desktop/qt_text.h"

namespace rulemesh {

namespace {

// Selection and ticks are the model's; the tree draws them and decides nothing.
class RowTree : public QTreeView {
public:
    using QTreeView::QTreeView;

    [[nodiscard]] QStyleOptionViewItem ItemOption() const
    {
        QStyleOptionViewItem option;
        initViewItemOption(&option);
        return option;
    }
};

} // namespace

ListModel::ListModel(ListView& list, QObject* parent) : QAbstractTableModel(parent), list_(list) {}

int ListModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int ListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(list_.Columns().size());
}

QVariant ListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= list_.Count())
        return {};
    const int row = index.row() + 1;
    switch (role) {
    case Qt::DisplayRole:
        return ToQt(list_.At(row).TextAt(index.column()));
    case Qt::ToolTipRole:
        if (index.column() == list_.ToolTipPosition())
            return ToQt(list_.At(row).TextAt(index.column()));
        return {};
    case Qt::CheckStateRole:
        if (list_.HasCheckBoxes() && index.column() == 0)
            return list_.At(row).Checked ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::TextAlignmentRole:
        if (list_.Columns()[static_cast<std::size_t>(index.column())].RightAligned)
            return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    default:
        return {};
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const ListView::Column& column = list_.Columns()[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole)
        return ToQt(column.Caption);
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>((column.RightAligned ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    return {};
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (list_.HasCheckBoxes() && index.column() == 0)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

bool ListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || !list_.HasCheckBoxes() || index.column() != 0)
        return false;
    OnTick(index.row() + 1, value.toInt() == Qt::Checked);
    return true;
}

bool ListModel::TakeRowChanges()
{
    if (rowChanges_ == list_.RowChanges() && rows_ == list_.Count())
        return false;
    beginResetModel();
    rowChanges_ = list_.RowChanges();
    rows_ = list_.Count();
    endResetModel();
    return true;
}

ListWidget::ListWidget(ViewSurface& surface, ListView& list, QWidget& parent)
    : ViewWidget(surface, list), list_(list), widget_(std::make_unique<RowTree>(&parent)), model_(list, nullptr)
{
    Adopt(*widget_, widget_->viewport());
    widget_->setModel(&model_);
    widget_->setRootIsDecorated(false);
    widget_->setUniformRowHeights(true);
    widget_->setAllColumnsShowFocus(true);
    widget_->setAlternatingRowColors(list.Columns().size() > 1);
    widget_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    widget_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    widget_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    widget_->setTabKeyNavigation(false);
    QHeaderView& header = *widget_->header();
    const bool oneColumn = list.Columns().size() == 1;
    header.setStretchLastSection(oneColumn);
    if (oneColumn)
        widget_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    header.setMinimumSectionSize(0);
    header.setSectionsMovable(false);
    header.setSectionsClickable(list.Columns().size() > 1);
    header.setFocusPolicy(Qt::NoFocus);
    connect(&header, &QHeaderView::sectionClicked, this,
            [this](int section) { Surface().Act([&] { list_.UserClicksHeader(section + 1); }); });
    model_.OnTick = [this](int row, bool checked) { Surface().Act([&] { list_.UserTicks(row, checked); }); };
}

void ListWidget::Sync()
{
    ViewWidget::Sync();
    const bool rowsChanged = model_.TakeRowChanges();
    const std::vector<ListView::Column>& columns = list_.Columns();
    columnWidths_.resize(columns.size(), -1);
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const int section = static_cast<int>(column);
        if (columnWidths_[column] == columns[column].Width)
            continue; // the user's own width stays
        columnWidths_[column] = columns[column].Width;
        widget_->header()->setSectionHidden(section, columns[column].Width == 0);
        if (columns.size() > 1)
            widget_->header()->resizeSection(section, Surface().Pixels(columns[column].Width));
    }
    if (list_.Sorted() && columns.size() > 1) {
        const bool ascending = list_.SortOrder() == ListView::Order::Ascending;
        const QSignalBlocker blocker(widget_->header());
        widget_->header()->setSortIndicatorShown(true);
        widget_->header()->setSortIndicator(list_.SortKey(), ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    }
    SyncSelection();
    if (!rowsChanged)
        widget_->viewport()->update();
    const int row = list_.TakeScrollRequest();
    if (row > 0 && row <= list_.Count())
        widget_->scrollTo(model_.index(row - 1, widget_->header()->logicalIndexAt(0)));
}

void ListWidget::SyncSelection()
{
    QItemSelection selection;
    int first = 0;
    for (int row = 1; row <= list_.Count(); ++row) {
        if (!list_.At(row).Selected)
            continue;
        if (first == 0)
            first = row;
        selection.select(model_.index(row - 1, 0), model_.index(row - 1, model_.columnCount() - 1));
    }
    QItemSelectionModel& selected = *widget_->selectionModel();
    selected.select(selection, QItemSelectionModel::ClearAndSelect);
    if (first != 0 && !selected.isRowSelected(selected.currentIndex().row(), {}))
        selected.setCurrentIndex(model_.index(first - 1, 0), QItemSelectionModel::NoUpdate);
}

int ListWidget::CurrentRow() const { return widget_->currentIndex().row() + 1; }

void ListWidget::ClickRow(int row)
{
    widget_->selectionModel()->setCurrentIndex(model_.index(row - 1, 0), QItemSelectionModel::NoUpdate);
    Surface().Act([&] { list_.UserClicksRow(row); });
    if (row <= list_.Count())
        widget_->scrollTo(model_.index(row - 1, widget_->header()->logicalIndexAt(0)));
}

// The row that a key leads to from the current one, 0 for a key that leads nowhere.
int ListWidget::RowFor(int key) const
{
    const int page = std::max(1, widget_->viewport()->height() / std::max(1, widget_->sizeHintForRow(0)) - 1);
    const auto within = [&](int row) { return std::clamp(row, 1, list_.Count()); };
    switch (key) {
    case Qt::Key_Up:
        return within(CurrentRow() - 1);
    case Qt::Key_Down:
        return within(CurrentRow() + 1);
    case Qt::Key_PageUp:
        return within(CurrentRow() - page);
    case Qt::Key_PageDown:
        return within(CurrentRow() + page);
    case Qt::Key_Home:
        return 1;
    case Qt::Key_End:
        return list_.Count();
    default:
        return 0;
    }
}

bool ListWidget::HandleKey(QKeyEvent& event)
{
    if (list_.Count() == 0)
        return false;
    if (event.key() == Qt::Key_Space && list_.HasCheckBoxes() && CurrentRow() > 0) {
        const int row = CurrentRow();
        const bool checked = !list_.At(row).Checked;
        Surface().Act([&] { list_.UserTicks(row, checked); });
        return true;
    }
    const int row = RowFor(event.key());
    if (row == 0)
        return false;
    ClickRow(row);
    return true;
}

QRect ListWidget::CheckBoxOf(int row) const
{
    const QModelIndex index = model_.index(row - 1, 0);
    QStyleOptionViewItem option = static_cast<const RowTree&>(*widget_).ItemOption();
    option.rect = widget_->visualRect(index);
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    return widget_->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, widget_.get());
}

bool ListWidget::HandleMousePress(QMouseEvent& event, bool /*twice*/)
{
    const QModelIndex index = widget_->indexAt(event.position().toPoint());
    if (!index.isValid()) {
        Surface().FocusFor(list_);
        return true;
    }
    const int row = index.row() + 1;
    if (list_.HasCheckBoxes() && index.column() == 0 && CheckBoxOf(row).contains(event.position().toPoint())) {
        const bool checked = !list_.At(row).Checked;
        Surface().Act([&] { list_.UserTicks(row, checked); });
    } else {
        ClickRow(row);
    }
    return true;
}

} // namespace rulemesh
