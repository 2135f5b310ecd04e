#include "support/mirror_widgets.h"

#include <set>

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabBar>
#include <QTableView>
#include <QTextBlock>
#include <QTreeView>

#include "desktop/captions.h"
#include "views/button.h"
#include "views/combo_box.h"
#include "views/grid.h"
#include "views/list_view.h"
#include "views/tab_control.h"
#include "views/text_box.h"

namespace rulemesh {

namespace {

int PixelsOf(const QWidget& root, int twips) { return qRound(twips * root.logicalDpiX() / 1440.0); }

void CompareButton(const Button& button, const QAbstractButton& widget, Findings& findings)
{
    findings.Compare(QStringLiteral("caption"), widget.text(), ToQt(button.Caption()));
    findings.Compare(QStringLiteral("checked"), widget.isChecked(), false);
}

void CompareLabel(const Label& label, const QLabel& widget, Findings& findings)
{
    const QString text = widget.textFormat() == Qt::PlainText ? widget.text() : Seen(widget.text());
    findings.Compare(QStringLiteral("caption"), text, ToQt(label.Caption()));
    findings.Compare(QStringLiteral("bold"), widget.font().bold(), label.Type().Bold);
}

void CompareBox(const TextBox& box, const QPlainTextEdit& widget, Findings& findings)
{
    QString shown;
    for (QTextBlock block = widget.document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockNumber() > 0)
            shown += QLatin1Char('\n');
        shown += block.text();
    }
    const QString held = BoxText(box.Text());
    if (!LooksLike(shown, held))
        findings.Compare(QStringLiteral("text"), shown, held);
    findings.Compare(QStringLiteral("locked"), widget.isReadOnly(), box.Locked());
}

// The rows whose every cell is selected; a row that is selected in part is told.
std::set<int> SelectedRows(const QTreeView& tree, Findings& findings)
{
    std::set<int> rows;
    for (const QItemSelectionRange& range : tree.selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.insert(row);
        if (range.left() != 0 || range.right() != tree.model()->columnCount() - 1)
            findings.Say(QStringLiteral("selection: row %1 is selected in part").arg(range.top() + 1));
    }
    return rows;
}

QString Numbers(const std::set<int>& rows)
{
    QStringList numbers;
    for (const int row : rows) {
        if (numbers.size() == 10)
            return numbers.join(QLatin1Char(' ')) + QStringLiteral(" ... of %1").arg(rows.size());
        numbers.append(QString::number(row + 1));
    }
    return numbers.isEmpty() ? QStringLiteral("none") : numbers.join(QLatin1Char(' '));
}

void CompareSelection(const ListView& list, const QTreeView& tree, Findings& findings)
{
    std::set<int> held;
    for (int row = 1; row <= list.Count(); ++row) {
        if (list.At(row).Selected)
            held.insert(row - 1);
    }
    const std::set<int> shown = SelectedRows(tree, findings);
    if (shown != held)
        findings.Compare(QStringLiteral("selection"), Numbers(shown), Numbers(held));
    // The next key goes on from the current row: it must be the one that the user sees to be selected. A list of
    // several may leave it on a row that was clicked away.
    const int current = tree.currentIndex().row();
    if (!list.TakesSeveral() && !held.empty() && !held.contains(current))
        findings.Say(QStringLiteral("current row: the widget has %1, the view's selection is %2")
                         .arg(current + 1)
                         .arg(Numbers(held)));
}

void CompareRow(const ListView& list, const QTreeView& tree, int row, Findings& findings)
{
    const ListView::Row& held = list.At(row + 1);
    for (int column = 0; column < tree.model()->columnCount(); ++column) {
        const QModelIndex index = tree.model()->index(row, column);
        const QString place = QStringLiteral("row %1 column %2").arg(row + 1).arg(column + 1);
        findings.Compare(place, index.data(Qt::DisplayRole).toString(), ToQt(held.TextAt(column)));
        const QString tip = column == list.ToolTipPosition() ? ToQt(held.TextAt(column)) : QString();
        findings.Compare(place + QStringLiteral(" tool tip"), index.data(Qt::ToolTipRole).toString(), tip);
    }
    const QModelIndex first = tree.model()->index(row, 0);
    if (list.HasCheckBoxes())
        findings.Compare(QStringLiteral("tick of row %1").arg(row + 1),
                         first.data(Qt::CheckStateRole).toInt() == Qt::Checked, held.Checked);
}

void CompareHeader(const ListView& list, const QTreeView& tree, Findings& findings)
{
    const QHeaderView& header = *tree.header();
    for (int column = 0; column < static_cast<int>(list.Columns().size()); ++column) {
        const ListView::Column& held = list.Columns()[static_cast<std::size_t>(column)];
        findings.Compare(QStringLiteral("header %1").arg(column + 1),
                         tree.model()->headerData(column, Qt::Horizontal).toString(), ToQt(held.Caption));
        findings.Compare(QStringLiteral("column %1 shown").arg(column + 1), !header.isSectionHidden(column),
                         held.Width != 0);
        findings.Compare(QStringLiteral("place of column %1").arg(column + 1), header.visualIndex(column), column);
    }
    if (!list.Sorted() || list.Columns().size() < 2)
        return;
    findings.Compare(QStringLiteral("sort column"), header.sortIndicatorSection(), list.SortKey());
    findings.Compare(QStringLiteral("sorted upward"), header.sortIndicatorOrder() == Qt::AscendingOrder,
                     list.SortOrder() == ListView::Order::Ascending);
}

void CompareList(const ListView& list, const QTreeView& tree, Findings& findings)
{
    findings.Compare(QStringLiteral("rows"), tree.model()->rowCount(), list.Count());
    if (tree.model()->rowCount() != list.Count())
        return;
    findings.Compare(QStringLiteral("bold"), tree.font().bold(), list.Type().Bold);
    CompareHeader(list, tree, findings);
    CompareSelection(list, tree, findings);
    for (const int row : RowsInSight(tree))
        CompareRow(list, tree, row, findings);
}

void CompareGridCells(const Grid& grid, const QTableView& table, Findings& findings)
{
    for (const int row : RowsInSight(table)) {
        for (int col = 0; col < Grid::ColumnCount; ++col) {
            const QModelIndex index = table.model()->index(row, col);
            const QString place = QStringLiteral("cell %1,%2").arg(row).arg(col);
            const QString held = ToQt(grid.TextMatrix(row, col));
            findings.Compare(place, index.data(Qt::DisplayRole).toString(), held);
            findings.Compare(place + QStringLiteral(" tool tip"), index.data(Qt::ToolTipRole).toString(), held);
        }
    }
}

void CompareGrid(const Grid& grid, const QWidget& root, const QTableView& table, Findings& findings)
{
    findings.Compare(QStringLiteral("rows"), table.model()->rowCount(), grid.Rows());
    if (table.model()->rowCount() != grid.Rows() || grid.Rows() == 0)
        return;
    const QModelIndex current = table.currentIndex();
    findings.Compare(QStringLiteral("current row"), current.row(), grid.Row().Number());
    findings.Compare(QStringLiteral("current column"), current.column(), grid.Col());
    const QModelIndexList selected = table.selectionModel()->selectedIndexes();
    if (selected.size() != 1 || selected.front() != table.model()->index(grid.Row().Number(), grid.Col()))
        findings.Say(
            QStringLiteral("selection: the widget shows %1 selected cells, not the current one").arg(selected.size()));
    findings.Compare(QStringLiteral("top row by its scroll bar"), table.verticalScrollBar()->value(),
                     grid.TopRow().Number());
    if (table.isVisible() && table.viewport()->height() > 0)
        findings.Compare(QStringLiteral("top row in sight"), table.rowAt(0), grid.TopRow().Number());
    findings.Compare(QStringLiteral("scrolled sideways"), table.horizontalScrollBar()->value(), 0);
    for (int col = 0; col < Grid::ColumnCount; ++col)
        findings.Compare(QStringLiteral("width of column %1").arg(col), table.columnWidth(col),
                         PixelsOf(root, grid.ColWidth(col)));
    CompareGridCells(grid, table, findings);
}

void CompareCombo(const ComboBox& combo, const QComboBox& widget, Findings& findings)
{
    findings.Compare(QStringLiteral("entries"), widget.count(), static_cast<int>(combo.Entries().size()));
    if (widget.count() != static_cast<int>(combo.Entries().size()))
        return;
    for (int index = 0; index < widget.count(); ++index)
        findings.Compare(QStringLiteral("entry %1").arg(index), widget.itemText(index),
                         ToQt(combo.Entries()[static_cast<std::size_t>(index)].Text));
    findings.Compare(QStringLiteral("current entry"), widget.currentIndex(), combo.ListIndex());
    findings.Compare(QStringLiteral("current text"), widget.currentText(), ToQt(combo.Text()));
}

void CompareTabs(const TabControl& tabs, const QTabBar& bar, Findings& findings)
{
    findings.Compare(QStringLiteral("shown tab"), bar.currentIndex(), tabs.Tab());
    for (int tab = 0; tab < TabControl::TabCount; ++tab) {
        findings.Compare(QStringLiteral("caption of tab %1").arg(tab), bar.tabText(tab), ToQt(tabs.TabCaption(tab)));
        findings.Compare(QStringLiteral("tab %1 enabled").arg(tab), bar.isTabEnabled(tab), tabs.TabEnabled(tab));
    }
}

template <typename Widget, typename Compare> void As(const QWidget& widget, Findings& findings, const Compare& compare)
{
    if (const auto* kind = qobject_cast<const Widget*>(&widget))
        compare(*kind);
    else
        findings.Say(QStringLiteral("is a %1").arg(QLatin1String(widget.metaObject()->className())));
}

void CompareKind(const View& view, const QWidget& root, const QWidget& widget, Findings& findings)
{
    if (const auto* button = dynamic_cast<const Button*>(&view))
        As<QAbstractButton>(widget, findings, [&](const auto& kind) { CompareButton(*button, kind, findings); });
    else if (const auto* label = dynamic_cast<const Label*>(&view))
        As<QLabel>(widget, findings, [&](const auto& kind) { CompareLabel(*label, kind, findings); });
    else if (const auto* box = dynamic_cast<const TextBox*>(&view))
        As<QPlainTextEdit>(widget, findings, [&](const auto& kind) { CompareBox(*box, kind, findings); });
    else if (const auto* list = dynamic_cast<const ListView*>(&view))
        As<QTreeView>(widget, findings, [&](const auto& kind) { CompareList(*list, kind, findings); });
    else if (const auto* grid = dynamic_cast<const Grid*>(&view))
        As<QTableView>(widget, findings, [&](const auto& kind) { CompareGrid(*grid, root, kind, findings); });
    else if (const auto* combo = dynamic_cast<const ComboBox*>(&view))
        As<QComboBox>(widget, findings, [&](const auto& kind) { CompareCombo(*combo, kind, findings); });
    else if (const auto* tabs = dynamic_cast<const TabControl*>(&view))
        As<QTabBar>(widget, findings, [&](const auto& kind) { CompareTabs(*tabs, kind, findings); });
    else if (const auto* frame = dynamic_cast<const Frame*>(&view); frame != nullptr && !frame->Caption().empty())
        As<QGroupBox>(widget, findings, [&](const auto& kind) {
            findings.Compare(QStringLiteral("caption"), kind.title(), WithAccessKey(frame->Caption()));
        });
}

} // namespace

QString BoxText(TextView text)
{
    QString held = ToQt(text);
    held.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return held.replace(QLatin1Char('\r'), QChar::LineSeparator);
}

bool HasPicture(QChar character)
{
    const bool control = character.category() == QChar::Other_Control && character != QLatin1Char('\n') &&
                         character != QLatin1Char('\t');
    return control || character == QChar::LineSeparator || character == QChar::ParagraphSeparator ||
           character == QChar::ObjectReplacementCharacter || QChar::isNonCharacter(character.unicode());
}

bool LooksLike(const QString& shown, const QString& held)
{
    const auto alike = [](QChar one, QChar other) {
        return one == other || HasPicture(other) || (one == QChar::ReplacementCharacter && other.isSurrogate());
    };
    return std::equal(shown.begin(), shown.end(), held.begin(), held.end(), alike);
}

std::vector<int> RowsInSight(const QAbstractItemView& view)
{
    const int count = view.model()->rowCount();
    if (count == 0)
        return {};
    std::set<int> rows{0, count - 1};
    if (view.isVisible()) {
        const int first = view.indexAt({1, 0}).row();
        const int last = view.indexAt({1, view.viewport()->height() - 1}).row();
        for (int row = std::max(first, 0); row <= (last < 0 ? std::min(count - 1, first + 100) : last); ++row)
            rows.insert(row);
    }
    return {rows.begin(), rows.end()};
}

void CompareWidget(const View& view, const QWidget& root, const QWidget& widget, Findings& findings)
{
    findings.Compare(QStringLiteral("visible"), widget.isVisible(), root.isVisible() && IsSeen(view));
    findings.Compare(QStringLiteral("enabled"), widget.isEnabled(), root.isEnabled() && IsUsable(view));
    findings.Compare(QStringLiteral("tool tip"), widget.toolTip(), ToQt(view.ToolTip()));
    CompareKind(view, root, widget, findings);
}

} // namespace rulemesh
