#pragma once

#include <string>

#include <QString>
#include <QStringList>

namespace rulemesh {

/// The names that a text calls as functions: words right in front of "(", without the fields of tables and without
/// what stands behind a bar, each once, in order of the alphabet. The language of scripts and rules is the
/// conversion's own, so nothing more is known of it here.
[[nodiscard]] QStringList FunctionNamesIn(const QString& text);

/// The same for all scripts, functions and rules of an object (UTF-8), with `default`, which every rule can have.
[[nodiscard]] QStringList FunctionNamesOf(const std::string& object);

} // namespace rulemesh
