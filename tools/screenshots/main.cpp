// Takes pictures of the designer on a mapping object: both tabs, and the form of a note.
//
//   rulemesh_screenshots OBJECT FOLDER

#include <cstdio>

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTimer>

#include "desktop/rulemesh_widget.h"
#include "desktop/view_surface.h"
#include "host/files/object_file.h"

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

    rulemesh::RulemeshWidget designer;
    designer.setWindowTitle(QStringLiteral("Rulemesh"));
    designer.Edit(true);
    designer.Syntax_Highlight(true);
    designer.MappingObjectXmlUtf8(object);
    designer.TargetTable(rulemesh::RootName(object));
    designer.ShowControl();
    designer.resize(designer.sizeHint());
    designer.show();
    bool saved = SaveView(designer, folder, "condition.png");

    rulemesh::DesignerViews& views = designer.Control().Views();
    designer.Surface().Act([&] { views.MainTab.UserClicksTab(1); });
    saved = SaveView(designer, folder, "rules.png") && saved;

    // The form holds up the click that brought it.
    QTimer::singleShot(0, [&] {
        auto* const form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (form == nullptr)
            return;
        saved = SaveView(*form, folder, "note.png") && saved;
        // Closing a new note by its frame or by Escape asks whether to keep it; Cancel doesn't.
        for (QPushButton* const button : form->findChildren<QPushButton*>()) {
            if (button->text().remove(u'&') == QLatin1String("Cancel"))
                button->click();
        }
    });
    designer.Surface().Act([&] { views.CmdDumpText.UserClicks(); });
    return saved ? 0 : 1;
}
