#pragma once

#include <QByteArray>
#include <QString>

#include "files/plain_file.h"

namespace rulemesh {

/// ReadPlainFile for the toolkit's texts. Raises HostError.
[[nodiscard]] QByteArray ReadPlainFile(const QString& path);

} // namespace rulemesh
