#pragma once

#include <string>
#include <vector>

#include "views/button.h"
#include "views/combo_box.h"
#include "views/grid.h"
#include "views/list_view.h"
#include "views/tab_control.h"
#include "views/text_box.h"
#include "views/view_tree.h"

namespace rulemesh {

/// One view of each kind on a form of two tabs. Every handler leaves a line in the log, such as "text lost".
struct ViewDesk {
    using Lines = std::vector<std::string>;

    ViewTree Tree;
    TabControl Tabs{Tree, {.Name = u"tabs"}, {u"First", u"Second"}};
    Frame FirstPane{Tree, {.Name = u"first pane", .Parent = &Tabs}};
    Frame SecondPane{Tree, {.Name = u"second pane", .Parent = &Tabs}};
    Frame Inner{Tree, {.Name = u"inner", .Parent = &FirstPane}};

    TextBox Box{Tree, {.Name = u"text", .Parent = &FirstPane}};
    SyntaxBox Script{Tree, {.Name = u"script", .Parent = &Inner}};
    Button Press{Tree, {.Name = u"button", .Parent = &FirstPane}};
    Button Other{Tree, {.Name = u"other", .Parent = &FirstPane}};
    PictureButton Picture{Tree, {.Name = u"picture", .Parent = &FirstPane}};
    Label Title{Tree, {.Name = u"label", .Parent = &FirstPane, .Caption = u"Title"}};
    ComboBox Combo{Tree, {.Name = u"combo", .Parent = &SecondPane}};
    ListView Rows{Tree, {.Name = u"list", .Parent = &FirstPane}, {.Columns = {{u"Name", 100}, {u"Note", 200}}}};
    Grid Cells{Tree, {.Name = u"grid", .Parent = &FirstPane, .Place = {0, 0, 1000, 3075}}, {300, 700}};

    Lines Log;

    ViewDesk()
    {
        Tabs.Pane(0, FirstPane);
        Tabs.Pane(1, SecondPane);
        for (View* view : Tree.Views()) {
            const std::string name(view->Name().begin(), view->Name().end());
            view->GotFocus = [this, name] { Log.push_back(name + " got"); };
            view->LostFocus = [this, name] { Log.push_back(name + " lost"); };
        }
        Tree.ExitFocus = [this] { Log.emplace_back("exit"); };
        Press.Click = [this] { Log.emplace_back("button click"); };
    }

    /// The name of the view with the focus, "" for none.
    [[nodiscard]] TextView Focused() const { return Tree.Focused() == nullptr ? TextView() : Tree.Focused()->Name(); }

    /// What was logged since the last call.
    [[nodiscard]] Lines TakeLog() { return std::exchange(Log, {}); }
};

} // namespace rulemesh
