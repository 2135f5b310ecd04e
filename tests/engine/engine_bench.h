#pragma once

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "base/numbers.h"
#include "engine/copy_dumps.h"
#include "engine/retarget.h"
#include "engine/rule_mapping.h"
#include "support/recording_events.h"
#include "support/recording_platform.h"

namespace rulemesh {

/// The engine over an object of the test's own, with views on which no handlers hang: what an operation does is its own
/// doing. The target table is `tgtab001`.
class EngineBench : public testing::Test {
protected:
    EngineBench() { state_.StrTargetTable = u"tgtab001"; }

    /// The object whose root holds this.
    void Load(const std::string& below) { ASSERT_TRUE(document_.loadXML("<tgtab001>" + below + "</tgtab001>")); }

    /// What the root holds now.
    [[nodiscard]] std::string Below() const
    {
        const std::string xml = document_.xmlUtf8();
        const std::string open = "<tgtab001>";
        const std::string close = "</tgtab001>";
        EXPECT_EQ(xml.substr(0, open.size()), open);
        return xml.substr(open.size(), xml.size() - open.size() - close.size());
    }

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
        views_.CmbDump.Tag(PlainNumber(views_.CmbDump.ItemData()));
        shownDump_.ShowDump(static_cast<std::int16_t>(views_.CmbDump.ItemData()));
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

    ControlState state_;
    XmlDocument document_;
    DesignerViews views_;
    RecordingPlatform platform_;
    RecordingEvents events_;
    DocumentAccess access_{document_, state_};
    ScriptScanner scanner_{access_, state_, views_, platform_};
    SourceTableList sourceTables_{access_, views_, events_};
    MainQueries queries_{access_, state_, views_, platform_, events_, scanner_};
    PreConditions preConditions_{access_, state_, views_, platform_, events_, scanner_, queries_, sourceTables_};
    DumpLookup lookup_{access_, state_, views_};
    ShownDump shownDump_{access_, state_, views_, platform_, lookup_};
    RuleMapping mapping_{views_, platform_, lookup_, shownDump_};
    DumpCopying copying_{access_, state_, views_, platform_, shownDump_, preConditions_};
};

} // namespace rulemesh
