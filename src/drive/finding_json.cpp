#include "drive/finding_json.h"

namespace rulemesh {

Json JsonOf(const Finding& finding)
{
    return {{"kind", JsonOf(finding.Kind)},
            {"severity", JsonOf(SeverityWord(finding.How))},
            {"dump", finding.Dump},
            {"table", JsonOf(finding.Table)},
            {"field", JsonOf(finding.Field)},
            {"line", finding.Line},
            {"text", JsonOf(finding.Sentence)}};
}

} // namespace rulemesh
