// How long the designer takes to show what was asked for, from the request to the painted window:
//
//   window_benchmark        on the platform that QT_QPA_PLATFORM names
//
// Prints a line for each: the median and the worst of some rounds, in milliseconds.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

#include <QApplication>
#include <QScrollBar>
#include <QTreeView>

#include "desktop/list_widget.h"
#include "desktop/qt_text.h"
#include "desktop/rulemesh_widget.h"
#include "desktop/view_surface.h"
#include "generated_object.h"
#include "silent_desk.h"
#include "wide_object.h"

namespace rulemesh {

namespace {

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void Paint(QWidget& widget)
{
    widget.window()->repaint();
    QApplication::processEvents();
}

void Report(const char* what, std::vector<double> rounds)
{
    std::sort(rounds.begin(), rounds.end());
    std::printf("%-58s %8.1f %8.1f\n", what, rounds[rounds.size() / 2], rounds.back());
}

void Measure(const char* what, int rounds, const std::function<void(int round)>& action)
{
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        const Clock::time_point start = Clock::now();
        action(round);
        times.push_back(MillisecondsSince(start));
    }
    Report(what, std::move(times));
}

struct Window {
    Window()
    {
        designer.resize(designer.sizeHint());
        designer.TargetTable(QString::fromUtf16(GeneratedTargetTable));
        designer.Edit(true);
        designer.show();
        Paint(designer);
    }

    void Open(const std::string& xml)
    {
        designer.MappingObjectXmlUtf8(QByteArray::fromStdString(xml));
        designer.ShowControl();
        Paint(designer);
    }

    SilentDesk desk;
    RulemeshWidget designer{desk, desk};
};

void MeasureOpening()
{
    Window window;
    Measure("open an object of 5 MB, to painted", 7, [&](int) { window.Open(WideObject()); });
    DesignerViews& views = window.designer.Control().Views();
    Measure("  turn to the rules of it and back, to painted", 6, [&](int round) {
        window.designer.Surface().Act([&] { views.MainTab.UserClicksTab(round % 2 == 0 ? 1 : 0); });
        Paint(window.designer);
    });
    window.designer.Surface().Act([&] { views.MainTab.UserClicksTab(1); });
    Measure("  choose another dump of 1,000 fields, to painted", 21, [&](int round) {
        window.designer.Surface().Act([&] { views.CmbDump.UserChooses((round + 1) % 2); });
        Paint(window.designer);
    });
}

// The part of a change of dumps that is not the window's.
void MeasureWithoutAWindow()
{
    SilentDesk desk;
    ctlRulemesh control(desk, desk);
    control.TargetTable(GeneratedTargetTable);
    control.Edit(true);
    control.MappingObjectXML(WideObject());
    control.ShowControl();
    control.Views().MainTab.UserClicksTab(1);
    Measure("  the same without a window", 21,
            [&](int round) { control.Views().CmbDump.UserChooses((round + 1) % 2); });
}

void FillRows(DesignerViews& views, int rows)
{
    views.lstSourceFields.Clear();
    for (int row = 0; row < rows; ++row) {
        const Text number = FromQt(QString::number(100000 + row));
        views.lstSourceFields.Add({u"*", number, u"srctb001.field" + number, u"Long", u"4", u"Field " + number});
    }
}

void MeasureScrolling()
{
    Window window;
    window.Open(WideObject());
    DesignerViews& views = window.designer.Control().Views();
    window.designer.Surface().Act([&] { views.MainTab.UserClicksTab(1); });
    Measure("fill a source list of 50,000 rows, to painted", 5, [&](int) {
        window.designer.Surface().Act([&] { FillRows(views, 50000); });
        Paint(window.designer);
    });
    QTreeView& tree = dynamic_cast<ListWidget&>(window.designer.Surface().Of(views.lstSourceFields)).Tree();
    Measure("  a frame of scrolling it", 500, [&](int round) {
        tree.verticalScrollBar()->setValue(round * 97 % 50000);
        tree.viewport()->repaint();
    });
    Measure("  select a row of it, to painted", 21, [&](int round) {
        window.designer.Surface().Act([&] { views.lstSourceFields.UserClicksRow(round * 2000 + 1); });
        Paint(window.designer);
    });
}

} // namespace

} // namespace rulemesh

int main(int count, char** words)
{
    const QApplication application(count, words);
    std::printf("%-58s %8s %8s\n", "ms", "median", "worst");
    rulemesh::MeasureOpening();
    rulemesh::MeasureWithoutAWindow();
    rulemesh::MeasureScrolling();
    return 0;
}
