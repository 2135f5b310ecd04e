#pragma once

#include "script/main_query.h"

namespace rulemesh {

/// Brings the document in line with the scripts when the host reads it: queries of tables that are no longer migrated
/// go, dumps that a script names are made, and dumps that none names go with all their rules.
class DocumentPruning {
public:
    DocumentPruning(MappingObject& object, ControlState& state, ScriptScanner& scanner, MainQueries& queries)
        : object_(object), state_(state), scanner_(scanner), queries_(queries)
    {
    }

    void PruneDocument();

private:
    void PruneQueries();
    void SyncDumps();

    MappingObject& object_;
    ControlState& state_;
    ScriptScanner& scanner_;
    MainQueries& queries_;
};

} // namespace rulemesh
