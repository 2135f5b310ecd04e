#include "monkey/action.h"

#include <array>
#include <random>
#include <utility>

#include <QKeySequence>

#include "monkey/place.h"

namespace rulemesh::monkey {

namespace {

class Dice {
public:
    Dice(std::uint64_t seed, int number)
        : engine_(seed * 0x9E3779B97F4A7C15U + static_cast<std::uint64_t>(number) * 0xBF58476D1CE4E5B9U + 1)
    {
        engine_.discard(20); // neighbouring numbers begin alike
    }

    [[nodiscard]] int Below(int end) { return static_cast<int>(engine_() % static_cast<unsigned>(end)); }
    [[nodiscard]] double Share() { return Below(1001) / 1000.0; }
    template <typename List> [[nodiscard]] auto Of(const List& list)
    {
        return *std::next(std::begin(list), Below(static_cast<int>(std::size(list))));
    }

private:
    std::minstd_rand engine_;
};

constexpr std::array UsualKeys = {Qt::Key_Up,     Qt::Key_Down,      Qt::Key_Left,     Qt::Key_Right, Qt::Key_PageUp,
                                  Qt::Key_Home,   Qt::Key_PageDown,  Qt::Key_End,      Qt::Key_Tab,   Qt::Key_Backtab,
                                  Qt::Key_Return, Qt::Key_Enter,     Qt::Key_Escape,   Qt::Key_Space, Qt::Key_Delete,
                                  Qt::Key_Insert, Qt::Key_Backspace, Qt::Key_F2,       Qt::Key_F4,    Qt::Key_F10,
                                  Qt::Key_Menu,   Qt::Key_A,         Qt::Key_Z,        Qt::Key_Y,     Qt::Key_X,
                                  Qt::Key_C,      Qt::Key_V,         Qt::Key_Shift,    Qt::Key_Alt,   Qt::Key_Control,
                                  Qt::Key_Plus,   Qt::Key_Minus,     Qt::Key_Asterisk, Qt::Key_Pause, Qt::Key_CapsLock};

Qt::Key AnyKey(Dice& dice)
{
    switch (dice.Below(4)) {
    case 0:
        return static_cast<Qt::Key>(Qt::Key_A + dice.Below(26));
    case 1:
        return dice.Below(3) == 0 ? static_cast<Qt::Key>(Qt::Key_F1 + dice.Below(35))
                                  : static_cast<Qt::Key>(Qt::Key_Space + dice.Below(64));
    default:
        return dice.Of(UsualKeys);
    }
}

Qt::KeyboardModifiers AnyModifiers(Dice& dice, int inHundred)
{
    Qt::KeyboardModifiers modifiers;
    if (dice.Below(100) >= inHundred)
        return modifiers;
    modifiers.setFlag(dice.Of(std::array{Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}));
    if (dice.Below(4) == 0)
        modifiers.setFlag(dice.Of(
            std::array{Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier, Qt::KeypadModifier}));
    return modifiers;
}

QString AnyText(Dice& dice)
{
    static const std::array texts = {
        QStringLiteral("a"),
        QStringLiteral("ordrs001.freight * 2"),
        QStringLiteral("dump 3 | again\n"),
        QStringLiteral("\ndump 10\n"),
        QStringLiteral("migrate ordrs001\n"),
        QStringLiteral("migrate nowhere1"),
        QStringLiteral("dump 40000"),
        QStringLiteral("| note\r\nnext\rlast\n"),
        QStringLiteral("<b>bold</b> & \"more\" &amp;"),
        QStringLiteral("\u00e4\u00df\u4e2d\U0001F600"),
        QStringLiteral("x\u2028y\u2029z"),
        QStringLiteral("\ufdd0\ufdd1\ufffe\u200b"),
        QStringLiteral("\t'\t''"),
        QStringLiteral("salor101"),
        QStringLiteral("partn101"),
        QStringLiteral("10"),
        QStringLiteral(""),
        QStringLiteral("o"),
        QStringLiteral("\x07\x1b"),
    };
    return dice.Of(texts);
}

Kind AnyKind(Dice& dice)
{
    static constexpr std::array<std::pair<Kind, int>, 17> Weights = {{{Kind::Key, 300},
                                                                      {Kind::Type, 60},
                                                                      {Kind::Click, 300},
                                                                      {Kind::DoubleClick, 60},
                                                                      {Kind::Drag, 60},
                                                                      {Kind::Wheel, 60},
                                                                      {Kind::Hover, 15},
                                                                      {Kind::Resize, 20},
                                                                      {Kind::SwitchWindow, 12},
                                                                      {Kind::Compose, 20},
                                                                      {Kind::Drop, 20},
                                                                      {Kind::CloseBox, 15},
                                                                      {Kind::HostReads, 5},
                                                                      {Kind::HostTakesFocus, 5},
                                                                      {Kind::HostShows, 2},
                                                                      {Kind::HostLocks, 3},
                                                                      {Kind::Reopen, 8}}};
    int sum = 0;
    for (const auto& [kind, weight] : Weights)
        sum += weight;
    int left = dice.Below(sum);
    for (const auto& [kind, weight] : Weights) {
        left -= weight;
        if (left < 0)
            return kind;
    }
    return Kind::Key;
}

} // namespace

Action ActionOf(std::uint64_t seed, int number)
{
    Dice dice(seed, number);
    Action action;
    action.What = AnyKind(dice);
    action.Target = static_cast<unsigned>(dice.Below(1 << 20));
    action.X = dice.Share();
    action.Y = dice.Share();
    action.X2 = dice.Share();
    action.Y2 = dice.Share();
    action.Amount = dice.Below(21) - 10;
    action.Button = dice.Below(5) > 0 ? Qt::LeftButton
                                      : dice.Of(std::array{Qt::RightButton, Qt::RightButton, Qt::MiddleButton,
                                                           Qt::BackButton, Qt::ForwardButton});
    action.Modifiers = AnyModifiers(dice, action.What == Kind::Key ? 40 : 25);
    action.Key = AnyKey(dice);
    action.Text = AnyText(dice);
    return action;
}

bool Unlocks(const Action& action) { return action.Amount > -7; }

QString Describe(const Action& action)
{
    const QString place =
        QStringLiteral("%1 at %2,%3").arg(TargetName(action)).arg(action.X, 0, 'f', 2).arg(action.Y, 0, 'f', 2);
    const QString with = action.Modifiers == Qt::NoModifier
                             ? QString()
                             : QKeySequence(action.Modifiers).toString(QKeySequence::PortableText);
    const QString button = QStringLiteral("button %1").arg(int(action.Button));
    QString text = action.Text;
    text.replace(QLatin1Char('\n'), QStringLiteral("\\n")).replace(QLatin1Char('\r'), QStringLiteral("\\r"));
    switch (action.What) {
    case Kind::Key:
        return QStringLiteral("key %1%2").arg(with, QKeySequence(action.Key).toString());
    case Kind::Type:
        return QStringLiteral("type \"%1\"").arg(text);
    case Kind::Click:
        return QStringLiteral("%1click %2 on %3").arg(with, button, place);
    case Kind::DoubleClick:
        return QStringLiteral("%1double click %2 on %3").arg(with, button, place);
    case Kind::Drag:
        return QStringLiteral("%1drag %2 from %3 by %4 or to %5,%6 of the window")
            .arg(with, button, place)
            .arg(action.Amount)
            .arg(action.X2, 0, 'f', 2)
            .arg(action.Y2, 0, 'f', 2);
    case Kind::Wheel:
        return QStringLiteral("%1wheel by %2 over %3").arg(with).arg(action.Amount).arg(place);
    case Kind::Hover:
        return QStringLiteral("move over %1").arg(place);
    case Kind::Resize:
        return QStringLiteral("resize to %1,%2 of the largest").arg(action.X).arg(action.Y);
    case Kind::SwitchWindow:
        return QStringLiteral("switch windows");
    case Kind::Compose:
        return QStringLiteral("compose \"%1\" with replacement %2").arg(text).arg(action.Amount);
    case Kind::Drop:
        return QStringLiteral("drop \"%1\" on %2").arg(text, place);
    case Kind::CloseBox:
        return QStringLiteral("close a box from its frame");
    case Kind::HostReads:
        return QStringLiteral("the host reads the object");
    case Kind::HostTakesFocus:
        return QStringLiteral("the host takes the focus out");
    case Kind::HostShows:
        return QStringLiteral("the host calls ShowControl");
    case Kind::HostLocks:
        return QStringLiteral("the host sets Edit to %1").arg(Unlocks(action));
    case Kind::Reopen:
        return QStringLiteral("a new designer with the object");
    }
    return {};
}

} // namespace rulemesh::monkey
