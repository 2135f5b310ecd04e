#pragma once

#include <cstddef>
#include <set>
#include <unordered_set>
#include <vector>

#include "engine/check.h"
#include "engine/field_index.h"
#include "script/statements.h"

namespace rulemesh {

/// One run of the check over an object: what all checks look up, and what they found so far.
class CheckRun {
public:
    explicit CheckRun(const ObjectContent& object);

    const ObjectContent& Object;
    const FieldIndex Sources;
    const FieldIndex Targets;
    std::vector<Text> ListedTables;      // of SRCTBL, as they stand
    std::unordered_set<Text> ListedKeys; // the same in lower case
    std::vector<Text> MigrateTables;     // of the precondition, each once
    std::set<std::int16_t> NamedDumps;   // that the scripts in force name
    std::unordered_set<Text> UsedTables; // that scripts and rules name, in lower case

    /// A script in force, the table under which findings speak of it, and what it is read for.
    struct Script {
        TextView Table;
        TextView Text;
        ScannedFor Statements;
    };
    [[nodiscard]] const std::vector<Script>& Scripts() const noexcept { return scripts_; }

    /// Enters the tables that a text names.
    void UseTablesOf(TextView StrText);

    /// Enters a finding. The place orders those of a dump: 0 for the dump itself, n + 1 for field n of its table.
    void Tell(Finding finding, std::size_t place = 0) { told_.push_back({std::move(finding), place}); }
    [[nodiscard]] std::vector<Finding> Ordered() &&;

private:
    struct Told {
        Finding What;
        std::size_t Place;
    };

    void ReadPrecondition();
    void AddMainQueries();

    std::vector<Script> scripts_;
    std::vector<Told> told_;
};

/// The parts of a check. Each tells what it finds.
void CheckScripts(CheckRun& run);
void CheckTables(CheckRun& run);
void CheckDumps(CheckRun& run);

} // namespace rulemesh
