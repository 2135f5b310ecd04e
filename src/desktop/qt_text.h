#pragma once

#include <QString>

#include "base/text.h"

namespace rulemesh {

/// Both sides count UTF-16 code units, so positions in one are positions in the other.
[[nodiscard]] inline QString ToQt(TextView text)
{
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline Text FromQt(QStringView text)
{
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

} // namespace rulemesh
