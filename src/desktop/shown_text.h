#pragma once

#include <QString>

#include "base/text.h"

namespace rulemesh {

/// A model's text as an editor shows it: each carriage return and line feed as one line feed, a carriage return alone
/// as a soft line break, and every other character as one character. One that an editor would take for the end of a
/// line, or can't show, is shown by a picture of it.
[[nodiscard]] QString ShownText(TextView text);

/// The place in a model's text of a place in what is shown of it. A place past the end means the end.
[[nodiscard]] std::size_t ModelPosition(TextView text, qsizetype shownPosition);

/// The place in what is shown of a model's text of a place in that text.
[[nodiscard]] int ShownPosition(TextView text, std::size_t position);

/// The model's text after what is shown was changed from `before` to `after` past the model.
[[nodiscard]] Text EditedText(TextView text, const QString& before, const QString& after);

} // namespace rulemesh
