#pragma once

#include <functional>

#include "script/precondition.h"

namespace rulemesh {

/// Trips to an external editor: a text is written to a temporary file, the editor is run and waited for, and what it
/// leaves goes back to the view that the text came from. A status other than 0 drops the edit.
class EditorBridge {
public:
    EditorBridge(ControlState& state, DesignerViews& views, Platform& platform, MainQueries& queries,
                 PreConditions& preConditions, SourceTableList& sourceTables)
        : state_(state), views_(views), platform_(platform), queries_(queries), preConditions_(preConditions),
          sourceTables_(sourceTables)
    {
    }

    void CmdEditRule_Click();
    void CmdMqEditor_Click();
    void CmdPreEditor_Click();
    void CmdFuncEditor_Click();
    void cmdSrcEdit_Click();

private:
    /// Whether the text that comes back from the editor may be taken over.
    enum class TakesBack { WhenEditable, Always };
    using Store = std::function<void(const Text& StrText)>;

    /// One trip of a text: there, and back to where `store` puts it.
    void MakeTrip(Button& button, TextView StrEnding, const Text& StrText, TakesBack takesBack, const Store& store);

    /// Disables the button and writes the file, whose path is returned. A text that its file can't hold raises
    /// InvalidProcedureCall before anything is touched.
    [[nodiscard]] Text LeaveForEditor(Button& button, TextView StrEnding, const Text& StrText);

    /// The editor's exit status; 0 too, behind a message, when it can't be run.
    [[nodiscard]] std::int16_t RunEditor(const Text& StrPath);

    ControlState& state_;
    DesignerViews& views_;
    Platform& platform_;
    MainQueries& queries_;
    PreConditions& preConditions_;
    SourceTableList& sourceTables_;
};

} // namespace rulemesh
