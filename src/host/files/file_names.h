#pragma once

#include <string>

#include <QFile>
#include <QString>

#include "files/file_error.h"
#include "host/files/host_error.h"

namespace rulemesh {

/// A file's name as the system has it, and as people read it.
[[nodiscard]] inline std::string FileName(const QString& path) { return QFile::encodeName(path).toStdString(); }
[[nodiscard]] inline QString ShownName(const std::string& name)
{
    return QFile::decodeName(QByteArray::fromStdString(name));
}

/// Does work on files; what can't be done comes out as the application's own error.
template <typename Work> auto Told(Work work)
{
    try {
        return work();
    } catch (const FileError& error) {
        throw HostError(QString::fromUtf8(error.what()));
    }
}

} // namespace rulemesh
