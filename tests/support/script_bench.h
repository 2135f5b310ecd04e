#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "script/precondition.h"
#include "script/prune_document.h"
#include "support/recording_events.h"
#include "support/recording_platform.h"

namespace rulemesh {

/// One box as the user saw it, in a line: "critical: text"; the title and the buttons follow where they are not the
/// default: "notice: text [title] OK Cancel".
inline Text LineOf(const Message& message)
{
    constexpr TextView Icons[] = {u"none", u"critical", u"exclamation", u"question", u"notice"};
    constexpr TextView Buttons[] = {u"OK", u"Cancel", u"Yes", u"No"};
    Text line = Text(Icons[static_cast<std::size_t>(message.Icon)]) + u": " + message.Text;
    if (!message.Title.empty())
        line += u" [" + message.Title + u"]";
    if (message.Buttons != std::vector{MessageButton::Ok}) {
        for (const MessageButton button : message.Buttons)
            line.append(u" ").append(Buttons[static_cast<std::size_t>(button)]);
    }
    return line;
}

/// The script operations over a small mapping object, with views on which no handlers hang: what an operation does is
/// its own doing. The target table is `tgtab001`.
class ScriptBench : public testing::Test {
protected:
    ScriptBench()
    {
        state_.StrTargetTable = u"tgtab001";
        state_.BoolEdit = true;
        Load("");
    }

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
        return xml == "<tgtab001/>" ? "" : xml.substr(open.size(), xml.size() - open.size() - close.size());
    }

    /// The boxes since the last call.
    [[nodiscard]] std::vector<Text> Boxes()
    {
        std::vector<Text> lines;
        for (const Message& message : std::exchange(platform_.Messages, {}))
            lines.push_back(LineOf(message));
        return lines;
    }

    [[nodiscard]] static std::vector<Text> RowsOf(const ListView& list)
    {
        std::vector<Text> rows;
        for (int row = 1; row <= list.Count(); ++row)
            rows.push_back(list.TextAt(row, 0));
        return rows;
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
    DocumentPruning pruning_{access_, state_, scanner_, queries_};
};

} // namespace rulemesh
