#include "host/builders/function_button.h"

#include "desktop/rulemesh_widget.h"
#include "desktop/view_surface.h"

namespace rulemesh {

namespace {

constexpr int RuleColumn = 1;

// All in twips, as the designer's own layout.
constexpr int ButtonWidth = 1185;
constexpr int ButtonHeight = 315;
constexpr int Gap = 50;
constexpr int TopAboveLists = 510;

Placement PlaceIn(const DesignerViews& views)
{
    const int right = views.lstSourceFields.Right();
    const int behind = views.CmdDumpText.Right() + Gap;
    if (behind + ButtonWidth <= right)
        return {behind, views.CmdDumpText.Top(), ButtonWidth, ButtonHeight};
    return {right - ButtonWidth, TopAboveLists, ButtonWidth, ButtonHeight};
}

bool Stands(const View& view, const Placement& place)
{
    return view.Left() == place.Left && view.Top() == place.Top && view.Width() == place.Width &&
           view.Height() == place.Height;
}

} // namespace

FunctionButton::FunctionButton(RulemeshWidget& widget) : widget_(widget)
{
    connect(&widget, &RulemeshWidget::Acted, this, &FunctionButton::Place);
    Place();
}

bool FunctionButton::MayBuild(RulemeshWidget& widget)
{
    const DesignerViews& views = widget.Control().Views();
    return widget.Edit() && views.RulesGrid.Rows() > 0 && views.RulesGrid.Col() == RuleColumn;
}

void FunctionButton::Place()
{
    Button& button = widget_.Control().Views().CmdFuncBuild;
    const Placement place = PlaceIn(widget_.Control().Views());
    const bool enabled = MayBuild(widget_);
    if (button.Visible() && button.Enabled() == enabled && Stands(button, place))
        return;
    widget_.Surface().Act([&] {
        button.Left(place.Left);
        button.Top(place.Top);
        button.Width(place.Width);
        button.Height(place.Height);
        button.Enabled(enabled);
        button.Visible(true);
    });
}

} // namespace rulemesh
