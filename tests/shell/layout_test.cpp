#include "shell/layout.h"

#include <tuple>

#include <limits>
#include <utility>

#include <gmock/gmock.h>

#include "shell/designer_bench.h"

namespace rulemesh {
namespace {

using Place = std::tuple<int, int, int, int>;

Place PlaceOf(const View& view) { return {view.Left(), view.Top(), view.Width(), view.Height()}; }

using LayoutTest = DesignerBench;

TEST_F(LayoutTest, FontsAreThoseOfTheDesign)
{
    const Font verdana{u"Verdana", 8.25, false};
    const Font sans{u"MS Sans Serif", 8.25, false};
    const Font boldSans{u"MS Sans Serif", 8.25, true};
    for (const View* view : views_.Tree.Views()) {
        const TextView name = view->Name();
        if (name == u"lblSourceTables" || name == u"lblPreCondition" || name == u"lblMainQuery")
            EXPECT_EQ(view->Type(), boldSans);
        else if (name == u"lstTargetFields" || name == u"RulesGrid")
            EXPECT_EQ(view->Type(), sans);
        else if (name == u"lstSourceFields")
            EXPECT_EQ(view->Type(), (Font{u"Microsoft Sans Serif", 8.25, false}));
        else if (name == u"lstMigrateSource")
            EXPECT_EQ(view->Type(), (Font{u"Verdana", 8.25, true}));
        else
            EXPECT_EQ(view->Type(), verdana) << testing::PrintToString(Text(name));
    }
}

TEST_F(LayoutTest, ViewsStandOnTheirTabs)
{
    EXPECT_EQ(views_.MainTab.TabCaption(0), u"&Condition");
    EXPECT_EQ(views_.MainTab.TabCaption(1), u"Ru&les");
    EXPECT_EQ(views_.FrmCondition.Parent(), &views_.MainTab);
    EXPECT_EQ(views_.FrmRules.Parent(), &views_.MainTab);
    EXPECT_EQ(views_.Details.Parent(), &views_.FrmRules);
    EXPECT_EQ(views_.RulesGrid.Parent(), &views_.Details);
    EXPECT_EQ(views_.txtgrdline.Parent(), &views_.Details);
    EXPECT_EQ(views_.txtMainQuery.Parent(), &views_.FrmCondition);
    EXPECT_EQ(views_.lstSourceFields.Parent(), &views_.FrmRules);
}

TEST_F(LayoutTest, PlacesAtTheStart)
{
    EXPECT_EQ(PlaceOf(views_.MainTab), Place(30, 0, 11625, 7754));
    EXPECT_EQ(PlaceOf(views_.FrmCondition), Place(120, 360, 11415, 7275));
    EXPECT_EQ(PlaceOf(views_.FrmRules), Place(120, 360, 11445, 7335));
    EXPECT_EQ(views_.CmdOk.Left(), 1920);     // that of cmdBuildMQ
    EXPECT_EQ(views_.CmdCancel.Left(), 4320); // that of CmdMQDoc
    EXPECT_EQ(PlaceOf(views_.txtFunctions), Place(1950, 480, 9375, 6840 - 50 - 480));
    EXPECT_EQ(PlaceOf(views_.txtVariables), Place(1950, 480, 9375, 6840 - 50 - 480));
    EXPECT_EQ(views_.PicPreResize.Image(), PictureButton::Picture::ImgMax);
    EXPECT_EQ(views_.PicMQResize.Image(), PictureButton::Picture::ImgMax);
}

TEST_F(LayoutTest, ConditionTabFollowsTheWidth)
{
    for (const int width : {11700, 9000, 20000, 2400}) {
        control_.Resize(width, 8000);
        const int frame = width - 210;
        const int box = frame - 2025 - 120; // the box begins 50 behind the list's right edge, 40 + 1935
        EXPECT_EQ(PlaceOf(views_.MainTab), Place(0, 0, width - 10, 7990));
        EXPECT_EQ(PlaceOf(views_.FrmCondition), Place(120, 360, frame, 7510));
        for (const SyntaxBox* script :
             {&views_.txtPreCondition, &views_.txtMainQuery, &views_.txtFunctions, &views_.txtVariables}) {
            EXPECT_EQ(script->Left(), 2025);
            EXPECT_EQ(script->Width(), box);
        }
        EXPECT_EQ(views_.PicPreResize.Left(), 2025 + box - 240);
        EXPECT_EQ(views_.PicMQResize.Left(), 2025 + box - 240);
        EXPECT_EQ(views_.txtPreCondition.Height(), 2175);
    }
    for (const auto& [button, left] : std::vector<std::pair<const Button*, int>>{{&views_.CmdBuildPre, 2025},
                                                                                 {&views_.CmdPreEditor, 3105},
                                                                                 {&views_.CmdPreDoc, 4185},
                                                                                 {&views_.cmdBuildMQ, 2025},
                                                                                 {&views_.CmdMqEditor, 3105},
                                                                                 {&views_.CmdMQDoc, 4185},
                                                                                 {&views_.CmdFunction, 5265},
                                                                                 {&views_.CmdVariables, 6345},
                                                                                 {&views_.CmdOk, 2025},
                                                                                 {&views_.CmdCancel, 3225}})
        EXPECT_EQ(button->Left(), left) << testing::PrintToString(button->Caption());
}

TEST_F(LayoutTest, ARefusedStepIsSkippedAndTheNextOneDone)
{
    control_.Resize(11700, 8000);
    const int box = views_.txtPreCondition.Width();
    control_.Resize(2000, 300); // the frame is 1790 wide, the box would be 355 below nothing, and the frame 190
    EXPECT_EQ(PlaceOf(views_.MainTab), Place(0, 0, 1990, 290));
    EXPECT_EQ(views_.FrmCondition.Width(), 1790);
    EXPECT_EQ(views_.FrmCondition.Height(), 7510);
    EXPECT_EQ(views_.txtPreCondition.Width(), box);
    EXPECT_EQ(views_.PicPreResize.Left(), 2025 + box - 240);
    control_.Resize(5, 5);
    EXPECT_EQ(PlaceOf(views_.MainTab), Place(0, 0, 1990, 290));
    EXPECT_TRUE(views_.FrmCondition.Enabled());
}

TEST_F(LayoutTest, ASizeBelowThirtyTwoBitsIsRefusedLikeAnyNegativeOne)
{
    constexpr int Least = std::numeric_limits<int>::min();
    control_.Resize(2000, 300);
    for (const auto& [width, height] : {std::pair(Least, Least), std::pair(Least + 9, Least + 9), std::pair(-1, -1)}) {
        control_.Resize(width, height);
        EXPECT_EQ(PlaceOf(views_.MainTab), Place(0, 0, 1990, 290));
        EXPECT_EQ(views_.FrmCondition.Width(), 1790);
    }
    control_.Resize(std::numeric_limits<int>::max(), 300);
    EXPECT_EQ(views_.MainTab.Width(), std::numeric_limits<int>::max() - 10);
}

TEST_F(LayoutTest, RulesTabHalvesTheWidthForTheTwoLists)
{
    OpenRules();
    // Half of a length, a half twip to the even one: (width - 690) / 2.
    for (const auto& [width, list] :
         std::vector<std::pair<int, int>>{{11700, 5505}, {11701, 5506}, {11703, 5506}, {11705, 5508}, {9000, 4155}}) {
        control_.Resize(width, 7755);
        EXPECT_EQ(views_.lstSourceFields.Width(), list) << width;
        EXPECT_EQ(views_.lstTargetFields.Width(), list) << width;
        EXPECT_EQ(views_.lstSourceFields.Left(), list + 120) << width;
        EXPECT_EQ(views_.lblSourceFields.Left(), list + 120) << width;
        EXPECT_EQ(views_.lblTargetFields.Left(), 0) << width;
        EXPECT_EQ(views_.Details.Width(), width - 450) << width;
        EXPECT_EQ(views_.RulesGrid.Width(), width - 600) << width;
        EXPECT_EQ(views_.RulesGrid.ColWidth(0), 1700) << width;
        EXPECT_EQ(views_.RulesGrid.ColWidth(1), width - 2450) << width;
        EXPECT_EQ(views_.lstTargetFields.Columns()[0].Width, 0);
    }
}

TEST_F(LayoutTest, ThreeButtonsMoveOnlyInAControlThatIsWideEnough)
{
    OpenRules();
    control_.Resize(9000, 7755);
    const int before = views_.CmdMap.Left();
    EXPECT_EQ(views_.cmdCopyToAllDumps.Left(), 100 + 1185 + 50 + 1900 + 100);
    control_.Resize(11220, 7755);
    EXPECT_EQ(views_.CmdMap.Left(), before);
    control_.Resize(11222, 7755); // the lists are 5266 wide: 5235 + 150 is below 5386
    EXPECT_EQ(views_.CmdMap.Left(), 5386);
    EXPECT_EQ(views_.CmdEditRule.Left(), 5386 + 1185 + 50);
    EXPECT_EQ(views_.CmdDumpText.Left(), 5386 + 2 * (1185 + 50));
    control_.Resize(9000, 7755);
    EXPECT_EQ(views_.CmdMap.Left(), 5386);
}

TEST_F(LayoutTest, AVeryNarrowRulesTabKeepsItsLastWidths)
{
    OpenRules();
    control_.Resize(11700, 7755);
    control_.Resize(600, 7755); // lists, frame of the details, grid and column would all be too narrow
    EXPECT_EQ(views_.FrmRules.Width(), 390);
    EXPECT_EQ(views_.lstSourceFields.Width(), 5505);
    EXPECT_EQ(views_.Details.Width(), 150);
    EXPECT_EQ(views_.RulesGrid.Width(), 0);
    EXPECT_EQ(views_.RulesGrid.ColWidth(1), 9250);
    EXPECT_EQ(views_.RulesGrid.Row(), 0);
}

TEST_F(LayoutTest, APassDoneTwiceIsThePassDoneOnce)
{
    for (const int tab : {0, 1}) {
        OpenRules();
        views_.MainTab.Tab(tab);
        control_.Resize(12345, 6789);
        std::vector<Place> once;
        for (const View* view : views_.Tree.Views())
            once.push_back(PlaceOf(*view));
        control_.Resize(12345, 6789);
        for (std::size_t index = 0; index < once.size(); ++index)
            EXPECT_EQ(PlaceOf(*views_.Tree.Views()[index]), once[index]);
    }
}

TEST_F(LayoutTest, EnlargingAScriptAndGoingBack)
{
    views_.PicMQResize.UserClicks();
    EXPECT_EQ(PlaceOf(views_.txtMainQuery), Place(1920, 480, 9375, 6840 - 50 - 480));
    EXPECT_EQ(views_.PicMQResize.Image(), PictureButton::Picture::ImgMin);
    EXPECT_FALSE(views_.PicPreResize.Enabled());
    views_.PicMQResize.UserClicks();
    EXPECT_EQ(PlaceOf(views_.txtMainQuery), Place(1920, 3150, 9375, 6840 - 3150 - 50)); // 2760 + 315 + 75
    EXPECT_EQ(views_.PicMQResize.Top(), 3150 - 255 - 10);
    views_.PicPreResize.UserClicks();
    EXPECT_EQ(views_.txtPreCondition.Height(), 6840 - 50 - 480);
    EXPECT_EQ(views_.CmdPreDoc.Top(), 6840);
    EXPECT_EQ(views_.PicPreResize.Image(), PictureButton::Picture::ImgMin);
    views_.PicPreResize.UserClicks();
    EXPECT_EQ(views_.CmdBuildPre.Top(), 3150 - 315 - 75);
    EXPECT_EQ(views_.txtPreCondition.Height(), 2760 - 480 - 25);
    EXPECT_EQ(views_.lblPreCondition.Caption(), u"PreCondition");
}

} // namespace
} // namespace rulemesh
