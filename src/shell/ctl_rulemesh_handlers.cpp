#include "shell/ctl_rulemesh.h"
#include "views/wiring.h"

namespace rulemesh {

// View, event, what the user does by it (the name of a step in a menu), and the handler.
void ctlRulemesh::WireHandlers()
{
    DesignerViews& v = views_;
    const Wire table[] = {
        {v.Tree, &ViewTree::KeyDown, u"Key", *this, &ctlRulemesh::UserControl_KeyDown},
        {v.Tree, &ViewTree::ExitFocus, u"Leave", *this, &ctlRulemesh::UserControl_ExitFocus},
        {v.MainTab, &TabControl::Click, u"Tab", tabs_, &TabFlow::MainTab_Click},

        {v.CmdSelectSource, &Button::Click, u"Select", sourceTables_, &SourceTableList::CmdSelectSource_Click},
        {v.lstSourceTables, &ListView::KeyDown, u"Delete", sourceTables_, &SourceTableList::lstSourceTables_KeyDown},
        {v.txtPreCondition, &SyntaxBox::GotFocus, u"Focus", preConditions_, &PreConditions::txtPreCondition_GotFocus},
        {v.txtPreCondition, &SyntaxBox::LostFocus, u"Leave", preConditions_, &PreConditions::SavePreCondition},
        {v.txtPreCondition, &SyntaxBox::KeyDown, u"Key", preConditions_, &PreConditions::txtPreCondition_KeyDown},
        {v.CmdBuildPre, &Button::Click, u"Build", preConditions_, &PreConditions::CmdBuildPre_Click},
        {v.lstMigrateSource, &ListView::ItemClick, u"Row", queries_, &MainQueries::lstMigrateSource_ItemClick},
        {v.txtMainQuery, &SyntaxBox::GotFocus, u"Focus", queries_, &MainQueries::txtMainQuery_GotFocus},
        {v.txtMainQuery, &SyntaxBox::LostFocus, u"Leave", queries_, &MainQueries::SaveMainQuery},
        {v.txtMainQuery, &SyntaxBox::KeyDown, u"Key", queries_, &MainQueries::txtMainQuery_KeyDown},
        {v.cmdBuildMQ, &Button::Click, u"Build", queries_, &MainQueries::cmdBuildMQ_Click},

        {v.CmbDump, &ComboBox::Click, u"Dump", shownDump_, &ShownDump::CmbDump_Click},
        {v.CmbDump, &ComboBox::LostFocus, u"Leave", shownDump_, &ShownDump::CmbDump_LostFocus},
        {v.Command1, &Button::Click, u"Show", shownDump_, &ShownDump::Command1_Click},
        {v.CmdMap, &Button::Click, u"Map", mapping_, &RuleMapping::CmdMap_Click},
        {v.CmdGuess, &Button::Click, u"Guess", mapping_, &RuleMapping::CmdGuess_Click},
        {v.cmdCopyDump, &Button::Click, u"Copy from dump", copying_, &DumpCopying::cmdCopyDump_Click},
        {v.cmdCopyToAllDumps, &Button::Click, u"Copy to all dumps", copying_, &DumpCopying::cmdCopyToAllDumps_Click},
        {v.CmdChange, &Button::Click, u"Change", retargeting_, &DumpRetargeting::CmdChange_Click},

        {v.RulesGrid, &Grid::Click, u"Cell", grid_, &RulesGridEditing::RulesGrid_Click},
        {v.RulesGrid, &Grid::DblClick, u"Cell", grid_, &RulesGridEditing::RulesGrid_DblClick},
        {v.RulesGrid, &Grid::KeyPress, u"Typing", grid_, &RulesGridEditing::RulesGrid_KeyPress},
        {v.RulesGrid, &Grid::LeaveCell, u"Cell", grid_, &RulesGridEditing::RulesGrid_LeaveCell},
        {v.RulesGrid, &Grid::EnterCell, u"Cell", grid_, &RulesGridEditing::RulesGrid_EnterCell},
        {v.RulesGrid, &Grid::GotFocus, u"Focus", grid_, &RulesGridEditing::RulesGrid_GotFocus},
        {v.RulesGrid, &Grid::Scroll, u"Scroll", grid_, &RulesGridEditing::RulesGrid_Scroll},
        {v.txtgrdline, &TextBox::LostFocus, u"Leave", grid_, &RulesGridEditing::txtgrdline_LostFocus},
        {v.txtgrdline, &TextBox::KeyDown, u"Key", grid_, &RulesGridEditing::txtgrdline_KeyDown},
        {v.lstTargetFields, &ListView::ItemClick, u"Row", lists_, &FieldLists::lstTargetFields_ItemClick},
        {v.lstTargetFields, &ListView::ColumnClick, u"Sort", lists_, &FieldLists::lstTargetFields_ColumnClick},
        {v.lstSourceFields, &ListView::ColumnClick, u"Sort", lists_, &FieldLists::lstSourceFields_ColumnClick},
        {v.lstSourceFields, &ListView::ItemCheck, u"Tick", lists_, &FieldLists::lstSourceFields_ItemCheck},
        {v.lstSourceFields, &ListView::GotFocus, u"Focus", lists_, &FieldLists::lstSourceFields_GotFocus},

        {v.CmdPreDoc, &Button::Click, u"Text", notes_, &TextNotes::CmdPreDoc_Click},
        {v.CmdMQDoc, &Button::Click, u"Text", notes_, &TextNotes::CmdMQDoc_Click},
        {v.CmdDumpText, &Button::Click, u"Comment", notes_, &TextNotes::CmdDumpText_Click},
        {v.CmdEditRule, &Button::Click, u"Edit Rule", editor_, &EditorBridge::CmdEditRule_Click},
        {v.CmdMqEditor, &Button::Click, u"Editor", editor_, &EditorBridge::CmdMqEditor_Click},
        {v.CmdPreEditor, &Button::Click, u"Editor", editor_, &EditorBridge::CmdPreEditor_Click},
        {v.CmdFuncEditor, &Button::Click, u"Editor", editor_, &EditorBridge::CmdFuncEditor_Click},
        {v.cmdSrcEdit, &Button::Click, u"Edit", editor_, &EditorBridge::cmdSrcEdit_Click},
        {v.CmdFunction, &Button::Click, u"Functions", panels_, &TextPanels::CmdFunction_Click},
        {v.CmdVariables, &Button::Click, u"Variables / Includes", panels_, &TextPanels::CmdVariables_Click},
        {v.CmdOk, &Button::Click, u"Ok", panels_, &TextPanels::CmdOk_Click},
        {v.CmdCancel, &Button::Click, u"Cancel", panels_, &TextPanels::CmdCancel_Click},
        {v.CmdFuncBuild, &Button::Click, u"Build", panels_, &TextPanels::CmdFuncBuild_Click},
        {v.PicMQResize, &PictureButton::Click, u"Enlarge", layout_, &Layout::PicMQResize_Click},
        {v.PicPreResize, &PictureButton::Click, u"Enlarge", layout_, &Layout::PicPreResize_Click},
    };
    for (const Wire& wire : table)
        wire.Hang();
}

} // namespace rulemesh
