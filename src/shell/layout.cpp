#include "shell/layout.h"

#include <cstdint>
#include <limits>

#include "base/failure.h"
#include "views/field_columns.h"

namespace rulemesh {

namespace {

// One statement of a layout pass: what refuses it is skipped and told to nobody.
template <typename Statement> void Step(Statement statement)
{
    try {
        statement();
    } catch (const Failure&) {
        return;
    }
}

// Lengths are worked out in 64 bits, so that what lies below 32 bits is refused like any other negative length.
int Length(std::int64_t length)
{
    constexpr std::int64_t Least = std::numeric_limits<int>::min();
    return static_cast<int>(length < Least ? Least : length);
}

void StepWidth(View& view, std::int64_t width)
{
    Step([&] { view.Width(Length(width)); });
}

void StepHeight(View& view, std::int64_t height)
{
    Step([&] { view.Height(Length(height)); });
}

// Half of a length in whole twips, a half of a twip to the even one.
int Half(int length)
{
    const int half = length / 2; // toward zero
    const bool odd = length % 2 != 0;
    return odd && half % 2 != 0 ? half + (length < 0 ? -1 : 1) : half;
}

} // namespace

void Layout::Resize(int width, int height)
{
    width_ = width;
    height_ = height;
    UserControl_Resize();
}

void Layout::UserControl_Resize()
{
    views_.MainTab.Left(0);
    StepWidth(views_.MainTab, std::int64_t{width_} - 10);
    StepHeight(views_.MainTab, std::int64_t{height_} - 10);
    if (views_.MainTab.Tab() == 0)
        LayOutConditionTab();
    else
        LayOutRulesTab();
}

void Layout::LayOutConditionTab()
{
    DesignerViews& v = views_;
    StepWidth(v.FrmCondition, v.MainTab.Width() - 200);
    StepHeight(v.FrmCondition, v.MainTab.Height() - 480);

    v.txtPreCondition.Left(v.lstSourceTables.Right() + 50);
    StepWidth(v.txtPreCondition, v.FrmCondition.Width() - v.txtPreCondition.Left() - 120);
    v.PicPreResize.Left(v.txtPreCondition.Right() - v.PicPreResize.Width());
    v.CmdBuildPre.Left(v.txtPreCondition.Left());
    v.CmdPreEditor.Left(v.CmdBuildPre.Right() + 105);
    v.CmdPreDoc.Left(v.CmdPreEditor.Right() + 105);
    for (SyntaxBox* box : {&v.txtMainQuery, &v.txtFunctions, &v.txtVariables}) {
        box->Left(v.txtPreCondition.Left());
        box->Width(v.txtPreCondition.Width());
    }
    v.PicMQResize.Left(v.PicPreResize.Left());
    v.cmdBuildMQ.Left(v.CmdBuildPre.Left());
    v.CmdMqEditor.Left(v.CmdPreEditor.Left());
    v.CmdMQDoc.Left(v.CmdPreDoc.Left());
    v.CmdMqEditor.Top(v.CmdFunction.Top());
    v.CmdFunction.Left(v.CmdMQDoc.Right() + 105);
    v.CmdVariables.Left(v.CmdFunction.Right() + 105);
    v.CmdOk.Left(v.txtPreCondition.Left());
    v.CmdCancel.Left(v.CmdOk.Right() + 105);
    Step([&] { v.FrmRules.Enabled(false); });
    Step([&] { v.FrmCondition.Enabled(true); });
}

void Layout::LayOutRulesTab()
{
    DesignerViews& v = views_;
    Step([&] { v.FrmRules.Enabled(true); });
    Step([&] { v.FrmCondition.Enabled(false); });
    StepWidth(v.FrmRules, v.MainTab.Width() - 200);
    StepHeight(v.FrmRules, v.MainTab.Height() - 480);

    v.lstTargetFields.ColumnWidth(TargetField::Front + 1, 0);
    StepWidth(v.lstSourceFields, Half(v.FrmRules.Width() - 480));
    v.lstTargetFields.Width(v.lstSourceFields.Width());
    v.lstSourceFields.Left(v.lstTargetFields.Right() + 120);
    v.lblSourceFields.Left(v.lstSourceFields.Left());
    v.lblTargetFields.Left(v.lstTargetFields.Left());
    v.Details.Left(60);
    StepWidth(v.Details, v.FrmRules.Width() - 240);
    StepWidth(v.RulesGrid, v.Details.Width() - 150);
    v.RulesGrid.ColWidth(0, 1700);
    Step([&] { v.RulesGrid.ColWidth(1, v.RulesGrid.Width() - (v.RulesGrid.ColWidth(0) + 150)); });
    Step([&] { v.RulesGrid.Row(0); });
    Step([&] { v.RulesGrid.Col(0); });

    v.CmdGuess.Left(v.lstTargetFields.Left() + 100);
    v.cmdCopyDump.Left(v.CmdGuess.Right() + 50);
    v.cmdCopyToAllDumps.Left(v.cmdCopyDump.Right() + 100);
    // In a control too narrow for them the three buttons stay where they were.
    if (v.cmdCopyToAllDumps.Right() + 150 < v.lstSourceFields.Left()) {
        v.CmdMap.Left(v.lstSourceFields.Left());
        v.CmdEditRule.Left(v.CmdMap.Right() + 50);
        v.CmdDumpText.Left(v.CmdEditRule.Right() + 50);
    }
}

void Layout::PicMQResize_Click()
{
    DesignerViews& v = views_;
    if (v.txtPreCondition.Visible()) {
        panels_.ShowPreconditionView(false);
        v.txtMainQuery.Height(v.CmdOk.Top() - 50 - v.txtPreCondition.Top());
        v.txtMainQuery.Top(v.txtPreCondition.Top());
        v.PicPreResize.Visible(false);
        v.PicPreResize.Enabled(false);
        v.PicMQResize.Top(v.PicPreResize.Top());
        v.lblPreCondition.Caption(u"Main Query");
        SetResizeImages(true, false);
    } else {
        panels_.ShowPreconditionView(true);
        v.txtMainQuery.Top(v.CmdPreDoc.Bottom() + 75);
        v.PicPreResize.Visible(true);
        v.PicPreResize.Enabled(true);
        v.txtMainQuery.Height(v.CmdOk.Top() - v.txtMainQuery.Top() - 50);
        v.PicMQResize.Top(v.txtMainQuery.Top() - v.PicMQResize.Height() - 10);
        v.lblPreCondition.Caption(u"PreCondition");
        SetResizeImages(true, true);
    }
}

void Layout::PicPreResize_Click()
{
    DesignerViews& v = views_;
    if (v.txtMainQuery.Visible()) {
        panels_.ShowMainQueryView(false);
        v.txtPreCondition.Height(v.CmdOk.Top() - 50 - v.txtPreCondition.Top());
        for (Button* button : {&v.CmdPreDoc, &v.CmdBuildPre, &v.CmdPreEditor})
            button->Top(v.CmdOk.Top());
        v.lblPreCondition.Caption(u"PreCondition");
        SetResizeImages(false, true);
    } else {
        panels_.ShowMainQueryView(true);
        v.CmdPreDoc.Top(v.txtMainQuery.Top() - v.CmdPreDoc.Height() - 75);
        for (Button* button : {&v.CmdBuildPre, &v.CmdPreEditor})
            button->Top(v.CmdPreDoc.Top());
        v.txtPreCondition.Height(v.CmdPreDoc.Top() - v.txtPreCondition.Top() - 25);
        SetResizeImages(true, true);
    }
}

void Layout::SetResizeImages(bool BoolPreMax, bool BoolMqMax)
{
    using Picture = PictureButton::Picture;
    views_.PicPreResize.Image(BoolPreMax ? Picture::ImgMax : Picture::ImgMin);
    views_.PicMQResize.Image(BoolMqMax ? Picture::ImgMax : Picture::ImgMin);
}

} // namespace rulemesh
