#include "script/prune_document.h"

#include <unordered_set>

#include "base/failure.h"
#include "base/numbers.h"

namespace rulemesh {

void DocumentPruning::PruneDocument()
{
    PruneQueries();
    SyncDumps();
}

void DocumentPruning::PruneQueries()
{
    state_.StrMigrateTables = {u""};
    scanner_.ParseMigrateKeywords(document_.GetPreconditionText());

    const std::unordered_set<Text> migrated(state_.StrMigrateTables.begin(), state_.StrMigrateTables.end());
    const XmlNode root = document_.Document().firstChild();
    for (const XmlNode& query : document_.Document().selectNodes(document_.RootPath(u"QUERY"))) {
        const std::optional<Text> StrTable = query.getNamedItem(u"ST");
        if (!StrTable)
            throw Failure(FailureCode::ObjectVariableNotSet,
                          u"An element QUERY has no attribute ST, which names its table");
        if (!migrated.contains(*StrTable))
            root.removeChild(query);
    }
}

void DocumentPruning::SyncDumps()
{
    queries_.CollectDumps(state_.IntDumpNumbers, state_.StrDumpTexts);
    for (std::size_t index = 0; index < state_.IntDumpNumbers.size(); ++index) {
        if (!document_.GetDumpNode(state_.IntDumpNumbers[index]))
            document_.CreateDumpNode(state_.IntDumpNumbers[index], state_.StrDumpTexts[index]);
    }

    const XmlNode root = document_.Document().firstChild();
    for (const XmlNode& dump : document_.Document().selectNodes(document_.RootPath(u"DUMP"))) {
        const Text StrNumber = GetAttribute(dump, u"No");
        const std::int16_t IntDump =
            Telling([] { return u"The number (No) of an element DUMP"; }, [&] { return ToInt16(StrNumber); });
        if (!IsInDumpList(state_.IntDumpNumbers, IntDump))
            root.removeChild(dump);
    }
}

} // namespace rulemesh
