#pragma once

#include <string>
#include <vector>

#include "support/object_bench.h"

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

/// The script operations over a small mapping object that may be edited.
class ScriptBench : public ObjectBench {
protected:
    ScriptBench()
    {
        state_.BoolEdit = true;
        Load("");
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
};

} // namespace rulemesh
