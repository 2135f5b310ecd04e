#include "support/mirror_watch.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QScopedValueRollback>

#include "support/mirror.h"

namespace rulemesh {

MirrorWatch::MirrorWatch() { qApp->installEventFilter(this); }

MirrorWatch::~MirrorWatch() { Look(); }

bool MirrorWatch::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::InputMethod:
    case QEvent::Drop:
        Look();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void MirrorWatch::Look()
{
    if (looking_ || testing::Test::HasFailure())
        return;
    const QScopedValueRollback<bool> guard(looking_, true);
    for (const std::string& sentence : DifferencesEverywhere())
        ADD_FAILURE() << sentence;
}

} // namespace rulemesh
