#include "host/application.h"

#include <exception>

#include <QApplication>
#include <QIcon>
#include <QTimer>

#include "host/end_signals.h"
#include "host/settings/settings.h"
#include "host/window/host_boxes.h"
#include "host/window/main_window.h"

// The pictures stand in a static library, from which they must be asked for; the macro wants to stand in no namespace.
static void TakeInPictures() { Q_INIT_RESOURCE(rulemesh_host); }

namespace rulemesh {

namespace {

// Nothing that goes wrong in an event may end the program: the user's work would go with it.
class HostApplication : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& error) {
            TellProblem(activeWindow(), QStringLiteral("This could not be done."), QString::fromUtf8(error.what()));
            return true;
        }
    }
};

QIcon Icon()
{
    QIcon icon;
    for (const int size : {16, 32, 48, 128})
        icon.addFile(QStringLiteral(":/rulemesh/%1.png").arg(size));
    return icon;
}

} // namespace

int RunApplication(int& argc, char** argv, const std::optional<QString>& file)
{
    HostApplication application(argc, argv);
    TakeInPictures();
    QApplication::setApplicationName(QStringLiteral("rulemesh"));
    QApplication::setApplicationVersion(QStringLiteral(RULEMESH_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.rulemesh.Rulemesh"));
    QApplication::setWindowIcon(Icon());

    Settings settings;
    DraftStore drafts(DraftStore::DefaultFolder());
    drafts.Sweep();
    MainWindow window(settings, drafts);
    EndSignals endSignals;
    QObject::connect(&endSignals, &EndSignals::Came, &window, [&](int signal) {
        window.Current().KeepDraft();
        EndSignals::End(signal);
    });
    window.show();
    QTimer::singleShot(0, &window, [&] {
        if (!file)
            return window.Drafts().Offer();
        window.Current().Open(*file);
        window.Drafts().Mention();
    });
    return QApplication::exec();
}

} // namespace rulemesh
