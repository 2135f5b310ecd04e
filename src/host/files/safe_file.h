#pragma once

#include <QByteArray>
#include <QString>

#include "files/safe_file.h"

namespace rulemesh {

/// WriteFileAtOnce and what goes with it for the toolkit's texts. Raise HostError.
void WriteFileAtOnce(const QString& path, const QByteArray& bytes, FileCalls& calls = SystemCalls());
void SweepLeftovers(const QString& path);
[[nodiscard]] QString CopyOfCutShortSave(const QString& path);

} // namespace rulemesh
