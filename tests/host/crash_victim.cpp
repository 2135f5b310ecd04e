// A program to be killed: `save FOLDER` saves two large texts in turn without end, `edit FOLDER` types into a cell and
// waits. The object is object.xml in the folder.

#include <cstring>

#include <QApplication>

#include "desktop/rulemesh_widget.h"
#include "desktop/view_surface.h"
#include "host/main_window.h"
#include "host/settings.h"

namespace {

using namespace rulemesh;

constexpr int LargeText = 2'000'000;

[[noreturn]] void SaveForEver(const QString& file)
{
    for (;;) {
        for (const char letter : {'a', 'b'})
            WriteObjectFile(file, {"", "<partn101><PREC>" + QByteArray(LargeText, letter) + "</PREC></partn101>"});
    }
}

int EditAndWait(const QString& folder)
{
    Settings settings(folder + QStringLiteral("/settings.ini"));
    DraftStore drafts(folder + QStringLiteral("/drafts"));
    MainWindow window(settings, drafts, 20);
    window.show();
    window.OpenFile(folder + QStringLiteral("/object.xml"));
    RulemeshWidget& designer = window.Object()->Widget();
    DesignerViews& views = designer.Control().Views();
    designer.Surface().Act([&] { views.MainTab.UserClicksTab(1); });
    designer.Surface().Act([&] { views.RulesGrid.UserClicksCell(1, 1, Grid::Clicks::Double); });
    designer.Surface().Act([&] { views.txtgrdline.UserTypes(u"typed before the end"); });
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3)
        return 2;
    const QString folder = QString::fromLocal8Bit(argv[2]);
    if (std::strcmp(argv[1], "save") == 0)
        SaveForEver(folder + QStringLiteral("/object.xml"));
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return EditAndWait(folder);
}
