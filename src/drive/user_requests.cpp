#include "drive/user_requests.h"

#include "base/utf8.h"
#include "drive/host_requests.h"

namespace rulemesh {

namespace {

std::string NameOf(const View& view) { return ToUtf8(view.Name()); }

View& Reachable(View& view)
{
    if (!view.CanBeReached())
        throw Refusal("the user can't reach " + NameOf(view));
    return view;
}

// The view that the request names, which must be of a kind and within reach.
template <typename Kind> Kind& Reachable(ctlRulemesh& control, const Request& request)
{
    View& view = ViewOf(control, request);
    auto* kind = dynamic_cast<Kind*>(&view);
    if (kind == nullptr)
        throw Refusal(NameOf(view) + " is no view for this verb");
    Reachable(view);
    return *kind;
}

void RequireWithin(int number, int first, int last, const char* name)
{
    if (number < first || number > last)
        throw Refusal(std::string("\"") + name + "\" is out of range");
}

int RowOf(const ListView& list, const Request& request)
{
    const int row = request.Number("row");
    RequireWithin(row, 1, list.Count(), "row");
    return row;
}

void RequireFocusable(const View& view)
{
    if (!view.TakesFocus())
        throw Refusal(NameOf(view) + " takes no focus");
}

} // namespace

Json Click(ctlRulemesh& control, const Request& request)
{
    View& view = ViewOf(control, request);
    if (view.Kind() == ViewKind::Picture)
        Reachable<PictureButton>(control, request).UserClicks();
    else
        Reachable<Button>(control, request).UserClicks();
    return nullptr;
}

Json ClickTab(ctlRulemesh& control, const Request& request)
{
    TabControl& tabs = control.Views().MainTab;
    const int tab = request.Number("index");
    RequireWithin(tab, 0, TabControl::TabCount - 1, "index");
    if (tab == tabs.Tab())
        return nullptr;
    Reachable(tabs);
    if (!tabs.TabEnabled(tab))
        throw Refusal("the tab is disabled");
    tabs.UserClicksTab(tab);
    return nullptr;
}

Json MoveFocus(ctlRulemesh& control, const Request& request)
{
    View& view = ViewOf(control, request);
    RequireFocusable(view);
    control.Views().Tree.MoveFocus(Reachable(view));
    return nullptr;
}

Json Leave(ctlRulemesh& control, const Request& /*request*/)
{
    control.Views().Tree.UserLeaves();
    return nullptr;
}

Json Type(ctlRulemesh& control, const Request& request)
{
    auto& box = Reachable<TextBox>(control, request);
    box.UserTypes(request.TextMember("text"));
    return nullptr;
}

Json PressKey(ctlRulemesh& control, const Request& request)
{
    ViewTree& tree = control.Views().Tree;
    View* view = request.Has("view") ? &ViewOf(control, request) : tree.Focused();
    if (view == nullptr)
        throw Refusal("no view has the focus");
    RequireFocusable(*view);
    const std::int16_t KeyCode = request.SmallNumber("code");
    const std::int16_t Shift = request.Has("shift") ? request.SmallNumber("shift") : std::int16_t{0};
    return {{"cancelled", tree.UserPressesKey(Reachable(*view), KeyCode, Shift)}};
}

Json PressCharacter(ctlRulemesh& control, const Request& request)
{
    auto& grid = Reachable<Grid>(control, request);
    grid.UserPresses(request.SmallNumber("ascii"));
    return nullptr;
}

Json Choose(ctlRulemesh& control, const Request& request)
{
    auto& combo = Reachable<ComboBox>(control, request);
    const int index = request.Number("index");
    RequireWithin(index, 0, static_cast<int>(combo.Entries().size()) - 1, "index");
    combo.UserChooses(index);
    return nullptr;
}

Json ClickRow(ctlRulemesh& control, const Request& request)
{
    auto& list = Reachable<ListView>(control, request);
    list.UserClicksRow(RowOf(list, request));
    return nullptr;
}

Json Tick(ctlRulemesh& control, const Request& request)
{
    auto& list = Reachable<ListView>(control, request);
    if (!list.HasCheckBoxes())
        throw Refusal(NameOf(list) + " has no check boxes");
    const int row = RowOf(list, request);
    list.UserTicks(row, request.Flag("on"));
    return nullptr;
}

Json ClickHeader(ctlRulemesh& control, const Request& request)
{
    auto& list = Reachable<ListView>(control, request);
    const int column = request.Number("column");
    RequireWithin(column, 1, static_cast<int>(list.Columns().size()), "column");
    if (list.Columns()[static_cast<std::size_t>(column) - 1].Width == 0)
        throw Refusal("the column has no width");
    list.UserClicksHeader(column);
    return nullptr;
}

Json ClickCell(ctlRulemesh& control, const Request& request)
{
    auto& grid = Reachable<Grid>(control, request);
    const int row = request.Number("row");
    const int col = request.Number("col");
    RequireWithin(col, 0, Grid::ColumnCount - 1, "col");
    if (!grid.RowIsVisible(row))
        throw Refusal("the cell is not in sight");
    const bool twice = request.Has("double") && request.Flag("double");
    grid.UserClicksCell(row, col, twice ? Grid::Clicks::Double : Grid::Clicks::Single);
    return nullptr;
}

Json Scroll(ctlRulemesh& control, const Request& request)
{
    auto& grid = Reachable<Grid>(control, request);
    const int top = request.Number("top");
    if (top < 0)
        throw Refusal("\"top\" is out of range");
    grid.UserScrolls(top);
    return nullptr;
}

} // namespace rulemesh
