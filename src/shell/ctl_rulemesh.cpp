#include "shell/ctl_rulemesh.h"

#include "base/code_page.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "platform/text_files.h"

namespace rulemesh {

namespace {

constexpr std::int16_t AltAlone = 4;

// A property that gets another value begins a new history.
Action::Kind BeginsUnless(bool same) { return same ? Action::Kind::Move : Action::Kind::Begin; }

} // namespace

ctlRulemesh::ctlRulemesh(Platform& platform, ControlEvents& events)
    : moments_(state_, views_), history_(XmlDocument_, state_, views_, moments_, events),
      watch_(XmlDocument_, views_, moments_, history_, events), platform_(platform), object_(XmlDocument_, state_),
      scanner_(object_, state_, views_, platform), sourceTables_(object_, views_, events),
      queries_(object_, state_, views_, platform, events, scanner_),
      preConditions_(object_, state_, views_, platform, events, scanner_, queries_, sourceTables_),
      pruning_(object_, state_, scanner_, queries_), lookup_(object_, state_, views_),
      shownDump_(object_, state_, views_, platform, lookup_), mapping_(views_, platform, lookup_, shownDump_),
      copying_(object_, state_, views_, platform, shownDump_, preConditions_), chooser_(platform),
      retargeting_(object_, views_, platform, lookup_, shownDump_, chooser_), notes_(object_, state_, views_, platform),
      grid_(state_, views_, shownDump_), lists_(views_, shownDump_, grid_),
      editor_(state_, views_, platform, queries_, preConditions_, sourceTables_),
      panels_(object_, state_, views_, events), layout_(views_, panels_),
      tabs_(object_, state_, views_, platform, queries_, preConditions_, shownDump_, retargeting_, layout_)
{
    WireHandlers();
    UserControl_Initialize();
}

void ctlRulemesh::UserControl_Initialize()
{
    DesignerViews& v = views_;
    v.CmdOk.Left(v.cmdBuildMQ.Left());
    v.CmdCancel.Left(v.CmdMQDoc.Left());
    for (SyntaxBox* box : {&v.txtFunctions, &v.txtVariables}) {
        box->Top(v.txtPreCondition.Top());
        box->Left(v.txtPreCondition.Left());
        box->Width(v.txtPreCondition.Width());
        box->Height(v.CmdOk.Top() - 50 - v.txtPreCondition.Top());
    }
    layout_.SetResizeImages(true, true);
}

void ctlRulemesh::MappingObjectXML(TextView StrXml)
{
    const ActionScope action(views_.Tree.Acting, {Action::Kind::Begin});
    AfterLoad(XmlDocument_.loadXML(StrXml));
}

void ctlRulemesh::MappingObjectXML(std::string utf8)
{
    const ActionScope action(views_.Tree.Acting, {Action::Kind::Begin});
    AfterLoad(XmlDocument_.loadXML(std::move(utf8)));
}

void ctlRulemesh::AfterLoad(bool loaded)
{
    if (!loaded)
        object_.Read().RecordError(1, u"The Loaded XML was not a Valid XML. Please refresh", 0, u"");
}

Text ctlRulemesh::MappingObjectXML() { return FromUtf8(MappingObjectXmlUtf8()); }

std::string ctlRulemesh::MappingObjectXmlUtf8()
{
    const ActionScope action(views_.Tree.Acting, {Action::Kind::Step, u"Save"});
    preConditions_.SavePreCondition();
    queries_.SaveMainQuery();
    if (views_.CmbDump.HasSelection())
        shownDump_.SaveDumpRules(GridDump(shownDump_.SelectedDump()));
    pruning_.PruneDocument();
    std::string StrXml = XmlDocument_.xmlUtf8();
    LeaveCopyFile(StrXml);
    return StrXml;
}

// Nothing in the system reads it: it is there for whoever wants to look at the last text that the host was given. A
// character that its code page lacks is written as a reference, so that the copy still says the same.
void ctlRulemesh::LeaveCopyFile(const std::string& StrXml)
{
    TextFiles& files = platform_.Files();
    const Text StrPath = files.Folder() + state_.StrTargetTable + u".xml";
    if (files.Page() == CodePage::Utf8)
        files.WriteCopy(StrPath, StrXml);
    else
        files.WriteCopy(StrPath, EncodeWithReferences(files.Page(), FromUtf8(StrXml)));
}

void ctlRulemesh::TargetTable(TextView StrTable)
{
    Text StrCode(StrTable.substr(0, TableCodeLength));
    StrCode.resize(TableCodeLength, u' ');
    const ActionScope action(views_.Tree.Acting, {BeginsUnless(StrCode == state_.StrTargetTable)});
    state_.StrTargetTable = std::move(StrCode);
}

void ctlRulemesh::Edit(bool BoolEdit)
{
    const ActionScope action(views_.Tree.Acting, {BeginsUnless(BoolEdit == state_.BoolEdit)});
    state_.BoolEdit = BoolEdit;
    Shared().BoolEditShared = BoolEdit;
    LockControls();
}

void ctlRulemesh::LockControls()
{
    if (state_.BoolEdit)
        return;
    DesignerViews& v = views_;
    for (TextBox* box : std::initializer_list<TextBox*>{&v.txtPreCondition, &v.txtMainQuery, &v.txtFunctions,
                                                        &v.txtVariables, &v.txtgrdline})
        box->Locked(true);
    for (Button* button :
         {&v.CmdEditRule, &v.CmdGuess, &v.CmdMap, &v.CmdOk, &v.CmdSelectSource, &v.cmdBuildMQ, &v.CmdBuildPre,
          &v.CmdFuncBuild, &v.cmdCopyDump, &v.CmdChange, &v.cmdCopyToAllDumps, &v.cmdSrcEdit})
        button->Enabled(false);
}

void ctlRulemesh::ShowControl()
{
    const ActionScope action(views_.Tree.Acting, {Action::Kind::Begin});
    sourceTables_.RefreshSourceTables();
    preConditions_.ShowPreCondition();
    preConditions_.AnalysePreCondition();
    queries_.ShowMigrateQuery(state_.StrMigrateTables.front());
    shownDump_.RefreshTargetList(); // still in the mode of the object shown before
    LockControls();
    state_.BoolMultiTarget = object_.Read().CheckMscripts();
    if (!state_.BoolMultiTarget)
        views_.CmbTargetTable.Visible(false);
    views_.lblTargetTable.Visible(true);
    views_.lblTargetTableDescription.Visible(true);
    views_.CmdChange.Visible(state_.BoolMultiTarget);
    if (state_.BoolMultiTarget)
        FillTargetTableCombo();
}

Text ctlRulemesh::TagOf(const View& view) const
{
    if (&view == &views_.CmbDump)
        return state_.DumpInGrid.Tag();
    return &view == &views_.txtMainQuery ? state_.QueryTable.Written() : Text();
}

Text ctlRulemesh::ForeignRoot() const
{
    Text StrRoot = object_.Read().RootName();
    return StrRoot == state_.StrTargetTable ? Text() : StrRoot;
}

void ctlRulemesh::FillTargetTableCombo()
{
    views_.CmbTargetTable.Clear();
    for (const Text& StrTable : object_.Read().TablesOnOffer())
        views_.CmbTargetTable.AddItem(StrTable);
}

void ctlRulemesh::SourceTables(TextView i_SourceTables)
{
    const ActionScope action(views_.Tree.Acting, {Action::Kind::Step, u"Source tables"});
    sourceTables_.SourceTables(i_SourceTables);
}

void ctlRulemesh::PreCondition(const Text& StrText)
{
    const ActionScope action(views_.Tree.Acting, {Action::Kind::Step, u"Precondition"});
    preConditions_.PreCondition(StrText);
}

void ctlRulemesh::MainQuery(const Text& StrText)
{
    const ActionScope action(views_.Tree.Acting, {Action::Kind::Step, u"Main query"});
    queries_.MainQuery(StrText);
}

void ctlRulemesh::FieldMapping(const Text& StrRule)
{
    const ActionScope action(views_.Tree.Acting, {Action::Kind::Step, u"Rule"});
    grid_.FieldMapping(StrRule);
}

void ctlRulemesh::SetTextNumber(TextView StrType, std::int32_t LngTextNumber, TextView StrKey1, TextView StrKey2)
{
    const ActionScope action(views_.Tree.Acting, {Action::Kind::Step, u"Text number"});
    notes_.SetTextNumber(StrType, LngTextNumber, StrKey1, StrKey2);
}

void ctlRulemesh::GridEdit(std::int16_t KeyAscii)
{
    const ActionScope action(views_.Tree.Acting, Grid::ActionOf(KeyAscii, views_.RulesGrid));
    grid_.GridEdit(KeyAscii);
}

void ctlRulemesh::Resize(int width, int height)
{
    const ActionScope action(views_.Tree.Acting, {Action::Kind::Move});
    layout_.Resize(width, height);
}

void ctlRulemesh::Setfocus()
{
    if (views_.txtPreCondition.Visible())
        views_.txtPreCondition.SetFocus();
}

void ctlRulemesh::Syntax_Highlight(bool BoolHighlight)
{
    state_.BoolSyntaxHighlight = BoolHighlight;
    for (SyntaxBox* box : {&views_.txtPreCondition, &views_.txtMainQuery, &views_.txtVariables, &views_.txtFunctions})
        box->Highlight(BoolHighlight);
}

void ctlRulemesh::UserControl_KeyDown(std::int16_t KeyCode, std::int16_t Shift)
{
    if (Shift != AltAlone)
        return;
    DesignerViews& v = views_;
    if (KeyCode == u'M' && v.txtPreCondition.Visible() && v.FrmCondition.Enabled())
        v.txtMainQuery.SetFocus();
    else if (KeyCode == u'P' && v.txtMainQuery.Visible() && v.FrmCondition.Enabled())
        v.txtPreCondition.SetFocus();
    else if (KeyCode == u'Q' && v.txtMainQuery.Visible() && v.FrmCondition.Enabled())
        v.lstMigrateSource.SetFocus();
    else if (KeyCode == u'U' && v.FrmRules.Visible() && v.FrmRules.Enabled())
        v.CmbDump.SetFocus();
}

// While the external editor runs the box holds the text from before the edit.
void ctlRulemesh::UserControl_ExitFocus()
{
    if (!state_.BoolEditorOpen)
        queries_.SaveQuery(state_.QueryTable.Written(), views_.txtMainQuery.Text());
}

} // namespace rulemesh
