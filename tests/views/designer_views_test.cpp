#include "views/designer_views.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

// A place in words, to be told in a complaint.
std::string NameOf(const View& view) { return {view.Name().begin(), view.Name().end()}; }

TEST(DesignerViews, HaveEachANameByWhichTheTreeFindsIt)
{
    const DesignerViews views;
    std::set<TextView> names;
    for (const View* view : views.Tree.Views()) {
        EXPECT_FALSE(view->Name().empty());
        EXPECT_TRUE(names.insert(view->Name()).second) << NameOf(*view);
        EXPECT_EQ(views.Tree.Find(view->Name()), view) << NameOf(*view);
    }
}

// The beginnings of the names, case ignored, in the order in which they are tried.
TEST(DesignerViews, AreOfTheKindThatTheirNamesTell)
{
    constexpr std::pair<TextView, ViewKind> beginnings[] = {
        {u"MainTab", ViewKind::Tab},   {u"RulesGrid", ViewKind::Grid}, {u"txtgrdline", ViewKind::Text},
        {u"Cmb", ViewKind::Combo},     {u"Cmd", ViewKind::Button},     {u"Command", ViewKind::Button},
        {u"Details", ViewKind::Frame}, {u"Frm", ViewKind::Frame},      {u"lbl", ViewKind::Label},
        {u"Label", ViewKind::Label},   {u"lst", ViewKind::List},       {u"Pic", ViewKind::Picture},
        {u"txt", ViewKind::Syntax},
    };
    const DesignerViews views;
    for (const View* view : views.Tree.Views()) {
        const auto* beginning = std::find_if(std::begin(beginnings), std::end(beginnings), [&](const auto& tried) {
            return FindIgnoringCase(view->Name(), tried.first) == 0;
        });
        ASSERT_NE(beginning, std::end(beginnings)) << NameOf(*view);
        EXPECT_EQ(view->Kind(), beginning->second) << NameOf(*view);
    }
}

TEST(DesignerViews, StandOnOneOfTwoPanesBehindTheirParent)
{
    const DesignerViews views;
    std::set<const View*> passed;
    for (const View* view : views.Tree.Views()) {
        const View* parent = view->Parent();
        if (view == &views.MainTab)
            EXPECT_EQ(parent, nullptr);
        else if (view == &views.FrmCondition || view == &views.FrmRules)
            EXPECT_EQ(parent, &views.MainTab);
        else if (view == &views.RulesGrid || view == &views.txtgrdline)
            EXPECT_EQ(parent, &views.Details);
        else
            EXPECT_TRUE(parent == &views.FrmCondition || parent == &views.FrmRules) << NameOf(*view);
        EXPECT_TRUE(parent == nullptr || passed.contains(parent)) << NameOf(*view);
        passed.insert(view);
    }
}

// The description of a table runs on behind the edge of its pane, which cuts it off.
TEST(DesignerViews, LieInsideOfTheirParent)
{
    const DesignerViews views;
    for (const View* view : views.Tree.Views()) {
        const View* parent = view->Parent();
        EXPECT_GE(view->Left(), 0) << NameOf(*view);
        EXPECT_GE(view->Top(), 0) << NameOf(*view);
        EXPECT_GT(view->Width(), 0) << NameOf(*view);
        EXPECT_GT(view->Height(), 0) << NameOf(*view);
        if (view != &views.lblTargetTableDescription) {
            EXPECT_LE(view->Right(), parent == nullptr ? DesignWidth : parent->Width()) << NameOf(*view);
        }
        EXPECT_LE(view->Bottom(), parent == nullptr ? DesignHeight : parent->Height()) << NameOf(*view);
    }
}

TEST(DesignerViews, TakeTheFocusPaneByPaneAndAlongEachRowOfButtons)
{
    const DesignerViews views;
    bool onRules = false;
    const View* before = nullptr; // the button before
    for (const View* view : views.Tree.Views()) {
        const View* pane = view->Parent() == &views.Details ? &views.FrmRules : view->Parent();
        onRules = onRules || pane == &views.FrmRules;
        EXPECT_FALSE(onRules && pane == &views.FrmCondition) << NameOf(*view);
        if (view->Kind() != ViewKind::Button)
            continue;
        if (before != nullptr && before->Parent() == view->Parent() && before->Top() == view->Top()) {
            EXPECT_LE(before->Right(), view->Left() + 15) << NameOf(*view);
        }
        before = view;
    }
}

// The access key of a label goes to the first view behind it that takes the focus.
TEST(DesignerViews, FollowTheLabelWhoseAccessKeyLeadsToThem)
{
    const DesignerViews views;
    const std::vector<View*>& all = views.Tree.Views();
    std::vector<std::pair<TextView, TextView>> led;
    for (auto label = all.begin(); label != all.end(); ++label) {
        const auto* captioned = dynamic_cast<const Label*>(*label);
        if (captioned == nullptr || captioned->Caption().find(u'&') == Text::npos)
            continue;
        const auto next = std::find_if(label, all.end(), [](const View* view) { return view->TakesFocus(); });
        ASSERT_NE(next, all.end());
        led.emplace_back((*label)->Name(), (*next)->Name());
    }
    EXPECT_THAT(led, ElementsAre(std::pair(u"lblPreCondition", u"txtPreCondition"),
                                 std::pair(u"lblMainQuery", u"lstMigrateSource"),
                                 std::pair(u"lblTargetFields", u"CmbDump")));
}

// Each button says what it does, and those that stand side by side say different things.
TEST(DesignerViews, CaptionTheirButtons)
{
    const DesignerViews views;
    std::set<std::pair<std::pair<const View*, int>, Text>> captions; // of a row
    for (const View* view : views.Tree.Views()) {
        const auto* button = dynamic_cast<const Button*>(view);
        if (button == nullptr)
            continue;
        EXPECT_FALSE(button->Caption().empty()) << NameOf(*view);
        EXPECT_TRUE(captions.insert({{view->Parent(), view->Top()}, button->Caption()}).second) << NameOf(*view);
    }
}

TEST(DesignerViews, HideWhatNothingShowsAtTheStart)
{
    const DesignerViews views;
    std::vector<const View*> hidden;
    for (const View* view : views.Tree.Views()) {
        if (!view->Visible())
            hidden.push_back(view);
    }
    EXPECT_THAT(hidden,
                UnorderedElementsAre(&views.lblMainQuery, &views.CmdOk, &views.CmdCancel, &views.CmdFuncEditor,
                                     &views.txtFunctions, &views.txtVariables, &views.Command1, &views.lblTargetTable,
                                     &views.CmbTargetTable, &views.CmdFuncBuild, &views.txtgrdline));
}

TEST(DesignerViews, IsOneSurfaceOfDesignSize)
{
    EXPECT_EQ(DesignWidth, 11700);
    EXPECT_EQ(DesignHeight, 7755);
}

TEST(DesignerViews, EnablesEveryViewButTheRulesAtTheStart)
{
    const DesignerViews views;
    for (const View* view : views.Tree.Views())
        EXPECT_EQ(view->Enabled(), view != &views.FrmRules) << testing::PrintToString(view->Name());
}

TEST(DesignerViews, ReachesTheScriptsAndNotTheRulesAtTheStart)
{
    const DesignerViews views;
    EXPECT_TRUE(views.txtPreCondition.CanBeReached());
    EXPECT_FALSE(views.lstTargetFields.CanBeReached());
    EXPECT_FALSE(views.RulesGrid.CanBeReached());
}

TEST(DesignerViews, ReachesTheRulesAndNotTheScriptsOnTabOne)
{
    DesignerViews views;
    views.FrmRules.Enabled(true);
    views.MainTab.Tab(1);
    EXPECT_FALSE(views.txtPreCondition.CanBeReached());
    EXPECT_TRUE(views.lstTargetFields.CanBeReached());
    EXPECT_TRUE(views.RulesGrid.CanBeReached());
}

TEST(DesignerViews, CaptionsTheTabs)
{
    const DesignerViews views;
    EXPECT_EQ(views.MainTab.TabCaption(0), u"&Condition");
    EXPECT_EQ(views.MainTab.TabCaption(1), u"Ru&les");
}

TEST(DesignerViews, TipsTwoViews)
{
    const DesignerViews views;
    std::vector<const View*> tipped;
    for (const View* view : views.Tree.Views()) {
        if (!view->ToolTip().empty())
            tipped.push_back(view);
    }
    EXPECT_THAT(tipped, UnorderedElementsAre(&views.cmdSrcEdit, &views.CmbDump));
    EXPECT_EQ(views.cmdSrcEdit.ToolTip(), u"Type in comma separated source table list in editor");
    EXPECT_EQ(views.CmbDump.ToolTip(), u"tool tip works?");
}

TEST(DesignerViews, SetsAllButSevenViewsInVerdana)
{
    const DesignerViews views;
    std::vector<const View*> others;
    for (const View* view : views.Tree.Views()) {
        if (view->Type() != Font{u"Verdana", 8.25, false})
            others.push_back(view);
    }
    EXPECT_THAT(others, UnorderedElementsAre(&views.lblSourceTables, &views.lblPreCondition, &views.lblMainQuery,
                                             &views.lstMigrateSource, &views.lstTargetFields, &views.lstSourceFields,
                                             &views.RulesGrid));
}

TEST(DesignerViews, SetsTheNamedViewsInTheirOwnType)
{
    const DesignerViews views;
    EXPECT_EQ(views.lblSourceTables.Type(), (Font{u"MS Sans Serif", 8.25, true}));
    EXPECT_EQ(views.lblPreCondition.Type(), (Font{u"MS Sans Serif", 8.25, true}));
    EXPECT_EQ(views.lblMainQuery.Type(), (Font{u"MS Sans Serif", 8.25, true}));
    EXPECT_TRUE(views.lstMigrateSource.Type().Bold);
    EXPECT_EQ(views.lstTargetFields.Type(), (Font{u"MS Sans Serif", 8.25, false}));
    EXPECT_EQ(views.lstSourceFields.Type(), (Font{u"Microsoft Sans Serif", 8.25, false}));
    EXPECT_EQ(views.RulesGrid.Type(), (Font{u"MS Sans Serif", 8.25, false}));
}

std::vector<Text> CaptionsOf(const ListView& list)
{
    std::vector<Text> captions;
    for (const ListView::Column& column : list.Columns())
        captions.emplace_back(column.Caption);
    return captions;
}

TEST(DesignerViews, GivesTheTableListsOneColumn)
{
    const DesignerViews views;
    EXPECT_THAT(CaptionsOf(views.lstSourceTables), ElementsAre(u"SourceTable"));
    EXPECT_THAT(CaptionsOf(views.lstMigrateSource), ElementsAre(u"Main Query"));
}

TEST(DesignerViews, GivesTheFieldListsTheColumnsOfFields)
{
    const DesignerViews views;
    EXPECT_EQ(views.lstTargetFields.Columns().size(), ColumnsOf(FieldList::Target).size());
    EXPECT_EQ(views.lstSourceFields.Columns().size(), ColumnsOf(FieldList::Source).size());
    EXPECT_EQ(views.lstTargetFields.Columns().at(TargetField::Front).Caption, u"");
}

// What a field may hold is long; the list shows it whole as a tip.
TEST(DesignerViews, TipsTheFieldListsByTheirLastText)
{
    const DesignerViews views;
    for (const ListView* list : {&views.lstTargetFields, &views.lstSourceFields})
        EXPECT_EQ(CaptionsOf(*list).at(static_cast<std::size_t>(list->ToolTipPosition())), u"DomEnum");
}

TEST(DesignerViews, FindsFieldsByTheirNames)
{
    const DesignerViews views;
    for (const ListView* list : {&views.lstTargetFields, &views.lstSourceFields})
        EXPECT_EQ(CaptionsOf(*list).at(static_cast<std::size_t>(list->SearchPosition())), u"Field Name");
}

TEST(DesignerViews, SortsTheFieldListsByTheirNumberColumn)
{
    const DesignerViews views;
    EXPECT_TRUE(views.lstTargetFields.Sorted());
    EXPECT_EQ(CaptionsOf(views.lstTargetFields).at(2), u"No");
    EXPECT_EQ(views.lstTargetFields.SortKey(), 2);
    EXPECT_TRUE(views.lstSourceFields.Sorted());
    EXPECT_EQ(CaptionsOf(views.lstSourceFields).at(1), u"No");
    EXPECT_EQ(views.lstSourceFields.SortKey(), 1);
    EXPECT_EQ(views.lstTargetFields.SortOrder(), ListView::Order::Ascending);
    EXPECT_EQ(views.lstSourceFields.SortOrder(), ListView::Order::Ascending);
}

TEST(DesignerViews, SortsNoTableList)
{
    const DesignerViews views;
    EXPECT_FALSE(views.lstSourceTables.Sorted());
    EXPECT_FALSE(views.lstMigrateSource.Sorted());
}

TEST(DesignerViews, GivesCheckBoxesToTheSourceFieldsAlone)
{
    const DesignerViews views;
    EXPECT_TRUE(views.lstSourceFields.HasCheckBoxes());
    EXPECT_FALSE(views.lstTargetFields.HasCheckBoxes());
    EXPECT_FALSE(views.lstSourceTables.HasCheckBoxes());
}

TEST(DesignerViews, LetsManySourceFieldsAndOneTargetFieldBeSelected)
{
    DesignerViews views;
    for (ListView* list : {&views.lstSourceFields, &views.lstTargetFields}) {
        list->Add({u"1"});
        list->Add({u"2"});
        list->Select(1, true);
        list->Select(2, true);
    }
    EXPECT_EQ(views.lstSourceFields.SelectedRow(), 1);
    EXPECT_EQ(views.lstTargetFields.SelectedRow(), 2);
}

} // namespace
} // namespace rulemesh
