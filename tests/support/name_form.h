#pragma once

#include "views/button.h"
#include "views/combo_box.h"
#include "views/modal_form.h"
#include "views/text_box.h"

namespace rulemesh {

/// A form that is not the designer's own: a name and a kind are asked for.
class NameForm : public ModalForm {
public:
    NameForm()
    {
        Caption(u"New field");
        Size(4000, 2000);
        Asks(u"name", {.Box = &txtName, .Choice = &cmbKind, .Accept = &CmdTake, .Cancel = nullptr});
        cmbKind.AddItem(u"S");
        cmbKind.AddItem(u"N");
        CmdTake.Click = [this] {
            Taken = txtName.Text() + u":" + cmbKind.Text();
            Unload();
        };
        QueryUnload = [this] { ++Closings; };
    }

    TextBox txtName{Tree, {.Name = u"txtName", .Place = {0, 0, 2000, 300}}};
    ComboBox cmbKind{Tree, {.Name = u"cmbKind", .Place = {0, 400, 2000, 300}}};
    Button CmdTake{Tree, {.Name = u"CmdTake", .Place = {0, 800, 900, 300}, .Caption = u"&Take"}};
    Text Taken;
    int Closings = 0;
};

} // namespace rulemesh
