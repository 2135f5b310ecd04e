#include "host/files/application_files.h"

#include <QDir>
#include <QStandardPaths>

#include "base/failure.h"
#include "desktop/desktop_platform.h"
#include "desktop/qt_text.h"

namespace rulemesh {

namespace {

// The files make their folder themselves, but not what it lies in.
Text FolderInTheCache()
{
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    QDir().mkpath(cache);
    return FromQt(cache + QStringLiteral("/temporary"));
}

} // namespace

ApplicationFiles::ApplicationFiles() : PrivateFolderFiles(FolderInTheCache(), SystemCodePage()) {}

void ApplicationFiles::WriteCopy(TextView StrPath, std::string_view bytes)
{
    try {
        Write(StrPath, bytes);
    } catch (const Failure&) { // NOLINT(bugprone-empty-catch): nothing reads the copy
    }
}

} // namespace rulemesh
