#include "views/designer_views.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace rulemesh {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

enum class Start { Shown, Hidden };
constexpr Start Hidden = Start::Hidden;

struct Expected {
    TextView Name;
    ViewKind Kind;
    TextView Parent;
    Placement Place;
    TextView Caption;
    Start AtStart = Start::Shown;
};

constexpr Expected Inventory[] = {
    {u"MainTab", ViewKind::Tab, u"", {30, 0, 11625, 7754}, u""},
    {u"FrmCondition", ViewKind::Frame, u"MainTab", {120, 360, 11415, 7275}, u""},
    {u"FrmRules", ViewKind::Frame, u"MainTab", {120, 360, 11445, 7335}, u""},
    {u"lblSourceTables", ViewKind::Label, u"FrmCondition", {120, 240, 1815, 255}, u"Source Tables"},
    {u"lstSourceTables", ViewKind::List, u"FrmCondition", {40, 480, 1935, 2175}, u""},
    {u"CmdSelectSource", ViewKind::Button, u"FrmCondition", {120, 2760, 735, 315}, u"Select"},
    {u"cmdSrcEdit", ViewKind::Button, u"FrmCondition", {1080, 2760, 735, 315}, u"Ed&it"},
    {u"lblPreCondition", ViewKind::Label, u"FrmCondition", {2040, 240, 1095, 195}, u"&PreCondition"},
    {u"PicPreResize", ViewKind::Picture, u"FrmCondition", {10920, 240, 240, 255}, u""},
    {u"txtPreCondition", ViewKind::Syntax, u"FrmCondition", {1950, 480, 9375, 2175}, u""},
    {u"CmdBuildPre", ViewKind::Button, u"FrmCondition", {2040, 2760, 975, 315}, u"Build"},
    {u"CmdPreEditor", ViewKind::Button, u"FrmCondition", {3240, 2760, 975, 315}, u"Ed&itor"},
    {u"CmdPreDoc", ViewKind::Button, u"FrmCondition", {4320, 2760, 975, 315}, u"Text"},
    {u"lblMainQuery", ViewKind::Label, u"FrmCondition", {120, 3120, 975, 195}, u"Main &Query", Hidden},
    {u"lstMigrateSource", ViewKind::List, u"FrmCondition", {45, 3150, 1890, 3585}, u""},
    {u"PicMQResize", ViewKind::Picture, u"FrmCondition", {10920, 2760, 240, 255}, u""},
    {u"txtMainQuery", ViewKind::Syntax, u"FrmCondition", {1920, 3120, 9375, 3645}, u""},
    {u"cmdBuildMQ", ViewKind::Button, u"FrmCondition", {1920, 6840, 975, 315}, u"Build"},
    {u"CmdMqEditor", ViewKind::Button, u"FrmCondition", {3120, 6840, 975, 315}, u"Edit&or"},
    {u"CmdMQDoc", ViewKind::Button, u"FrmCondition", {4320, 6840, 975, 315}, u"Te&xt"},
    {u"CmdFunction", ViewKind::Button, u"FrmCondition", {5400, 6840, 975, 315}, u"F&unctions"},
    {u"CmdVariables", ViewKind::Button, u"FrmCondition", {6360, 6840, 1935, 315}, u"Variable&s / Includes"},
    {u"CmdOk", ViewKind::Button, u"FrmCondition", {8280, 6840, 1095, 315}, u"O&k", Hidden},
    {u"CmdCancel", ViewKind::Button, u"FrmCondition", {9360, 6840, 975, 315}, u"Ca&ncel", Hidden},
    {u"CmdFuncEditor", ViewKind::Button, u"FrmCondition", {10320, 6840, 855, 315}, u"Edito&r", Hidden},
    {u"txtFunctions", ViewKind::Syntax, u"FrmCondition", {7560, 2640, 1095, 375}, u"", Hidden},
    {u"txtVariables", ViewKind::Syntax, u"FrmCondition", {8760, 2640, 1335, 375}, u"", Hidden},
    {u"lblTargetFields", ViewKind::Label, u"FrmRules", {120, 240, 855, 255}, u"D&ump No."},
    {u"CmbDump", ViewKind::Combo, u"FrmRules", {960, 165, 3735, 315}, u""},
    {u"CmdChange", ViewKind::Button, u"FrmRules", {4800, 180, 1095, 315}, u"Cha&nge..."},
    {u"Command1", ViewKind::Button, u"FrmRules", {4680, 480, 615, 315}, u"Sho&w", Hidden},
    {u"lblTargetTable", ViewKind::Label, u"FrmRules", {6120, 240, 1575, 255}, u"For Target Table:", Hidden},
    {u"LBLTargetTableName", ViewKind::Label, u"FrmRules", {7680, 240, 1035, 255}, u""},
    {u"CmbTargetTable", ViewKind::Combo, u"FrmRules", {9450, 1080, 1335, 315}, u"", Hidden},
    {u"Label3", ViewKind::Label, u"FrmRules", {8520, 240, 135, 255}, u"-"},
    {u"lblTargetTableDescription", ViewKind::Label, u"FrmRules", {8760, 240, 7725, 255}, u"...."},
    {u"Label2", ViewKind::Label, u"FrmRules", {0, 0, 1035, 255}, u""},
    {u"Label1", ViewKind::Label, u"FrmRules", {120, 600, 1335, 255}, u"Target Fields"},
    {u"lblSourceFields", ViewKind::Label, u"FrmRules", {5760, 600, 1335, 255}, u"Source Fields"},
    {u"lstTargetFields", ViewKind::List, u"FrmRules", {0, 840, 5600, 2295}, u""},
    {u"lstSourceFields", ViewKind::List, u"FrmRules", {5760, 840, 5600, 2295}, u""},
    {u"CmdFuncBuild", ViewKind::Button, u"FrmRules", {120, 2490, 1185, 465}, u"&Build", Hidden},
    {u"CmdGuess", ViewKind::Button, u"FrmRules", {240, 3250, 1185, 315}, u"&Guess"},
    {u"cmdCopyDump", ViewKind::Button, u"FrmRules", {1590, 3250, 1900, 315}, u"Cop&y from dump.."},
    {u"cmdCopyToAllDumps", ViewKind::Button, u"FrmRules", {3600, 3250, 1900, 315}, u"Copy to &all dumps.."},
    {u"CmdMap", ViewKind::Button, u"FrmRules", {5760, 3250, 1185, 315}, u"Ma&p"},
    {u"CmdEditRule", ViewKind::Button, u"FrmRules", {7095, 3250, 1185, 315}, u"Edit &Rule"},
    {u"CmdDumpText", ViewKind::Button, u"FrmRules", {8340, 3250, 1185, 315}, u"Commen&t"},
    {u"Details", ViewKind::Frame, u"FrmRules", {60, 3720, 11265, 3495}, u"Deta&ils"},
    {u"RulesGrid", ViewKind::Grid, u"Details", {120, 240, 10935, 3075}, u""},
    {u"txtgrdline", ViewKind::Text, u"Details", {10440, 120, 615, 285}, u"", Hidden},
};

class DesignedView : public testing::TestWithParam<Expected> {
protected:
    DesignerViews views_;
};

TEST_P(DesignedView, StandsAsItIsDesigned)
{
    const Expected& expected = GetParam();
    const View* view = views_.Tree.Find(expected.Name);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->Kind(), expected.Kind);
    EXPECT_EQ(view->Parent() == nullptr ? TextView() : view->Parent()->Name(), expected.Parent);
    EXPECT_EQ(view->Visible(), expected.AtStart == Start::Shown);
    EXPECT_THAT((std::vector{view->Left(), view->Top(), view->Width(), view->Height()}),
                ElementsAre(expected.Place.Left, expected.Place.Top, expected.Place.Width, expected.Place.Height));
    const auto* captioned = dynamic_cast<const CaptionedView*>(view);
    EXPECT_EQ(captioned == nullptr ? Text() : captioned->Caption(), expected.Caption);
}

INSTANTIATE_TEST_SUITE_P(Inventory, DesignedView, testing::ValuesIn(Inventory), [](const auto& given) {
    return std::string(given.param.Name.begin(), given.param.Name.end());
});

TEST(DesignerViews, HasNoViewBeyondTheInventory)
{
    const DesignerViews views;
    EXPECT_EQ(views.Tree.Views().size(), std::size(Inventory));
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

struct ColumnsOf {
    std::vector<Text> Captions;
    std::vector<int> Widths;
    std::vector<int> RightAligned; // positions

    explicit ColumnsOf(const ListView& list)
    {
        for (const ListView::Column& column : list.Columns()) {
            if (column.RightAligned)
                RightAligned.push_back(static_cast<int>(Captions.size()));
            Captions.emplace_back(column.Caption);
            Widths.push_back(column.Width);
        }
    }
};

TEST(DesignerViews, GivesTheTargetFieldsThirteenColumns)
{
    const DesignerViews views;
    const ColumnsOf columns(views.lstTargetFields);
    EXPECT_THAT(columns.Captions, ElementsAre(u"", u"", u"No", u"Field Name", u"Type", u"Length", u"Description",
                                              u"Alignment", u"Case", u"Domain", u"Initial Value", u"DomEnum", u""));
    EXPECT_THAT(columns.Widths, ElementsAre(441, 706, 882, 2293, 1093, 882, 2187, 882, 882, 2540, 2540, 2540, 2540));
    EXPECT_THAT(columns.RightAligned, ElementsAre(2, 5));
    EXPECT_EQ(views.lstTargetFields.ToolTipPosition(), 11);
}

TEST(DesignerViews, GivesTheSourceFieldsElevenColumns)
{
    const DesignerViews views;
    const ColumnsOf columns(views.lstSourceFields);
    EXPECT_THAT(columns.Captions, ElementsAre(u"", u"No", u"Field Name", u"Type", u"Length", u"Description",
                                              u"Alignment", u"Case", u"Domain", u"Initial Value", u"DomEnum"));
    EXPECT_THAT(columns.Widths, ElementsAre(706, 882, 2381, 1093, 882, 2187, 882, 882, 2540, 2540, 2540));
    EXPECT_EQ(views.lstSourceFields.ToolTipPosition(), 10);
}

TEST(DesignerViews, GivesTheTableListsOneColumn)
{
    const DesignerViews views;
    EXPECT_THAT(ColumnsOf(views.lstSourceTables).Captions, ElementsAre(u"SourceTable"));
    EXPECT_THAT(ColumnsOf(views.lstSourceTables).Widths, ElementsAre(2540));
    EXPECT_THAT(ColumnsOf(views.lstMigrateSource).Captions, ElementsAre(u"Main Query"));
    EXPECT_THAT(ColumnsOf(views.lstMigrateSource).Widths, ElementsAre(3211));
}

TEST(DesignerViews, SortsTheFieldListsByTheirNumberColumn)
{
    const DesignerViews views;
    EXPECT_TRUE(views.lstTargetFields.Sorted());
    EXPECT_EQ(views.lstTargetFields.SortKey(), 2);
    EXPECT_TRUE(views.lstSourceFields.Sorted());
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
