#pragma once

#include "script/control_events.h"
#include "shell/rules_grid.h"

namespace rulemesh {

/// The text of the variables without the marks "~|~" and "~^~" by which other writers tell a tab and a line end.
[[nodiscard]] Text WithoutMarks(TextView StrVariables);

/// Whether the external editor is for the functions. The caption over the boxes decides and not the panel that was
/// opened, as the enlarging of a script, which writes the caption too, has always had the last word.
[[nodiscard]] bool CaptionSaysFunctions(const DesignerViews& views);

/// The two panels that take the place of the scripts: the functions and the variables of the object. A panel's text is
/// stored by OK alone. Also shows and hides the views of the two scripts as groups.
class TextPanels {
public:
    TextPanels(MappingObject& object, ControlState& state, DesignerViews& views, ControlEvents& events)
        : object_(object), state_(state), views_(views), events_(events)
    {
    }

    void ShowMainQueryView(bool BoolVisible);
    void ShowPreconditionView(bool BoolVisible);

    void CmdFunction_Click();
    void CmdVariables_Click();
    void CmdOk_Click();
    void CmdCancel_Click();

    /// Hands the rule of the current row to the host's function builder.
    void CmdFuncBuild_Click();

private:
    void ShowPanelButtons(bool BoolVisible);
    void CloseTextPanel(bool BoolShowViews, bool BoolSave);
    void OpenPanel(TextPanel panel, SyntaxBox& box, const Text& StrText);
    void SayWhatIsOpen(TextPanel panel);

    MappingObject& object_;
    ControlState& state_;
    DesignerViews& views_;
    ControlEvents& events_;
};

} // namespace rulemesh
