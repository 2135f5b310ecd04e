#include "object/rule_text.h"

namespace rulemesh {

bool IsBlankRule(TextView StrRule) { return TrimBlanks(StrRule).find_first_not_of(u'\t') == TextView::npos; }

} // namespace rulemesh
