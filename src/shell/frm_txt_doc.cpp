#include "shell/frm_txt_doc.h"

#include "base/numbers.h"

namespace rulemesh {

FrmTxtDoc::FrmTxtDoc(Platform& platform) : platform_(platform)
{
    if (Shared().BoolTextMode)
        LoadNoteMode();
    else
        LoadChooserMode();
    TxtDoc.Change = [this] { BoolTextChanged = true; };
    CmdOk.Click = [this] { CmdOk_Click(); };
    CmdCancel.Click = [this] { Unload(); };
    QueryUnload = [this] { Form_QueryUnload(); };
}

void FrmTxtDoc::LoadNoteMode()
{
    Asks(u"note", {.Box = &TxtDoc, .Accept = &CmdOk, .Cancel = &CmdCancel});
    Size(8490, 5130);
    LBLTARGET.Visible(false);
    CmbTargetTable.Visible(false);
    if (!Shared().BoolEditShared) {
        TxtDoc.Locked(true);
        CmdOk.Enabled(false);
    }
}

void FrmTxtDoc::LoadChooserMode()
{
    Asks(u"chooser", {.Choice = &CmbTargetTable, .Accept = &CmdOk, .Cancel = &CmdCancel});
    Size(4350, 1600);
    TxtDoc.Visible(false);
    CmdOk.Left(840);
    CmdOk.Top(700);
    CmdCancel.Left(2040);
    CmdCancel.Top(700);
    CmdOk.Default(true);
    Caption(u"Choose Target for Dump No: " + PrintedNumber(Shared().IntChooserDump));
    std::vector<Text> tables = Split(Shared().StrChooserTables, u';');
    if (!tables.empty())
        tables.pop_back(); // what follows the last ";"
    for (Text& StrTable : tables)
        CmbTargetTable.AddItem(std::move(StrTable));
    if (!tables.empty())
        CmbTargetTable.ListIndex(0);
}

void FrmTxtDoc::CmdOk_Click()
{
    if (Shared().BoolTextMode)
        Shared().StrDocText = TxtDoc.Text();
    else
        Shared().StrChosenTable = CmbTargetTable.Text();
    Unload();
}

void FrmTxtDoc::Form_QueryUnload()
{
    const bool unsaved =
        Shared().BoolTextMode && Shared().BoolEditShared && BoolTextChanged && TxtDoc.Text() != Shared().StrDocText;
    if (!unsaved)
        return;
    const MessageButton answer =
        platform_.ShowMessage({.Text = u"Save Changes Done ?", .Buttons = {MessageButton::Yes, MessageButton::No}});
    if (answer == MessageButton::Yes)
        Shared().StrDocText = TxtDoc.Text();
}

void FormTargetChooser::ShowChooser()
{
    FrmTxtDoc form(platform_);
    platform_.ShowModal(form);
}

} // namespace rulemesh
