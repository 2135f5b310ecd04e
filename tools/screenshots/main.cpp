// Takes pictures of the designer on a mapping object: both tabs, and the form of a note.
//
//   rulemesh_screenshots OBJECT FOLDER

#include <cstdio>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTimer>

#include "desktop/rulemesh_widget.h"
#include "desktop/view_surface.h"
#include "host/object_file.h"

namespace {

bool SaveView(QWidget& widget, const QDir& folder, const char* name)
{
    QApplication::processEvents();
    const QString file = folder.filePath(QLatin1String(name));
    std::printf("%s\n", qPrintable(file));
    return widget.grab().save(file);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 3) {
        std::fputs("usage: rulemesh_screenshots OBJECT FOLDER\n", stderr);
        return 2;
    }
    QFile file(QString::fromLocal8Bit(argv[1]));
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "can't open %s\n", argv[1]);
        return 2;
    }
    const QByteArray object = file.readAll();
    const QDir folder(QString::fromLocal8Bit(argv[2]));
    folder.mkpath(QStringLiteral("."));

    // A box or form holds up what brought it: the note is taken, and everything is closed.
    bool saved = true;
    bool takesNote = false;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, [&] {
        QWidget* const form = QApplication::activeModalWidget();
        if (form == nullptr)
            return;
        if (takesNote)
            saved = SaveView(*form, folder, "note.png") && saved;
        form->close();
    });
    closer.start(100);

    rulemesh::RulemeshWidget designer;
    designer.setWindowTitle(QStringLiteral("Rulemesh"));
    designer.Edit(true);
    designer.Syntax_Highlight(true);
    designer.MappingObjectXmlUtf8(object);
    designer.TargetTable(rulemesh::RootName(object));
    designer.ShowControl();
    designer.resize(designer.sizeHint());
    designer.show();
    saved = SaveView(designer, folder, "condition.png") && saved;

    rulemesh::DesignerViews& views = designer.Control().Views();
    designer.Surface().Act([&] { views.MainTab.UserClicksTab(1); });
    saved = SaveView(designer, folder, "rules.png") && saved;

    takesNote = true;
    designer.Surface().Act([&] { views.CmdDumpText.UserClicks(); });
    return saved ? 0 : 1;
}
