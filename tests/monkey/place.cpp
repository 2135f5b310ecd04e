#include "monkey/place.h"

#include <algorithm>
#include <array>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QLineEdit>
#include <QTabBar>

namespace rulemesh::monkey {

namespace {

// What is aimed at, the more often the more there is to it.
constexpr std::array Targets = {"RulesGrid",
                                "RulesGrid",
                                "RulesGrid",
                                "RulesGrid",
                                "lstTargetFields",
                                "lstTargetFields",
                                "lstTargetFields",
                                "lstSourceFields",
                                "lstSourceFields",
                                "lstSourceFields",
                                "lstMigrateSource",
                                "lstMigrateSource",
                                "lstSourceTables",
                                "lstSourceTables",
                                "txtPreCondition",
                                "txtPreCondition",
                                "txtMainQuery",
                                "txtMainQuery",
                                "txtFunctions",
                                "txtVariables",
                                "txtgrdline",
                                "txtgrdline",
                                "MainTab",
                                "MainTab",
                                "MainTab",
                                "MainTab",
                                "CmbDump",
                                "CmbDump",
                                "CmbTargetTable",
                                "CmdChange",
                                "CmdSelectSource",
                                "cmdSrcEdit",
                                "CmdBuildPre",
                                "CmdPreEditor",
                                "CmdPreDoc",
                                "cmdBuildMQ",
                                "CmdMqEditor",
                                "CmdMQDoc",
                                "CmdFunction",
                                "CmdVariables",
                                "CmdOk",
                                "CmdCancel",
                                "CmdFuncEditor",
                                "Command1",
                                "CmdFuncBuild",
                                "CmdGuess",
                                "cmdCopyDump",
                                "cmdCopyToAllDumps",
                                "CmdMap",
                                "CmdEditRule",
                                "CmdDumpText",
                                "PicPreResize",
                                "PicMQResize",
                                "Details",
                                "lblPreCondition",
                                "lblTargetFields",
                                "LBLTargetTableName",
                                "TxtDoc",
                                "HostLine"};

// What the window system gives the input to.
QWidget& Front(MonkeyStage& stage)
{
    if (QWidget* popup = QApplication::activePopupWidget())
        return *popup;
    if (QWidget* modal = QApplication::activeModalWidget())
        return *modal;
    return stage.Window();
}

} // namespace

QString TargetName(const Action& action) { return QLatin1String(Targets[action.Target % Targets.size()]); }

Place PlaceOf(const Action& action, MonkeyStage& stage)
{
    QWidget& front = Front(stage);
    QWidget* widget = front.findChild<QWidget*>(TargetName(action));
    if (widget == nullptr || !widget->isVisible()) {
        QList<QWidget*> others;
        if (&front != &stage.Window()) {
            for (QWidget* child : front.findChildren<QWidget*>()) {
                const bool worked = qobject_cast<QAbstractButton*>(child) || qobject_cast<QLineEdit*>(child);
                if (worked && child->isVisible())
                    others.append(child);
            }
        }
        widget = others.isEmpty() ? &front : others[static_cast<qsizetype>(action.Target) % others.size()];
    }
    if (auto* area = qobject_cast<QAbstractScrollArea*>(widget); area != nullptr && action.Target % 7 != 0)
        widget = area->viewport(); // else headers and scroll bars have their turn
    int width = widget->width();
    if (const auto* tabs = qobject_cast<QTabBar*>(widget))
        width = tabs->tabRect(tabs->count() - 1).right(); // the bar is much longer than its tabs
    const QPoint inside(static_cast<int>(action.X * std::max(0, width - 1)),
                        static_cast<int>(action.Y * std::max(0, widget->height() - 1)));
    QWidget* window = widget->window();
    QPoint position = widget->mapTo(window, inside);
    position.setX(std::clamp(position.x(), 1, std::max(1, window->width() - 1)));
    position.setY(std::clamp(position.y(), 1, std::max(1, window->height() - 1)));
    return {widget, window->windowHandle(), position};
}

} // namespace rulemesh::monkey
