#include "host/files/plain_file.h"

#include "host/files/file_names.h"

namespace rulemesh {

QByteArray ReadPlainFile(const QString& path)
{
    return Told([&] { return QByteArray::fromStdString(ReadPlainFile(FileName(path))); });
}

} // namespace rulemesh
