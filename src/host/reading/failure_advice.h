#pragma once

#include <QStringList>

namespace rulemesh {

class ctlRulemesh;

/// What in the object or in the boxes raises a failure of this number, where it stands and what a user can do about it;
/// a line for each. Empty when nothing is known. Looks only.
[[nodiscard]] QStringList FailureAdvice(ctlRulemesh& control, int number);

} // namespace rulemesh
