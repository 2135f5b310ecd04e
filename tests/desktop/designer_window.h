#pragma once

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

#include "desktop/qt_text.h"
#include "desktop/rulemesh_widget.h"
#include "desktop/view_surface.h"
#include "desktop/view_widget.h"
#include "support/mirror_watch.h"
#include "support/recording_events.h"
#include "support/recording_platform.h"
#include "support/samples.h"

namespace rulemesh {

/// A designer with the sample object in a host's window that has a line of its own below.
class DesignerWindow : public testing::Test {
protected:
    DesignerWindow()
    {
        Designer.resize(Designer.sizeHint());
        Line.setGeometry(0, Designer.height(), 100, 30);
        Host.resize(Designer.width(), Designer.height() + 30);
        Designer.TargetTable(QStringLiteral("salor101"));
        Designer.MappingObjectXmlUtf8(QByteArray::fromStdString(Sample("northwind.xml")));
        Designer.Edit(true);
        Host.show();
        QApplication::setActiveWindow(&Host);
        Designer.ShowControl();
    }

    [[nodiscard]] DesignerViews& Views() { return Designer.Control().Views(); }
    [[nodiscard]] ViewSurface& Surface() { return Designer.Surface(); }
    [[nodiscard]] QWidget* WidgetOf(View& view) { return &Surface().WidgetOf(view); }
    template <typename Kind> [[nodiscard]] Kind& Of(View& view) { return dynamic_cast<Kind&>(Surface().Of(view)); }

    /// The name of the view with the focus, after a check that Qt's focus is there too.
    [[nodiscard]] Text Focused()
    {
        const View* view = Views().Tree.Focused();
        if (view == nullptr)
            return {};
        EXPECT_EQ(Host.focusWidget(), WidgetOf(const_cast<View&>(*view)));
        return Text(view->Name());
    }

    void ShowRules()
    {
        Surface().Act([this] { Views().MainTab.UserClicksTab(1); });
    }

    RecordingPlatform Desk;
    RecordingEvents Events;
    QWidget Host;
    RulemeshWidget Designer{Desk, Events, &Host};
    QLineEdit Line{&Host};
    MirrorWatch Watch; // the first to go, while all the others are there
};

} // namespace rulemesh
