#include "host/window/opening_questions.h"

#include <QFileInfo>

#include "host/files/plain_file.h"
#include "host/files/safe_file.h"
#include "host/reading/field_numbers.h"
#include "host/window/host_boxes.h"

namespace rulemesh {

// A file that was being written in place when its program was killed may hold a mixture of two texts.
void MendCutShortSave(QWidget& window, const QString& path)
{
    const QString copy = CopyOfCutShortSave(path);
    if (!copy.isEmpty() &&
        AskToGoOn(&window,
                  QStringLiteral("The last save of %1 may have been cut short.").arg(QFileInfo(path).fileName()),
                  QStringLiteral("A program was ended while it wrote the file. The whole text from before that save "
                                 "stands in %1.")
                      .arg(copy),
                  QStringLiteral("&Put It Back")))
        WriteFileAtOnce(path, ReadPlainFile(copy));
}

bool AskForReadOnly(QWidget& window, const QString& name, const ObjectText& text, Access& access)
{
    QStringList faults = FaultyFieldNumbers(text.Object.toStdString());
    if (faults.isEmpty())
        return true;
    faults.prepend(
        QStringLiteral("By these numbers rules would be shown at other fields, and be lost at a save. In the "
                       "file, give each field as No the number of its place: 1, 2, 3 and so on. Until then "
                       "the object can be looked at, but not saved."));
    access = Access::ReadOnly;
    return AskToGoOn(&window, QStringLiteral("%1 has target tables with wrong numbers of fields.").arg(name),
                     faults.join(u'\n'), QStringLiteral("Open &Read-only"));
}

} // namespace rulemesh
