// A program to be ended: `save FOLDER` saves two large texts in turn without end, `edit FOLDER` types into a cell and
// waits, `application FOLDER` is the whole application, in which somebody types and then goes on without a pause, and
// tells by the file `typed` that he has. The object is object.xml in the folder.

#include <cstring>

#include <QApplication>
#include <QFile>
#include <QTimer>

#include "desktop/rulemesh_widget.h"
#include "desktop/view_surface.h"
#include "host/application.h"
#include "host/settings/settings.h"
#include "host/window/main_window.h"

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

void Type(RulemeshWidget& designer)
{
    DesignerViews& views = designer.Control().Views();
    designer.Surface().Act([&] { views.MainTab.UserClicksTab(1); });
    designer.Surface().Act([&] { views.RulesGrid.UserClicksCell(1, 1, Grid::Clicks::Double); });
    designer.Surface().Act([&] { views.txtgrdline.UserTypes(u"typed before the end"); });
}

int EditAndWait(const QString& folder)
{
    Settings settings(folder + QStringLiteral("/settings.ini"));
    DraftStore drafts(folder + QStringLiteral("/drafts"));
    MainWindow window(settings, drafts, DraftTimes{20, 20});
    window.show();
    window.Current().Open(folder + QStringLiteral("/object.xml"));
    Type(window.Current().Object()->Widget());
    return QApplication::exec();
}

MainWindow* OpenWindow()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* window = dynamic_cast<MainWindow*>(widget);
        if (window != nullptr && window->Current().Object() != nullptr)
            return window;
    }
    return nullptr;
}

// Drafts wait for a pause, which never comes.
void WorkInTheApplication(const QString& folder)
{
    auto* clock = new QTimer(qApp);
    QObject::connect(clock, &QTimer::timeout, clock, [folder] {
        MainWindow* window = OpenWindow();
        if (window == nullptr)
            return;
        QFile typed(folder + QStringLiteral("/typed"));
        if (!typed.exists()) {
            Type(window->Current().Object()->Widget());
            (void)typed.open(QIODevice::WriteOnly);
        }
        window->Current().Object()->Widget().Surface().Act([] {});
    });
    clock->start(50);
}

int RunTheApplication(const QString& folder)
{
    int count = 1;
    char name[] = "rulemesh";
    char* words[] = {name, nullptr};
    return RunApplication(count, words, folder + QStringLiteral("/object.xml"));
}

QString Folder; // for what starts with the application, before anybody can tell it

void StartWorking()
{
    if (!Folder.isEmpty())
        WorkInTheApplication(Folder);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(StartWorking)

int main(int argc, char** argv)
{
    if (argc < 3)
        return 2;
    const QString folder = QString::fromLocal8Bit(argv[2]);
    if (std::strcmp(argv[1], "save") == 0)
        SaveForEver(folder + QStringLiteral("/object.xml"));
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (std::strcmp(argv[1], "application") == 0) {
        Folder = folder;
        return RunTheApplication(folder);
    }
    const QApplication application(argc, argv);
    return EditAndWait(folder);
}
