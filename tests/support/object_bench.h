#pragma once

#include <string>

#include <gtest/gtest.h>

#include "script/precondition.h"
#include "script/prune_document.h"
#include "support/recording_events.h"
#include "support/recording_platform.h"

namespace rulemesh {

/// A mapping object of the test's own with the operations of its scripts, on views on which no handlers hang: what an
/// operation does is its own doing. The target table is `tgtab001`.
class ObjectBench : public testing::Test {
protected:
    ObjectBench() { state_.StrTargetTable = u"tgtab001"; }

    /// The object whose root holds this.
    void Load(const std::string& below)
    {
        ASSERT_TRUE(document_.loadXML(below.empty() ? "<tgtab001/>" : "<tgtab001>" + below + "</tgtab001>"));
    }

    /// What the root holds now.
    [[nodiscard]] std::string Below() const
    {
        const std::string xml = document_.xmlUtf8();
        const std::string open = "<tgtab001>";
        const std::string close = "</tgtab001>";
        if (xml == "<tgtab001/>")
            return "";
        EXPECT_EQ(xml.substr(0, open.size()), open);
        return xml.substr(open.size(), xml.size() - open.size() - close.size());
    }

    ControlState state_;
    XmlDocument document_;
    DesignerViews views_;
    RecordingPlatform platform_;
    RecordingEvents events_;
    DocumentAccess access_{document_, state_};
    MappingObject object_{document_, state_};
    ScriptScanner scanner_{object_, state_, views_, platform_};
    SourceTableList sourceTables_{object_, views_, events_};
    MainQueries queries_{object_, state_, views_, platform_, events_, scanner_};
    PreConditions preConditions_{object_, state_, views_, platform_, events_, scanner_, queries_, sourceTables_};
    DocumentPruning pruning_{object_, state_, scanner_, queries_};
};

} // namespace rulemesh
