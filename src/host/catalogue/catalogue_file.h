#pragma once

#include <QString>

#include "object/catalogue.h"

namespace rulemesh {

/// The catalogue in a file: a CSV file by its ending, else that of a mapping object. Raises HostError when the file
/// can't be read or has none.
[[nodiscard]] Catalogue ReadCatalogueFile(const QString& path);

/// What a file dialog offers for such files.
[[nodiscard]] QString CatalogueFileFilter();

} // namespace rulemesh
