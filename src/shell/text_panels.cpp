#include "shell/text_panels.h"

#include <array>

namespace rulemesh {

namespace {

constexpr TextView TabMark = u"~|~";
constexpr TextView LineEndMark = u"~^~";

constexpr int PanelButtonGap = 120; // twips

} // namespace

Text WithoutMarks(TextView StrVariables)
{
    return ReplaceAll(ReplaceAll(StrVariables, TabMark, u"\t"), LineEndMark, LineEnd);
}

void TextPanels::ShowMainQueryView(bool BoolVisible)
{
    const std::array<View*, 7> group = {&views_.txtMainQuery, &views_.CmdMQDoc,    &views_.CmdMqEditor,
                                        &views_.cmdBuildMQ,   &views_.PicMQResize, &views_.CmdFunction,
                                        &views_.CmdVariables};
    for (View* view : group)
        view->Visible(BoolVisible);
}

void TextPanels::ShowPreconditionView(bool BoolVisible)
{
    const std::array<View*, 7> group = {&views_.txtPreCondition, &views_.CmdPreDoc,    &views_.CmdBuildPre,
                                        &views_.CmdPreEditor,    &views_.PicPreResize, &views_.CmdFunction,
                                        &views_.CmdVariables};
    for (View* view : group)
        view->Visible(BoolVisible);
}

void TextPanels::ShowPanelButtons(bool BoolVisible)
{
    views_.CmdOk.Visible(BoolVisible);
    views_.CmdCancel.Visible(BoolVisible);
    views_.CmdFuncEditor.Left(views_.CmdCancel.Right() + PanelButtonGap);
    views_.CmdFuncEditor.Visible(BoolVisible);
}

// Without a save the stored text is written back as it is, which makes the element if it was missing.
void TextPanels::CloseTextPanel(bool BoolShowViews, bool BoolSave)
{
    if (views_.txtFunctions.Visible()) {
        views_.txtFunctions.Visible(false);
        object_.SetFunctionsText(BoolSave ? views_.txtFunctions.Text() : object_.Read().GetFunctionsText());
    }
    if (views_.txtVariables.Visible()) {
        views_.txtVariables.Visible(false);
        object_.SetVariablesText(BoolSave ? views_.txtVariables.Text() : object_.Read().GetVariablesText());
    }
    ShowPreconditionView(BoolShowViews);
    ShowMainQueryView(BoolShowViews);
    ShowPanelButtons(!BoolShowViews);
    if (BoolShowViews)
        views_.lblPreCondition.Caption(u"PreCondition");
}

void TextPanels::OpenPanel(SyntaxBox& box, const Text& StrText, const Text& StrCaption)
{
    box.Text(StrText);
    CloseTextPanel(false, false);
    box.Visible(true);
    views_.lblPreCondition.Caption(StrCaption);
    box.SetFocus();
    if (state_.BoolEdit)
        events_.SaveDoneDisabled();
}

void TextPanels::CmdFunction_Click()
{
    OpenPanel(views_.txtFunctions, DecodeEntities(object_.Read().GetFunctionsText()), u"Functions");
}

void TextPanels::CmdVariables_Click()
{
    const Text StrText = WithoutMarks(object_.Read().GetVariablesText());
    OpenPanel(views_.txtVariables, DecodeEntities(StrText), u"Variables / Includes ");
}

void TextPanels::CmdOk_Click()
{
    CloseTextPanel(true, true);
    if (state_.BoolEdit)
        events_.SaveDoneEnabled();
}

void TextPanels::CmdCancel_Click()
{
    CloseTextPanel(true, false);
    views_.txtPreCondition.SetFocus();
    if (state_.BoolEdit)
        events_.SaveDoneEnabled();
}

void TextPanels::CmdFuncBuild_Click()
{
    if (views_.CmbDump.Text().empty())
        return;
    const Text StrRule = views_.RulesGrid.TextMatrix(views_.RulesGrid.Row(), 1);
    const Text StrSourceTables = object_.Read().GetSourceTablesText();
    events_.ShowFunctionBuilderPopUp(StrRule, StrSourceTables);
}

} // namespace rulemesh
