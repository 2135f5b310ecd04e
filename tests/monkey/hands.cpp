#include "monkey/hands.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

namespace rulemesh::monkey {

namespace {

constexpr int MostWidth = 1500;
constexpr int MostHeight = 1000;

// The text that a keyboard sends with a key.
QString TextOf(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    const auto one = [](char character) { return QString(QLatin1Char(character)); };
    if (key >= Qt::Key_A && key <= Qt::Key_Z) {
        if ((modifiers & Qt::ControlModifier) != 0)
            return one(static_cast<char>(key - Qt::Key_A + 1));
        return one(static_cast<char>((modifiers & Qt::ShiftModifier) != 0 ? key : key - 'A' + 'a'));
    }
    if (key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde)
        return one(static_cast<char>(key));
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return one('\r');
    case Qt::Key_Tab:
        return one('\t');
    case Qt::Key_Escape:
        return one('\x1b');
    case Qt::Key_Backspace:
        return one('\b');
    case Qt::Key_Delete:
        return one('\x7f');
    default:
        return {};
    }
}

} // namespace

// A press of the mouse makes its window the active one: before it arrives, or with some window systems behind it.
void Hands::Activate(QWindow* window)
{
    if (window == nullptr || QApplication::activePopupWidget() != nullptr)
        return;
    window->requestActivate();
    QApplication::processEvents();
}

// A box or form is waited for as soon as it is there; a menu and the drag of a text only when the action does not end.
void Hands::Do(const Action& action, const std::function<void(QWidget&)>& whenBlocked)
{
    constexpr int ManyTurns = 4;
    QWidget* const modal = QApplication::activeModalWidget();
    QWidget* const popup = QApplication::activePopupWidget();
    int turns = 0;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, &clock, [&] {
        ++turns;
        QWidget* const box = QApplication::activeModalWidget();
        QWidget* const menu = QApplication::activePopupWidget();
        const auto waiting = std::exchange(finishDrag_, nullptr);
        if (box != nullptr && box != modal)
            whenBlocked(*box);
        else if (menu != nullptr && menu != popup && turns > ManyTurns)
            whenBlocked(*menu);
        else if (waiting != nullptr && turns > ManyTurns)
            return waiting();
        finishDrag_ = waiting;
    });
    clock.start(1);
    Perform(action);
    QApplication::processEvents();
    if (QApplication::activeWindow() == nullptr)
        stage_.Window().activateWindow(); // as a window manager does behind a box
    QApplication::processEvents();
}

void Hands::Perform(const Action& action)
{
    switch (action.What) {
    case Kind::Key:
        return PressKey(action);
    case Kind::Type:
        return Type(action.Text);
    case Kind::Click:
        return Click(action, 1);
    case Kind::DoubleClick:
        return Click(action, 2);
    case Kind::Drag:
        return Drag(action);
    case Kind::Wheel:
        return Roll(action);
    case Kind::Hover:
        if (const Place place = PlaceOf(action, stage_); place.Window != nullptr)
            QTest::mouseMove(place.Window, place.Position);
        return;
    case Kind::Resize:
        stage_.Window().resize(static_cast<int>(action.X * MostWidth), static_cast<int>(action.Y * MostHeight));
        return;
    case Kind::SwitchWindow:
        if (QApplication::activeModalWidget() == nullptr && QApplication::activePopupWidget() == nullptr)
            (stage_.Window().isActiveWindow() ? stage_.OtherWindow() : stage_.Window()).activateWindow();
        return;
    case Kind::Compose:
        return Compose(action);
    case Kind::Drop:
        return Drop(action);
    case Kind::CloseBox:
        // The press on the frame shuts a menu that is open, and goes no further.
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        else if (QWidget* modal = QApplication::activeModalWidget())
            modal->close();
        return;
    default:
        return HostActs(action);
    }
}

void Hands::Press(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    const QPointer<QWindow> window = QGuiApplication::focusWindow();
    if (window != nullptr)
        QTest::simulateEvent(window, true, key, modifiers, text, false);
    const QPointer<QWindow> after = QGuiApplication::focusWindow(); // a release goes where the focus is by then
    if (after != nullptr)
        QTest::simulateEvent(after, false, key, modifiers, text, false);
}

void Hands::PressKey(const Action& action)
{
    Press(action.Key, action.Modifiers, TextOf(action.Key, action.Modifiers));
}

void Hands::Type(const QString& text)
{
    for (qsizetype at = 0; at < text.size(); ++at) {
        const qsizetype length = text[at].isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
        const QString character = text.mid(at, length);
        at += length - 1;
        if (character == QLatin1String("\n"))
            Press(Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        else
            Press(length == 1 && character[0].unicode() < 0x7f && character[0].isPrint()
                      ? static_cast<Qt::Key>(character[0].toUpper().unicode())
                      : Qt::Key_unknown,
                  Qt::NoModifier, character);
    }
}

void Hands::Click(const Action& action, int times)
{
    const Place place = PlaceOf(action, stage_);
    const QPointer<QWindow> window = place.Window;
    const bool activatesBehind = action.Amount == 0;
    if (!activatesBehind)
        Activate(window);
    for (int press = 0; press < times && window != nullptr; ++press) {
        // Two presses in short order are what a toolkit takes for a double click.
        QTest::lastMouseTimestamp -= press > 0 ? QTest::mouseDoubleClickInterval : 0;
        QTest::mousePress(window, action.Button, action.Modifiers, place.Position);
        if (window != nullptr)
            QTest::mouseRelease(window, action.Button, action.Modifiers, place.Position);
    }
    if (activatesBehind)
        Activate(window);
}

// By some pixels, as a hand shakes, or far; a text that is dragged is let fall from a timer, as the drag is waited for.
void Hands::Drag(const Action& action)
{
    const Place place = PlaceOf(action, stage_);
    const QPointer<QWindow> window = place.Window;
    if (window == nullptr)
        return;
    const QPoint far(static_cast<int>(action.X2 * (window->width() - 2)) + 1,
                     static_cast<int>(action.Y2 * (window->height() - 2)) + 1);
    const QPoint near(std::clamp(place.Position.x() + action.Amount, 1, std::max(1, window->width() - 1)),
                      std::clamp(place.Position.y() + action.Amount, 1, std::max(1, window->height() - 1)));
    const QPoint end = action.Target % 3 == 0 ? near : far;
    Activate(window);
    QTest::mousePress(window, action.Button, action.Modifiers, place.Position);
    finishDrag_ = [=] {
        for (int step = 0; step < 2 && window != nullptr; ++step)
            QTest::mouseMove(window, end);
        if (window != nullptr)
            QTest::mouseRelease(window, action.Button, action.Modifiers, end);
    };
    for (int step = 1; step <= 4 && window != nullptr && finishDrag_ != nullptr; ++step)
        QTest::mouseMove(window, place.Position + (end - place.Position) * step / 4);
    if (finishDrag_ != nullptr)
        std::exchange(finishDrag_, nullptr)();
}

void Hands::Roll(const Action& action)
{
    const Place place = PlaceOf(action, stage_);
    if (place.Window == nullptr)
        return;
    const QPoint turn = action.Target % 5 == 0 ? QPoint(action.Amount * 40, 0) : QPoint(0, action.Amount * 40);
    QWheelEvent event(place.Position, place.Window->mapToGlobal(place.Position), {}, turn, Qt::NoButton,
                      action.Modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(place.Window, &event);
}

// As an input method does it: it asks first whether the widget takes part.
void Hands::Compose(const Action& action)
{
    QPointer<QObject> object = QGuiApplication::focusObject();
    if (object == nullptr)
        return;
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QApplication::sendEvent(object, &query);
    if (!query.value(Qt::ImEnabled).toBool())
        return;
    QInputMethodEvent composing(QStringLiteral("ka"), {});
    QApplication::sendEvent(object, &composing);
    if (object == nullptr)
        return;
    QInputMethodEvent commit;
    const int replaced = action.Amount > 5 ? action.Amount - 5 : 0;
    commit.setCommitString(action.Text, -replaced, replaced);
    QApplication::sendEvent(object, &commit);
}

void Hands::Drop(const Action& action)
{
    const Place place = PlaceOf(action, stage_);
    if (place.Widget == nullptr || QApplication::activePopupWidget() != nullptr)
        return;
    QWidget* const window = place.Widget->window();
    QPointer<QWidget> target = window->childAt(place.Position);
    if (target == nullptr)
        return;
    const QPoint position = target->mapFrom(window, place.Position);
    QMimeData data;
    data.setText(action.Text);
    QDragEnterEvent enter(position, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, action.Modifiers);
    QApplication::sendEvent(target, &enter);
    if (target == nullptr || !enter.isAccepted())
        return;
    QDragMoveEvent move(position, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, action.Modifiers);
    QApplication::sendEvent(target, &move);
    if (!move.isAccepted()) {
        QDragLeaveEvent leave;
        QApplication::sendEvent(target, &leave);
        return;
    }
    QDropEvent drop(position, Qt::CopyAction, &data, Qt::LeftButton, action.Modifiers);
    QApplication::sendEvent(target, &drop);
}

// A host is no user: it waits while the user is asked something.
void Hands::HostActs(const Action& action)
{
    if (QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr)
        return;
    if (action.What == Kind::HostReads)
        static_cast<void>(stage_.Designer().MappingObjectXmlUtf8());
    else if (action.What == Kind::HostTakesFocus)
        stage_.Designer().TakeFocusOut();
    else if (action.What == Kind::HostShows)
        stage_.Designer().ShowControl();
    else if (action.What == Kind::HostLocks)
        stage_.Designer().Edit(Unlocks(action));
    else
        stage_.Reopen();
}

} // namespace rulemesh::monkey
