#include <map>
#include <set>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>

#include "support/mirror_widgets.h"
#include "views/button.h"
#include "views/combo_box.h"
#include "views/grid.h"
#include "views/list_view.h"
#include "views/tab_control.h"
#include "views/text_box.h"

namespace rulemesh {

namespace {

// The cells of a list or grid as a screen reader that starts now gets them: while none runs, the toolkit keeps those
// that it made before rows came and went.
QAccessibleTableInterface* CellsOf(QWidget& widget, QAccessibleInterface& reader)
{
    QAccessibleTableModelChangeEvent reset(&widget, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessibleTableInterface* cells = reader.tableInterface();
    if (cells != nullptr)
        cells->modelChange(&reset);
    return cells;
}

const std::map<ViewKind, std::set<QAccessible::Role>>& Roles()
{
    static const std::map<ViewKind, std::set<QAccessible::Role>> roles = {
        {ViewKind::Button, {QAccessible::Button}},     {ViewKind::Label, {QAccessible::StaticText}},
        {ViewKind::Text, {QAccessible::EditableText}}, {ViewKind::Syntax, {QAccessible::EditableText}},
        {ViewKind::List, {QAccessible::Tree}},         {ViewKind::Combo, {QAccessible::ComboBox}},
        {ViewKind::Grid, {QAccessible::Table}},        {ViewKind::Tab, {QAccessible::PageTabList}},
        {ViewKind::Picture, {QAccessible::Button}},    {ViewKind::Frame, {QAccessible::Grouping, QAccessible::Client}},
    };
    return roles;
}

void CompareText(const TextBox& box, QAccessibleInterface& reader, Findings& findings)
{
    QAccessibleTextInterface* text = reader.textInterface();
    if (text == nullptr)
        return findings.Say(QStringLiteral("has no text for a screen reader"));
    QString held = BoxText(box.Text());
    QString shown = text->text(0, text->characterCount());
    shown.replace(QChar::LineSeparator, QLatin1Char('\n')).replace(QChar::Nbsp, QLatin1Char(' '));
    held.replace(QChar::LineSeparator, QLatin1Char('\n')).replace(QChar::Nbsp, QLatin1Char(' '));
    // Characters that an editor can't hold may be shown by others; a soft line break counts as a line end.
    for (qsizetype at = 0; at < std::min(shown.size(), held.size()); ++at) {
        const bool lone = shown[at] == QChar::ReplacementCharacter && held[at].isSurrogate();
        if (lone || HasPicture(held[at]) || held[at] == QLatin1Char('\n'))
            held[at] = shown[at];
    }
    findings.Compare(QStringLiteral("text"), shown, held);
}

void CompareRows(const ListView& list, const QAbstractItemView& tree, QAccessibleTableInterface& table,
                 Findings& findings)
{
    for (const int row : RowsInSight(tree)) {
        const ListView::Row& held = list.At(row + 1);
        for (int column = 0; column < table.columnCount(); ++column) {
            if (list.Columns()[static_cast<std::size_t>(column)].Width == 0)
                continue;
            QAccessibleInterface* cell = table.cellAt(row, column);
            const QString place = QStringLiteral("row %1 column %2").arg(row + 1).arg(column + 1);
            if (cell == nullptr) {
                findings.Say(place + QStringLiteral(" is not there for a screen reader"));
                continue;
            }
            findings.Compare(place, cell->text(QAccessible::Name), ToQt(held.TextAt(column)));
            findings.Compare(place + QStringLiteral(" selected"), cell->state().selected == 1, held.Selected);
            if (column == 0 && list.HasCheckBoxes())
                findings.Compare(place + QStringLiteral(" ticked"), cell->state().checked == 1, held.Checked);
        }
    }
}

void CompareList(const ListView& list, QWidget& widget, QAccessibleInterface& reader, Findings& findings)
{
    QAccessibleTableInterface* table = CellsOf(widget, reader);
    if (table == nullptr)
        return findings.Say(QStringLiteral("has no rows for a screen reader"));
    if (!widget.isVisible())
        return; // a tree counts its rows when it is laid out
    findings.Compare(QStringLiteral("rows"), table->rowCount(), list.Count());
    int selected = 0;
    for (int row = 1; row <= list.Count(); ++row)
        selected += list.At(row).Selected ? 1 : 0;
    findings.Compare(QStringLiteral("selected rows"), table->selectedRowCount(), selected);
    if (table->rowCount() == list.Count())
        CompareRows(list, dynamic_cast<const QAbstractItemView&>(widget), *table, findings);
}

void CompareGrid(const Grid& grid, QWidget& widget, QAccessibleInterface& reader, Findings& findings)
{
    QAccessibleTableInterface* table = CellsOf(widget, reader);
    if (table == nullptr)
        return findings.Say(QStringLiteral("has no cells for a screen reader"));
    if (grid.Rows() == 0)
        return;
    findings.Compare(QStringLiteral("rows"), table->rowCount(), grid.Rows());
    if (table->rowCount() != grid.Rows())
        return;
    for (const int row : RowsInSight(dynamic_cast<const QAbstractItemView&>(widget))) {
        for (int col = 0; col < Grid::ColumnCount; ++col) {
            QAccessibleInterface* cell = table->cellAt(row, col);
            const QString place = QStringLiteral("cell %1,%2").arg(row).arg(col);
            if (cell == nullptr) {
                findings.Say(place + QStringLiteral(" is not there for a screen reader"));
                continue;
            }
            findings.Compare(place, cell->text(QAccessible::Name), ToQt(grid.TextMatrix(row, col)));
            findings.Compare(place + QStringLiteral(" selected"), cell->state().selected == 1,
                             row == grid.Row() && col == grid.Col());
        }
    }
}

void CompareTabs(const TabControl& tabs, QAccessibleInterface& reader, Findings& findings)
{
    int found = 0;
    for (int child = 0; child < reader.childCount(); ++child) {
        QAccessibleInterface* page = reader.child(child);
        if (page == nullptr || page->role() != QAccessible::PageTab || found == TabControl::TabCount)
            continue;
        const QString place = QStringLiteral("tab %1").arg(found);
        findings.Compare(place, page->text(QAccessible::Name), PlainCaption(tabs.TabCaption(found)));
        // Qt 6.4 tells of the current tab that it has the focus, later ones that it is selected; none tells which can't
        // be used.
        findings.Compare(place + QStringLiteral(" current"), page->state().selected == 1 || page->state().focused == 1,
                         found == tabs.Tab());
        ++found;
    }
    findings.Compare(QStringLiteral("tabs"), found, TabControl::TabCount);
}

void CompareName(const View& view, QAccessibleInterface& reader, Findings& findings)
{
    const QString name = reader.text(QAccessible::Name);
    const auto* captioned = dynamic_cast<const CaptionedView*>(&view);
    const bool named = view.Kind() == ViewKind::Label || view.Kind() == ViewKind::Frame;
    const bool ofObject = view.Name() == u"LBLTargetTableName" || view.Name() == u"lblTargetTableDescription";
    if (named && captioned != nullptr)
        findings.Compare(QStringLiteral("name"), name,
                         ofObject ? ToQt(captioned->Caption()) : PlainCaption(captioned->Caption()));
    else if (name.isEmpty())
        findings.Say(QStringLiteral("has no name for a screen reader"));
}

} // namespace

void CompareAccessible(const View& view, const QWidget& root, QWidget& widget, Findings& findings)
{
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&widget);
    if (reader == nullptr || !reader->isValid())
        return findings.Say(QStringLiteral("is unknown to a screen reader"));
    if (!Roles().at(view.Kind()).contains(reader->role()))
        findings.Say(QStringLiteral("role: %1").arg(int(reader->role())));
    CompareName(view, *reader, findings);
    const QAccessible::State state = reader->state();
    findings.Compare(QStringLiteral("invisible"), state.invisible == 1, !(root.isVisible() && IsSeen(view)));
    findings.Compare(QStringLiteral("disabled"), state.disabled == 1, !(root.isEnabled() && IsUsable(view)));
    if (state.focused == 1 && !view.HasFocus())
        findings.Say(QStringLiteral("focus: a screen reader is told that it is here"));
    const QWidget* focus = QApplication::focusWidget();
    if (view.HasFocus() && view.CanBeReached() && focus != nullptr && root.isAncestorOf(focus))
        findings.Compare(QStringLiteral("focus"), state.focused == 1, true);

    if (const auto* box = dynamic_cast<const TextBox*>(&view)) {
        findings.Compare(QStringLiteral("read only"), state.readOnly == 1, box->Locked());
        CompareText(*box, *reader, findings);
    } else if (const auto* list = dynamic_cast<const ListView*>(&view)) {
        CompareList(*list, widget, *reader, findings);
    } else if (const auto* grid = dynamic_cast<const Grid*>(&view)) {
        CompareGrid(*grid, widget, *reader, findings);
    } else if (const auto* combo = dynamic_cast<const ComboBox*>(&view)) {
        findings.Compare(QStringLiteral("current text"), reader->text(QAccessible::Value), ToQt(combo->Text()));
    } else if (const auto* tabs = dynamic_cast<const TabControl*>(&view)) {
        CompareTabs(*tabs, *reader, findings);
    }
}

} // namespace rulemesh
