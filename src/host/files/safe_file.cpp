#include "host/files/safe_file.h"

#include "host/files/file_names.h"

namespace rulemesh {

void WriteFileAtOnce(const QString& path, const QByteArray& bytes, FileCalls& calls)
{
    const std::string_view view(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    Told([&] { WriteFileAtOnce(FileName(path), view, calls); });
}

void SweepLeftovers(const QString& path) { SweepLeftovers(FileName(path)); }

QString CopyOfCutShortSave(const QString& path)
{
    return Told([&] { return ShownName(CopyOfCutShortSave(FileName(path))); });
}

} // namespace rulemesh
