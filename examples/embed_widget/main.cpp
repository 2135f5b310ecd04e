// The designer as a widget: opens an object in a window, stores it when the window is closed.
//
//   embed_widget FILE TARGET-TABLE [QUIT-AFTER-MILLISECONDS]

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QSaveFile>
#include <QTextStream>
#include <QTimer>

#include "desktop/rulemesh_widget.h"

int main(int count, char** words)
{
    QApplication application(count, words);
    const QStringList arguments = application.arguments();
    QFile file(arguments.value(1));
    if (!file.open(QIODevice::ReadOnly)) {
        qCritical("usage: embed_widget FILE TARGET-TABLE [QUIT-AFTER-MILLISECONDS]");
        return 2;
    }

    rulemesh::RulemeshWidget designer;
    QObject::connect(&designer, &rulemesh::RulemeshWidget::FailureRaised, [&](int number, const QString& text) {
        QMessageBox::critical(&designer, "Failure", QString("%1 (%2)").arg(text).arg(number));
    });
    designer.TargetTable(arguments.value(2));
    designer.Edit(true);
    designer.MappingObjectXmlUtf8(file.readAll());
    designer.ShowControl();
    designer.show();
    QTextStream(stdout) << "showing " << designer.TargetTable() << " from " << designer.SourceTables() << Qt::endl;
    if (arguments.size() > 3)
        QTimer::singleShot(arguments.at(3).toInt(), &application, &QApplication::quit);

    const int status = application.exec();
    designer.TakeFocusOut(); // commits what is still open in a box or cell
    if (const QByteArray object = designer.MappingObjectXmlUtf8(); !object.isNull()) {
        QSaveFile stored(file.fileName()); // the old text stays until the new one is written whole
        if (!stored.open(QIODevice::WriteOnly) || stored.write(object) < 0 || !stored.commit()) {
            qCritical("can't write %s", qPrintable(file.fileName()));
            return 1;
        }
    }
    return status;
}
