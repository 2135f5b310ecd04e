#include "shell/editor_bridge.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "shell/temporary_texts.h"

namespace rulemesh {

Text EditorBridge::PathOf(TextView StrEnding) const
{
    return platform_.Files().Folder() + state_.StrTargetTable + Text(StrEnding);
}

// When the run fails BoolEditorOpen stays set, and the caller can't tell it from a clean exit: it reads back the text
// that it wrote a moment ago.
std::int16_t EditorBridge::RunEditor(const Text& StrPath)
{
    try {
        state_.BoolEditorOpen = true;
        const bool named = !TrimBlanks(state_.StrEditor).empty();
        const Text StrCommand = named ? state_.StrEditor + u"  " : platform_.FallbackEditor();
        const std::int16_t IntStatus = ToInt16(std::int64_t{platform_.RunEditor(StrCommand, StrPath)});
        state_.BoolEditorOpen = false;
        return IntStatus;
    } catch (const Failure&) {
        platform_.ShowMessage({.Text = u"Unable to open editor"});
        return 0;
    }
}

void EditorBridge::CmdEditRule_Click()
{
    Grid& grid = views_.RulesGrid;
    const Text StrPath = PathOf(u"Rule.bc");
    RequireEncodable(platform_.Files(), grid.TextMatrix(grid.Row(), 1));
    views_.CmdEditRule.Enabled(false);
    WriteTextFile(platform_.Files(), StrPath, grid.TextMatrix(grid.Row(), 1));
    if (RunEditor(StrPath) == 0)
        grid.TextMatrix(grid.Row(), 1, ReadTextFile(platform_.Files(), StrPath));
    views_.CmdEditRule.Enabled(true);
    grid.SetFocus();
}

void EditorBridge::CmdMqEditor_Click()
{
    const Text StrPath = PathOf(u"MQ.bc");
    RequireEncodable(platform_.Files(), views_.txtMainQuery.Text());
    views_.CmdMqEditor.Enabled(false);
    WriteTextFile(platform_.Files(), StrPath, views_.txtMainQuery.Text());
    if (RunEditor(StrPath) == 0 && state_.BoolEdit) {
        views_.txtMainQuery.Text(ReadTextFile(platform_.Files(), StrPath));
        queries_.SaveMainQuery();
    }
    views_.CmdMqEditor.Enabled(true);
}

void EditorBridge::CmdPreEditor_Click()
{
    const Text StrPath = PathOf(u"Pre.bc");
    RequireEncodable(platform_.Files(), views_.txtPreCondition.Text());
    views_.CmdPreEditor.Enabled(false);
    WriteTextFile(platform_.Files(), StrPath, views_.txtPreCondition.Text());
    if (RunEditor(StrPath) == 0 && state_.BoolEdit) {
        views_.txtPreCondition.Text(ReadTextFile(platform_.Files(), StrPath));
        preConditions_.SavePreCondition();
    }
    views_.CmdPreEditor.Enabled(true);
    views_.txtPreCondition.SetFocus();
}

// Nothing is saved here: that is for CmdOk to do. In a read-only control too the text comes back into the box.
void EditorBridge::CmdFuncEditor_Click()
{
    const bool editsFunctions = views_.lblPreCondition.Caption() == u"Functions";
    SyntaxBox& box = editsFunctions ? views_.txtFunctions : views_.txtVariables;
    const Text StrPath = PathOf(editsFunctions ? u"func.bc" : u"var.bc");
    RequireEncodable(platform_.Files(), box.Text());
    views_.CmdFuncEditor.Enabled(false);
    WriteTextFile(platform_.Files(), StrPath, box.Text());
    if (RunEditor(StrPath) == 0)
        box.Text(ReadTextFile(platform_.Files(), StrPath));
    views_.CmdFuncEditor.Enabled(true);
    box.SetFocus();
}

// The list is cleared before the editor starts; only a clean exit fills it again.
void EditorBridge::cmdSrcEdit_Click()
{
    const Text StrPath = PathOf(u"Src.lst");
    Text StrTables;
    for (int row = 1; row <= views_.lstSourceTables.Count(); ++row)
        StrTables.append(u",").append(views_.lstSourceTables.TextAt(row, 0));
    if (!StrTables.empty())
        StrTables.erase(0, 1);
    RequireEncodable(platform_.Files(), StrTables);
    views_.cmdSrcEdit.Enabled(false);
    WriteTextFile(platform_.Files(), StrPath, StrTables);
    views_.lstSourceTables.Clear();
    if (RunEditor(StrPath) == 0)
        sourceTables_.SourceTables(ReadTextFile(platform_.Files(), StrPath));
    views_.cmdSrcEdit.Enabled(true);
}

} // namespace rulemesh
