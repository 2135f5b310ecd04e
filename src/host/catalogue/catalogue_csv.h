#pragma once

#include <QByteArray>

#include "object/catalogue.h"

namespace rulemesh {

/// Reads a catalogue from a CSV file: one row for each field, under a header row that names the columns (see
/// docs/catalogue-csv.md). Raises HostError with one line for each mistake, which tells where it stands and what to do.
[[nodiscard]] Catalogue ReadCatalogueCsv(const QByteArray& bytes);

} // namespace rulemesh
