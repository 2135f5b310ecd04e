#include "shell/text_panels.h"

#include <array>

namespace rulemesh {

namespace {

constexpr TextView TabMark = u"~|~";
constexpr TextView LineEndMark = u"~^~";

constexpr int PanelButtonGap = 120; // twips

Text CaptionOf(TextPanel panel)
{
    switch (panel) {
    case TextPanel::Functions:
        return u"Functions";
    case TextPanel::Variables:
        return u"Variables / Includes ";
    case TextPanel::None:
        break;
    }
    return u"PreCondition";
}

} // namespace

bool CaptionSaysFunctions(const DesignerViews& views)
{
    return views.lblPreCondition.Caption() == CaptionOf(TextPanel::Functions);
}

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

// What closes is what shows: a host may have hidden or shown a box by itself.
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
        SayWhatIsOpen(TextPanel::None);
}

void TextPanels::SayWhatIsOpen(TextPanel panel)
{
    state_.OpenPanel = panel;
    views_.lblPreCondition.Caption(CaptionOf(panel));
}

void TextPanels::OpenPanel(TextPanel panel, SyntaxBox& box, const Text& StrText)
{
    box.Text(StrText);
    CloseTextPanel(false, false);
    box.Visible(true);
    SayWhatIsOpen(panel);
    box.SetFocus();
    if (state_.BoolEdit)
        events_.SaveDoneDisabled();
}

void TextPanels::CmdFunction_Click()
{
    OpenPanel(TextPanel::Functions, views_.txtFunctions, DecodeEntities(object_.Read().GetFunctionsText()));
}

void TextPanels::CmdVariables_Click()
{
    const Text StrText = WithoutMarks(object_.Read().GetVariablesText());
    OpenPanel(TextPanel::Variables, views_.txtVariables, DecodeEntities(StrText));
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
