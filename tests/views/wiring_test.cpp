#include "views/wiring.h"

#include <vector>

#include <gtest/gtest.h>

#include "views/button.h"
#include "views/list_view.h"
#include "views/view_tree.h"

namespace rulemesh {
namespace {

// A user's doings on one button and one list, and the actions that came of them.
class Wiring : public testing::Test {
public:
    void CmdMap_Click() { ++Clicks; }
    void lstRows_ItemClick(ListRow row) { Row = row; }
    void lstRows_KeyDown() { ++Keys; }

protected:
    ViewTree Tree;
    Button CmdMap{Tree, {.Name = u"CmdMap", .Caption = u"Ma&p.."}};
    ListView lstRows{Tree, {.Name = u"lstRows"}, {.Columns = {{u"Row", 100}}}};
    int Clicks = 0;
    int Keys = 0;
    ListRow Row = NoListRow;
};

TEST_F(Wiring, HangsTheHandlerOnTheEvent)
{
    Wire(CmdMap, &Button::Click, u"Map", *this, &Wiring::CmdMap_Click).Hang();
    CmdMap.UserClicks();
    EXPECT_EQ(Clicks, 1);
}

TEST_F(Wiring, HandsOverTheArgumentsThatTheHandlerTakes)
{
    Wire(lstRows, &ListView::ItemClick, u"Row", *this, &Wiring::lstRows_ItemClick).Hang();
    Wire(lstRows, &ListView::KeyDown, u"Key", *this, &Wiring::lstRows_KeyDown).Hang();
    lstRows.Add({u"a"});
    lstRows.Add({u"b"});
    lstRows.UserClicksRow(2);
    Tree.UserPressesKey(lstRows, u'A', 0);
    EXPECT_EQ(Row, ListRow(2));
    EXPECT_EQ(Keys, 1);
}

TEST_F(Wiring, NamesTheActionWhateverTheCaptionSays)
{
    std::vector<Text> begun;
    std::vector<Text> ended;
    Tree.Acting.Begins = [&](const Action& action) { begun.emplace_back(action.Name); };
    Tree.Acting.Ends = [&](const Action& action) { ended.emplace_back(action.Name); };
    Wire(CmdMap, &Button::Click, u"Map", *this, &Wiring::CmdMap_Click).Hang();
    CmdMap.Caption(u"Assign");
    CmdMap.UserClicks();
    EXPECT_EQ(begun, (std::vector<Text>{u"Map"}));
    EXPECT_EQ(ended, begun);
}

TEST_F(Wiring, TellsHowDeepActionsStandInEachOther)
{
    std::vector<int> depths;
    CmdMap.Click = [&] {
        depths.push_back(Tree.Acting.Depth());
        const ActionScope inner(Tree.Acting, {Action::Kind::Step, u"Rule"});
        depths.push_back(Tree.Acting.Depth());
    };
    CmdMap.UserClicks();
    EXPECT_EQ(depths, (std::vector<int>{1, 2}));
    EXPECT_EQ(Tree.Acting.Depth(), 0);
}

} // namespace
} // namespace rulemesh
