#include "window/window_hands.h"

#include <algorithm>

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTabBar>
#include <QWidget>

#include "desktop/combo_widget.h"
#include "desktop/form_dialog.h"
#include "desktop/grid_widget.h"
#include "desktop/key_codes.h"
#include "desktop/list_widget.h"
#include "desktop/passive_edit.h"
#include "desktop/qt_text.h"
#include "desktop/tab_widget.h"
#include "desktop/text_box_widget.h"
#include "desktop/view_surface.h"

namespace rulemesh {

namespace {

void SendMouse(QWidget& widget, QEvent::Type type, QPoint at)
{
    const bool released = type == QEvent::MouseButtonRelease || type == QEvent::MouseMove;
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, released ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

void ClickAt(QWidget& widget, QPoint at)
{
    SendMouse(widget, QEvent::MouseButtonPress, at);
    SendMouse(widget, QEvent::MouseButtonRelease, at);
}

void SendKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    QKeyEvent pressed(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(&widget, &pressed);
}

// The key that types a character.
int KeyOfCharacter(char16_t character)
{
    switch (character) {
    case u'\b':
        return Qt::Key_Backspace;
    case u'\t':
        return Qt::Key_Tab;
    case u'\r':
        return Qt::Key_Return;
    case u'\x1B':
        return Qt::Key_Escape;
    default:
        return character >= u' ' && character < 0x80 ? QChar(character).toUpper().unicode() : int(Qt::Key_unknown);
    }
}

// A place in a row that is no check box.
QPoint PlaceInRow(const ListView& list, QTreeView& tree, int row)
{
    int column = list.HasCheckBoxes() ? 1 : 0;
    while (column + 1 < tree.model()->columnCount() && tree.isColumnHidden(column))
        ++column;
    return tree.visualRect(tree.model()->index(row - 1, column)).center();
}

} // namespace

WindowHands::WindowHands() = default;

WindowHands::~WindowHands() = default;

void WindowHands::Watch(ViewSurface& surface)
{
    surface.OnFailure = [this](const Failure& failure) { raised_ = failure; };
}

void WindowHands::WorkOn(ViewSurface* designer)
{
    dialogs_.clear();
    designer_ = designer;
    if (designer != nullptr)
        Watch(*designer);
}

ViewSurface& WindowHands::SurfaceOf(const View& view)
{
    const auto shows = [&](const auto& dialog) {
        const std::vector<View*>& views = dialog->Surface().Tree().Views();
        return std::find(views.begin(), views.end(), &view) != views.end();
    };
    const auto dialog = std::find_if(dialogs_.begin(), dialogs_.end(), shows);
    return dialog == dialogs_.end() ? *designer_ : (*dialog)->Surface();
}

// Focus events reach the widgets of the active window alone.
void WindowHands::Activate(QWidget& widget)
{
    if (QApplication::activeWindow() != widget.window())
        QApplication::setActiveWindow(widget.window());
}

void WindowHands::Finish()
{
    if (const std::optional<Failure> raised = std::exchange(raised_, std::nullopt))
        throw Failure(*raised);
}

void WindowHands::Click(Button& button)
{
    QWidget& widget = SurfaceOf(button).WidgetOf(button);
    Activate(widget);
    ClickAt(widget, widget.rect().center());
    Finish();
}

void WindowHands::Click(PictureButton& picture)
{
    QWidget& widget = SurfaceOf(picture).WidgetOf(picture);
    ClickAt(widget, widget.rect().center());
    Finish();
}

void WindowHands::ClickTab(TabControl& tabs, int tab)
{
    QTabBar& bar = dynamic_cast<TabWidget&>(SurfaceOf(tabs).Of(tabs)).Bar();
    Activate(bar);
    ClickAt(bar, bar.tabRect(tab).center());
    Finish();
}

// The focus comes as an assistive tool or an access key brings it: to the widget itself.
void WindowHands::MoveFocus(ViewTree& /*tree*/, View& view)
{
    QWidget& widget = SurfaceOf(view).WidgetOf(view);
    Activate(widget);
    widget.setFocus(Qt::OtherFocusReason);
    Finish();
}

// A click beside the designer. Where the focus is out of it already, the user comes by once.
void WindowHands::Leave(ViewTree& /*tree*/)
{
    QWidget& designer = designer_->Root();
    QWidget& window = *designer.window();
    Activate(designer);
    const QWidget* holder = window.focusWidget();
    if (holder == nullptr || (holder != &designer && !designer.isAncestorOf(holder)))
        designer.setFocus(Qt::OtherFocusReason);
    window.setFocus(Qt::MouseFocusReason);
    Finish();
}

// One input event that replaces the whole text, as input methods and assistive tools send it.
void WindowHands::Type(TextBox& box, const Text& StrText)
{
    PassiveEdit& editor = dynamic_cast<TextBoxWidget&>(SurfaceOf(box).Of(box)).Editor();
    Activate(editor);
    ClickAt(*editor.viewport(), {1, 1});
    if (!raised_ && box.HasFocus()) {
        const int caret = editor.textCursor().position();
        QInputMethodEvent event;
        event.setCommitString(ToQt(StrText), -caret, static_cast<int>(editor.WholeText().size()));
        QApplication::sendEvent(&editor, &event);
    }
    Finish();
}

// Opens the list of entries, points at one and picks it.
void WindowHands::Choose(ComboBox& combo, int index)
{
    auto& widget = dynamic_cast<QComboBox&>(SurfaceOf(combo).WidgetOf(combo));
    Activate(widget);
    ClickAt(widget, widget.rect().center());
    QAbstractItemView& entries = *widget.view();
    if (!raised_ && combo.HasFocus() && index < widget.count() && entries.isVisible()) {
        const QModelIndex entry = widget.model()->index(index, 0);
        entries.scrollTo(entry);
        SendMouse(*entries.viewport(), QEvent::MouseMove, entries.visualRect(entry).center());
        SendKey(entries, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    }
    widget.hidePopup();
    Finish();
}

void WindowHands::ClickRow(ListView& list, int row)
{
    QTreeView& tree = dynamic_cast<ListWidget&>(SurfaceOf(list).Of(list)).Tree();
    Activate(tree);
    tree.scrollTo(tree.model()->index(row - 1, 0));
    ClickAt(*tree.viewport(), PlaceInRow(list, tree, row));
    Finish();
}

// A box that stands as it should is left alone, only the focus comes.
void WindowHands::Tick(ListView& list, int row, bool on)
{
    auto& widget = dynamic_cast<ListWidget&>(SurfaceOf(list).Of(list));
    Activate(widget.Tree());
    widget.Tree().setFocus(Qt::OtherFocusReason);
    if (!raised_ && list.HasFocus() && row <= list.Count() && list.At(row).Checked != on) {
        widget.Tree().scrollTo(widget.Tree().model()->index(row - 1, 0));
        ClickAt(*widget.Tree().viewport(), widget.CheckBoxOf(row).center());
    }
    Finish();
}

void WindowHands::ClickHeader(ListView& list, int column)
{
    QTreeView& tree = dynamic_cast<ListWidget&>(SurfaceOf(list).Of(list)).Tree();
    QHeaderView& header = *tree.header();
    const int section = column - 1;
    tree.horizontalScrollBar()->setValue(header.sectionPosition(section));
    const QPoint middle(header.sectionViewportPosition(section) + header.sectionSize(section) / 2, header.height() / 2);
    ClickAt(*header.viewport(), middle);
    Finish();
}

void WindowHands::ClickCell(Grid& grid, int row, int col, Grid::Clicks clicks)
{
    QTableView& table = dynamic_cast<GridWidget&>(SurfaceOf(grid).Of(grid)).Table();
    Activate(table);
    const QPoint place = table.visualRect(table.model()->index(row, col)).center();
    ClickAt(*table.viewport(), place);
    if (!raised_ && clicks == Grid::Clicks::Double) {
        SendMouse(*table.viewport(), QEvent::MouseButtonDblClick, place);
        SendMouse(*table.viewport(), QEvent::MouseButtonRelease, place);
    }
    Finish();
}

void WindowHands::PressCharacter(Grid& grid, std::int16_t KeyAscii)
{
    ViewSurface& surface = SurfaceOf(grid);
    QWidget& widget = surface.WidgetOf(grid);
    Activate(widget);
    const QString character(QChar(static_cast<char16_t>(KeyAscii)));
    QKeyEvent pressed(QEvent::KeyPress, KeyOfCharacter(character.front().unicode()), Qt::NoModifier, character);
    if (KeyAscii == u'\t' || CharacterOf(pressed) == character)
        QApplication::sendEvent(&widget, &pressed);
    else
        surface.Act([&] { grid.UserPresses(KeyAscii); }); // a character that no key types
    Finish();
}

void WindowHands::Scroll(Grid& grid, int top)
{
    QTableView& table = dynamic_cast<GridWidget&>(SurfaceOf(grid).Of(grid)).Table();
    table.verticalScrollBar()->setSliderPosition(top);
    Finish();
}

bool WindowHands::PressKey(ViewTree& tree, View& view, std::int16_t KeyCode, std::int16_t Shift)
{
    ViewSurface& surface = SurfaceOf(view);
    QWidget& widget = surface.WidgetOf(view);
    MoveFocus(tree, view);
    bool cancelled = false;
    if (!view.HasFocus())
        return cancelled;
    if (const std::optional<KeyStroke> stroke = KeyStrokeOf(KeyCode, Shift)) {
        surface.OnKey = [&](bool byDesigner) { cancelled = byDesigner; };
        SendKey(widget, stroke->Key, stroke->Modifiers, {});
        surface.OnKey = nullptr;
    } else {
        surface.Act([&] { cancelled = tree.UserPressesKey(view, KeyCode, Shift); });
    }
    Finish();
    return cancelled;
}

void WindowHands::FormOpens(ModalForm& form)
{
    dialogs_.push_back(std::make_unique<FormDialog>(form, designer_->Root().window()));
    Watch(dialogs_.back()->Surface());
    dialogs_.back()->open();
}

void WindowHands::CloseForm(ModalForm& /*form*/)
{
    QCloseEvent event;
    QApplication::sendEvent(dialogs_.back().get(), &event);
    Finish();
}

void WindowHands::FormClosed(ModalForm& /*form*/) { dialogs_.pop_back(); }

} // namespace rulemesh
