#pragma once

#include "shell/ctl_rulemesh.h"

namespace rulemesh {

/// How the user's requests are carried out on a designer that can be reached: by the views' own entrances here, by
/// input events on real widgets where there is a window. What a view refuses has been refused before.
class UserHands {
public:
    virtual ~UserHands() = default;

    virtual void Click(Button& button) { button.UserClicks(); }
    virtual void Click(PictureButton& picture) { picture.UserClicks(); }
    virtual void ClickTab(TabControl& tabs, int tab) { tabs.UserClicksTab(tab); }
    virtual void MoveFocus(ViewTree& tree, View& view) { tree.MoveFocus(view); }
    virtual void Leave(ViewTree& tree) { tree.UserLeaves(); }
    virtual void Type(TextBox& box, const Text& StrText) { box.UserTypes(StrText); }
    virtual void Choose(ComboBox& combo, int index) { combo.UserChooses(index); }
    virtual void ClickRow(ListView& list, int row) { list.UserClicksRow(row); }
    virtual void Tick(ListView& list, int row, bool on) { list.UserTicks(row, on); }
    virtual void ClickHeader(ListView& list, int column) { list.UserClicksHeader(column); }
    virtual void ClickCell(Grid& grid, int row, int col, Grid::Clicks clicks) { grid.UserClicksCell(row, col, clicks); }
    virtual void PressCharacter(Grid& grid, std::int16_t KeyAscii) { grid.UserPresses(KeyAscii); }
    virtual void Scroll(Grid& grid, int top) { grid.UserScrolls(top); }

    /// True when a handler cancelled the key.
    virtual bool PressKey(ViewTree& tree, View& view, std::int16_t KeyCode, std::int16_t Shift)
    {
        return tree.UserPressesKey(view, KeyCode, Shift);
    }

    /// A modal form has come up; it is worked by the members above until it is closed.
    virtual void FormOpens(ModalForm& /*form*/) {}
    virtual void CloseForm(ModalForm& form) { form.UserCloses(); }
    virtual void FormClosed(ModalForm& /*form*/) {}
};

} // namespace rulemesh
