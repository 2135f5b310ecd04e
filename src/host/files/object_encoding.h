#pragma once

#include <QByteArray>

namespace rulemesh {

/// The bytes of an XML text as UTF-8, by their byte order mark or, without one, by the declaration. A byte order mark
/// of UTF-8 stays; the declared encoding of a converted text becomes UTF-8. Raises HostError for an encoding that isn't
/// known here and for bytes that don't fit the encoding.
[[nodiscard]] QByteArray XmlToUtf8(const QByteArray& bytes);

} // namespace rulemesh
