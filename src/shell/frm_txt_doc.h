#pragma once

#include "engine/shared_form_values.h"
#include "engine/target_chooser.h"
#include "platform/platform.h"
#include "views/button.h"
#include "views/combo_box.h"
#include "views/modal_form.h"
#include "views/text_box.h"

namespace rulemesh {

/// The modal form for a free note, which doubles as the chooser of a target table. It is made anew for each use, takes
/// its mode and what it shows from the shared values, and leaves the answer there.
class FrmTxtDoc : public ModalForm {
public:
    explicit FrmTxtDoc(Platform& platform);

    TextBox TxtDoc{Tree, {.Name = u"TxtDoc", .Place = {0, 0, 8295, 4575}}};
    Label LBLTARGET{Tree, {.Name = u"LBLTARGET", .Place = {120, 240, 1215, 255}, .Caption = u"Target Table"}};
    ComboBox CmbTargetTable{Tree, {.Name = u"CmbTargetTable", .Place = {1440, 200, 2655, 315}}};
    Button CmdOk{Tree, {.Name = u"CmdOk", .Place = {0, 4560, 1095, 315}, .Caption = u"O&k"}};
    Button CmdCancel{Tree, {.Name = u"CmdCancel", .Place = {1200, 4560, 1095, 315}, .Caption = u"&Cancel"}};

    bool BoolTextChanged = false;

private:
    void LoadNoteMode();
    void LoadChooserMode();
    void CmdOk_Click();
    void Form_QueryUnload();

    Platform& platform_;
};

/// Shows the form as the chooser that the engine asks for.
class FormTargetChooser : public TargetChooser {
public:
    explicit FormTargetChooser(Platform& platform) : platform_(platform) {}
    void ShowChooser() override;

private:
    Platform& platform_;
};

} // namespace rulemesh
