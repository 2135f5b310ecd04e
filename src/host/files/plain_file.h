#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>

namespace rulemesh {

/// All bytes of a plain file. Raises HostError for everything else that may stand there (a folder, a pipe, a device
/// ...) before it is opened, so that nothing hangs, and for a file that can't be read or is larger than this machine
/// can work on.
[[nodiscard]] QByteArray ReadPlainFile(const QString& path);

/// What stands there, for people: "a folder, not a file".
[[nodiscard]] QString KindOf(mode_t mode);

/// The largest file that ReadPlainFile reads, in bytes. The designer holds an object several times over, so it is a
/// part of the machine's memory.
[[nodiscard]] qint64 LargestFile();

} // namespace rulemesh
