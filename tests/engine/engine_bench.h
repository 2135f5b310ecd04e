#pragma once

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "base/numbers.h"
#include "engine/copy_dumps.h"
#include "engine/retarget.h"
#include "engine/rule_mapping.h"
#include "support/object_bench.h"

namespace rulemesh {

/// The engine over an object of the test's own.
class EngineBench : public ObjectBench {
protected:
    /// The dumps as the scripts would name them, in the lists and in CmbDump; none is selected.
    void NameDumps(const std::vector<std::pair<std::int16_t, Text>>& dumps)
    {
        state_.IntDumpNumbers.clear();
        state_.StrDumpTexts.clear();
        views_.CmbDump.Clear();
        for (const auto& [number, comment] : dumps) {
            state_.IntDumpNumbers.push_back(number);
            state_.StrDumpTexts.push_back(comment);
            state_.DumpComments[number] = comment;
            views_.CmbDump.AddItem(TwoDigitNumber(number) + u"--" + comment, number);
        }
    }

    /// Puts a dump of CmbDump on show, as a choice of the user does.
    void Show(int index)
    {
        views_.CmbDump.ListIndex(index);
        state_.DumpInGrid = GridDump(shownDump_.SelectedDump());
        shownDump_.ShowDump(shownDump_.SelectedDump());
    }

    /// Makes the object a multi-target one with these tables on offer.
    void OfferTables(const std::vector<Text>& tables)
    {
        state_.BoolMultiTarget = true;
        for (const Text& table : tables)
            views_.CmbTargetTable.AddItem(table);
    }

    [[nodiscard]] std::vector<Text> Rules() const
    {
        std::vector<Text> rules;
        for (int row = 0; row < views_.RulesGrid.Rows(); ++row)
            rules.push_back(views_.RulesGrid.TextMatrix(row, 1));
        return rules;
    }

    [[nodiscard]] std::vector<Text> Keys() const
    {
        std::vector<Text> keys;
        for (int row = 0; row < views_.RulesGrid.Rows(); ++row)
            keys.push_back(views_.RulesGrid.TextMatrix(row, 0));
        return keys;
    }

    DumpLookup lookup_{object_, state_, views_};
    ShownDump shownDump_{object_, state_, views_, platform_, lookup_};
    RuleMapping mapping_{views_, platform_, lookup_, shownDump_};
    DumpCopying copying_{object_, state_, views_, platform_, shownDump_, preConditions_};
};

} // namespace rulemesh
