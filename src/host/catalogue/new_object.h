#pragma once

#include <vector>

#include <QByteArray>

#include "base/text.h"
#include "object/catalogue.h"

namespace rulemesh {

/// What a new object is made of.
struct NewObjectPlan {
    Text Target;                    // names the root element, in this very case
    Catalogue Tables;               // of which Target must be a target table
    std::vector<Text> TargetChoice; // the target tables that a dump may fill; with fewer than two there is but Target
};

/// The text of a new object (UTF-8, indented): its catalogue, an empty precondition and an empty list of source tables.
/// Raises HostError for a plan that can't be carried out.
[[nodiscard]] QByteArray MakeNewObject(const NewObjectPlan& plan);

} // namespace rulemesh
