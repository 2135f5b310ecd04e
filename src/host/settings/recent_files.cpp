#include "host/settings/recent_files.h"

#include <algorithm>

#include <QDir>
#include <QFileInfo>

namespace rulemesh {

RecentFiles::RecentFiles(const QStringList& paths)
{
    for (auto path = paths.crbegin(); path != paths.crend(); ++path)
        Add(*path);
}

void RecentFiles::Add(const QString& path)
{
    if (path.isEmpty())
        return;
    const QString absolute = QFileInfo(path).absoluteFilePath();
    paths_.removeAll(absolute);
    paths_.prepend(absolute);
    if (paths_.size() > Most)
        paths_.resize(Most);
}

void RecentFiles::Remove(const QString& path) { paths_.removeAll(QFileInfo(path).absoluteFilePath()); }

QStringList RecentFiles::Captions() const
{
    const auto named = [this](const QString& name) {
        return std::count_if(paths_.begin(), paths_.end(),
                             [&](const QString& path) { return QFileInfo(path).fileName() == name; });
    };
    QStringList captions;
    for (const QString& path : paths_) {
        const QFileInfo file(path);
        const QString folder = QDir::toNativeSeparators(file.absolutePath());
        captions += named(file.fileName()) == 1 ? file.fileName() : file.fileName() + QStringLiteral(" - ") + folder;
    }
    return captions;
}

} // namespace rulemesh
