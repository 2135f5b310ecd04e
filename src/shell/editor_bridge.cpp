#include "shell/editor_bridge.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "shell/temporary_texts.h"
#include "shell/text_panels.h"

namespace rulemesh {

void EditorBridge::MakeTrip(Button& button, TextView StrEnding, const Text& StrText, TakesBack takesBack,
                            const Store& store)
{
    const Text StrPath = LeaveForEditor(button, StrEnding, StrText);
    const bool edited = RunEditor(StrPath) == 0;
    if (edited && (takesBack == TakesBack::Always || state_.BoolEdit))
        store(ReadTextFile(platform_.Files(), StrPath));
    button.Enabled(true);
}

Text EditorBridge::LeaveForEditor(Button& button, TextView StrEnding, const Text& StrText)
{
    TextFiles& files = platform_.Files();
    Text StrPath = files.Folder() + state_.StrTargetTable + Text(StrEnding);
    RequireEncodable(files, StrText);
    button.Enabled(false);
    WriteTextFile(files, StrPath, StrText);
    return StrPath;
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
    MakeTrip(views_.CmdEditRule, u"Rule.bc", grid.TextMatrix(grid.Row(), 1), TakesBack::Always,
             [&](const Text& StrRule) { grid.TextMatrix(grid.Row(), 1, StrRule); });
    grid.SetFocus();
}

void EditorBridge::CmdMqEditor_Click()
{
    MakeTrip(views_.CmdMqEditor, u"MQ.bc", views_.txtMainQuery.Text(), TakesBack::WhenEditable,
             [&](const Text& StrScript) {
                 views_.txtMainQuery.Text(StrScript);
                 queries_.SaveMainQuery();
             });
}

void EditorBridge::CmdPreEditor_Click()
{
    MakeTrip(views_.CmdPreEditor, u"Pre.bc", views_.txtPreCondition.Text(), TakesBack::WhenEditable,
             [&](const Text& StrScript) {
                 views_.txtPreCondition.Text(StrScript);
                 preConditions_.SavePreCondition();
             });
    views_.txtPreCondition.SetFocus();
}

// Nothing is saved here: that is for CmdOk to do. In a read-only control too the text comes back into the box.
void EditorBridge::CmdFuncEditor_Click()
{
    const bool editsFunctions = CaptionSaysFunctions(views_);
    SyntaxBox& box = editsFunctions ? views_.txtFunctions : views_.txtVariables;
    MakeTrip(views_.CmdFuncEditor, editsFunctions ? u"func.bc" : u"var.bc", box.Text(), TakesBack::Always,
             [&](const Text& StrText) { box.Text(StrText); });
    box.SetFocus();
}

// The list is cleared before the editor starts; only a clean exit fills it again.
void EditorBridge::cmdSrcEdit_Click()
{
    ListView& list = views_.lstSourceTables;
    Text StrTables;
    for (int row = 1; row <= list.Count(); ++row)
        StrTables.append(u",").append(list.TextAt(row, 0));
    if (!StrTables.empty())
        StrTables.erase(0, 1);
    const Text StrPath = LeaveForEditor(views_.cmdSrcEdit, u"Src.lst", StrTables);
    list.Clear();
    if (RunEditor(StrPath) == 0)
        sourceTables_.SourceTables(ReadTextFile(platform_.Files(), StrPath));
    views_.cmdSrcEdit.Enabled(true);
}

} // namespace rulemesh
