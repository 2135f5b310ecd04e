#include "script/prune_document.h"

namespace rulemesh {

void DocumentPruning::PruneDocument()
{
    PruneQueries();
    SyncDumps();
}

void DocumentPruning::PruneQueries()
{
    state_.StrMigrateTables = {u""};
    scanner_.ParseMigrateKeywords(object_.Read().GetPreconditionText());

    object_.PruneQueries(state_.StrMigrateTables);
}

void DocumentPruning::SyncDumps()
{
    queries_.CollectDumps(state_.IntDumpNumbers, state_.StrDumpTexts);
    for (std::size_t index = 0; index < state_.IntDumpNumbers.size(); ++index)
        object_.EnsureDump(state_.IntDumpNumbers[index], state_.StrDumpTexts[index]);
    object_.PruneDumps(state_.IntDumpNumbers);
}

} // namespace rulemesh
