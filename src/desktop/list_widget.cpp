#include "desktop/list_widget.h"

#include <algorithm>

#include <QApplication>
#include <QHeaderView>
#include <QItemSelection>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include "desktop/key_codes.h"
#include "desktop/qt_text.h"

namespace rulemesh {

class ListWidget::RowTree : public QTreeView {
public:
    using QTreeView::QTreeView;

    std::function<void(const QString&)> OnTypeAhead;

    [[nodiscard]] QStyleOptionViewItem ItemOption() const
    {
        QStyleOptionViewItem option;
        initViewItemOption(&option);
        return option;
    }

    void keyboardSearch(const QString& text) override { OnTypeAhead(text); }
};

ListWidget::ListWidget(ViewSurface& surface, ListView& list, QWidget& parent)
    : ViewWidget(surface, list), list_(list), widget_(std::make_unique<RowTree>(&parent)), model_(list, nullptr),
      selection_(model_)
{
    Adopt(*widget_, widget_->viewport());
    widget_->setModel(&model_);
    widget_->setSelectionModel(&selection_);
    widget_->setRootIsDecorated(false);
    widget_->setUniformRowHeights(true);
    widget_->setAllColumnsShowFocus(true);
    widget_->setAlternatingRowColors(list.Columns().size() > 1);
    widget_->setSelectionMode(list.TakesSeveral() ? QAbstractItemView::ExtendedSelection
                                                  : QAbstractItemView::SingleSelection);
    widget_->setAutoScroll(false);
    widget_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    widget_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    widget_->setTabKeyNavigation(false);
    QFont font = widget_->font();
    font.setBold(list.Type().Bold);
    widget_->setFont(font);
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
    model_.OnTick = [this](ListRow row, bool checked) { SetTick(row, checked); };
    selection_.OnWish = [this](const QModelIndex& index, ShownSelection::Wish wish) {
        FollowWish(ListModel::RowOf(index), wish);
    };
    widget_->OnTypeAhead = [this](const QString& text) { TypeAhead(text); };
}

ListWidget::~ListWidget() = default;

QWidget& ListWidget::Widget() { return *widget_; }

QTreeView& ListWidget::Tree() noexcept { return *widget_; }

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
    ShowRow(list_.TakeScrollRequest());
}

void ListWidget::SyncSelection()
{
    const int lastColumn = model_.columnCount() - 1;
    QItemSelection selection;
    for (ListRow row = 1; row <= list_.Count(); ++row) {
        const ListRow first = row;
        while (row <= list_.Count() && list_.At(row).Selected)
            ++row;
        if (row > first)
            selection.append(QItemSelectionRange(model_.IndexOf(first, 0), model_.IndexOf(row - 1, lastColumn)));
    }
    selection_.Show(model_.IndexOf(list_.CurrentRow(), list_.SearchPosition()), selection);
}

void ListWidget::ShowRow(ListRow row)
{
    if (row > NoListRow && row <= list_.Count())
        widget_->scrollTo(model_.IndexOf(row, widget_->header()->logicalIndexAt(0)));
}

void ListWidget::GoToRow(ListRow row, Qt::KeyboardModifiers held, void (ListView::*withControl)(ListRow))
{
    ShowRow(row);
    Surface().Act([&] {
        if ((held & Qt::ShiftModifier) != 0)
            list_.UserExtendsTo(row);
        else if ((held & Qt::ControlModifier) != 0)
            (list_.*withControl)(row);
        else
            list_.UserClicksRow(row);
    });
}

void ListWidget::SetTick(ListRow row, bool checked)
{
    ShowRow(row);
    Surface().Act([&] { list_.UserTicks(row, checked); });
}

void ListWidget::FollowWish(ListRow row, ShownSelection::Wish wish)
{
    const bool selected = row <= list_.Count() && list_.At(row).Selected;
    if (wish == ShownSelection::Wish::SelectAlone)
        GoToRow(row, Qt::NoModifier, nullptr);
    else if (wish == ShownSelection::Wish::SelectToo ? !selected : selected && list_.TakesSeveral())
        GoToRow(row, Qt::ControlModifier, &ListView::UserTogglesRow);
}

// Characters in quick succession are one word; the same one again and again goes from row to row.
void ListWidget::TypeAhead(const QString& text)
{
    const bool goesOn = sinceTyped_.isValid() && !sinceTyped_.hasExpired(QApplication::keyboardInputInterval());
    sinceTyped_.start();
    typed_ = goesOn ? typed_ + text : text;
    const bool oneCharacter = typed_.count(typed_.front()) == typed_.size();
    const QString sought = oneCharacter ? typed_.left(1) : typed_;
    const ListRow from = list_.CurrentRow() - (oneCharacter ? 0 : 1);
    const ListRow row = list_.RowBeginningWith(FromQt(sought), std::max(from, NoListRow));
    if (row != NoListRow)
        GoToRow(row, Qt::NoModifier, nullptr);
}

// The row that a key leads to from the current one, 0 for a key that leads nowhere.
ListRow ListWidget::RowFor(int key) const
{
    const int page = std::max(1, widget_->viewport()->height() / std::max(1, widget_->sizeHintForRow(0)) - 1);
    const auto within = [&](ListRow row) { return std::clamp<ListRow>(row, 1, list_.Count()); };
    switch (key) {
    case Qt::Key_Up:
        return within(list_.CurrentRow() - 1);
    case Qt::Key_Down:
        return within(list_.CurrentRow() + 1);
    case Qt::Key_PageUp:
        return within(list_.CurrentRow() - page);
    case Qt::Key_PageDown:
        return within(list_.CurrentRow() + page);
    case Qt::Key_Home:
        return 1;
    case Qt::Key_End:
        return list_.Count();
    default:
        return NoListRow;
    }
}

bool ListWidget::HandleKey(QKeyEvent& event)
{
    if (event.matches(QKeySequence::Copy) || event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab)
        return false; // copying and going on select nothing
    const Qt::KeyboardModifiers held = event.modifiers();
    const bool plain = (held & (Qt::AltModifier | Qt::MetaModifier)) == 0;
    const ListRow current = list_.CurrentRow();
    QScrollBar& sideways = *widget_->horizontalScrollBar();
    if (plain && list_.Count() > 0 && RowFor(event.key()) != NoListRow)
        GoToRow(RowFor(event.key()), held, &ListView::UserMovesTo);
    else if (plain && event.key() == Qt::Key_Space && current != NoListRow && (held & Qt::ControlModifier) != 0)
        GoToRow(current, Qt::ControlModifier, &ListView::UserTogglesRow);
    else if (plain && event.key() == Qt::Key_Space && current != NoListRow && list_.HasCheckBoxes())
        SetTick(current, !list_.At(current).Checked);
    else if (plain && event.key() == Qt::Key_Left)
        sideways.triggerAction(QAbstractSlider::SliderSingleStepSub);
    else if (plain && event.key() == Qt::Key_Right)
        sideways.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    else if (event.key() != Qt::Key_Space && IsPrintable(CharacterOf(event)))
        TypeAhead(CharacterOf(event));
    else
        event.ignore(); // not the list's; the widgets around may have a use for it
    return true;
}

QRect ListWidget::CheckBoxOf(ListRow row) const
{
    const QModelIndex index = model_.IndexOf(row, 0);
    QStyleOptionViewItem option = widget_->ItemOption();
    option.rect = widget_->visualRect(index);
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    return widget_->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, widget_.get());
}

bool ListWidget::HandleMousePress(QMouseEvent& event, bool twice)
{
    const QPoint at = event.position().toPoint();
    const QModelIndex index = widget_->indexAt(at);
    if (!index.isValid()) {
        Surface().FocusFor(list_);
        return true;
    }
    const ListRow row = ListModel::RowOf(index);
    const Qt::KeyboardModifiers held = event.modifiers();
    // The first press may have scrolled; the second one of a double click is for the same row.
    const bool again = twice && pressed_ && (at - pressedAt_).manhattanLength() <= QApplication::startDragDistance();
    if (!again && list_.HasCheckBoxes() && index.column() == 0 && CheckBoxOf(row).contains(at))
        pressed_ = [this, row] { SetTick(row, row <= list_.Count() && !list_.At(row).Checked); };
    else if (!again)
        pressed_ = [this, row, held] { GoToRow(row, held, &ListView::UserTogglesRow); };
    pressedAt_ = at;
    const auto press = pressed_;
    press();
    return true;
}

bool ListWidget::eventFilter(QObject* watched, QEvent* event)
{
    const bool taken = ViewWidget::eventFilter(watched, event);
    return taken || (watched == widget_->viewport() && IsOfMouse(*event));
}

} // namespace rulemesh
