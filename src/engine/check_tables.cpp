#include <array>
#include <unordered_set>

#include "base/case_map.h"
#include "base/numbers.h"
#include "engine/check_run.h"

namespace rulemesh {

namespace {

// Tells each table once.
class UnknownTables {
public:
    UnknownTables(CheckRun& run, const FieldIndex& index, TextView StrCatalogue)
        : run_(run), index_(index), catalogue_(StrCatalogue)
    {
    }

    void Look(const Text& StrTable, TextView StrNamedBy)
    {
        if (index_.Find(StrTable) != nullptr || !told_.insert(ToUpper(StrTable)).second)
            return;
        run_.Tell({.Kind = u"unknown-table",
                   .How = Finding::Severity::Error,
                   .Table = StrTable,
                   .Sentence = u"The table " + StrTable + u", which " + Text(StrNamedBy) + u" names, isn't in the " +
                               catalogue_ + u" catalogue; correct the name or import the table."});
    }

private:
    CheckRun& run_;
    const FieldIndex& index_;
    Text catalogue_;
    std::unordered_set<Text> told_;
};

void CheckSourceTables(CheckRun& run)
{
    UnknownTables unknown(run, run.Sources, u"source");
    std::unordered_set<Text> seen;
    for (const Text& StrTable : run.ListedTables) {
        unknown.Look(StrTable, u"the list of source tables");
        const Text StrKey = ToLower(StrTable);
        if (seen.insert(StrKey).second && !run.UsedTables.contains(StrKey))
            run.Tell({.Kind = u"unused-table",
                      .How = Finding::Severity::Note,
                      .Table = StrTable,
                      .Sentence = u"The source table " + StrTable +
                                  u" is named by no script and no rule; take it out of the list if it isn't needed."});
    }
    for (const Text& StrTable : run.MigrateTables)
        unknown.Look(StrTable, u"a migrate statement");
}

void CheckTargetTables(CheckRun& run)
{
    if (!run.Object.TargetTables)
        return;
    UnknownTables unknown(run, run.Targets, u"target");
    for (const Text& StrTable : *run.Object.TargetTables)
        unknown.Look(StrTable, u"the list of target tables");
    for (const DumpContent& dump : run.Object.Dumps) {
        if (!dump.Target.value_or(Text()).empty())
            unknown.Look(*dump.Target, u"dump " + dump.Number);
    }
}

bool IsNumbered(const TableContent& table)
{
    double place = 0;
    for (const FieldContent& field : table.Fields) {
        const TextView StrNumber = field.Attribute(u"No");
        if (!IsNumeric(StrNumber) || ToDouble(StrNumber) != ++place)
            return false;
    }
    return true;
}

void CheckNumbering(CheckRun& run)
{
    for (const TableContent& table : run.Object.Targets) {
        if (!IsNumbered(table))
            run.Tell({.Kind = u"numbering",
                      .How = Finding::Severity::Error,
                      .Table = table.Code,
                      .Sentence = u"The numbers (No) of the fields of the table " + table.Code +
                                  u" don't run from 1 without gap or repeat, so rules would meet the wrong fields; "
                                  u"number them anew or import the table."});
    }
}

} // namespace

void CheckTables(CheckRun& run)
{
    CheckSourceTables(run);
    CheckTargetTables(run);
    CheckNumbering(run);
}

} // namespace rulemesh
