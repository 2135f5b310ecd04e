#pragma once

#include <string>

#include <QStringList>

namespace rulemesh {

/// What is wrong with the numbers of the fields in the target tables of an object (UTF-8), a line for each table. The
/// attribute `No` of a field must be its place among the fields of its table, as it names the row of the field's rule:
/// a rule in another row would go to another field, or nowhere. Empty when all is well and for a text that is no XML.
[[nodiscard]] QStringList FaultyFieldNumbers(const std::string& object);

} // namespace rulemesh
