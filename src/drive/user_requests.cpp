#include "drive/user_requests.h"

#include <algorithm>

#include "base/utf8.h"
#include "drive/named_view.h"
#include "views/field_columns.h"

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
template <typename Kind> Kind& Reachable(Stage& stage, const Request& request)
{
    View& view = ViewOf(stage.Control(), request);
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

// Where the names of fields stand in a row of the list.
int PositionOfFields(DesignerViews& views, const ListView& list)
{
    if (&list == &views.lstSourceFields)
        return SourceField::Name;
    if (&list == &views.lstTargetFields)
        return TargetField::Name;
    throw Refusal(NameOf(list) + " has no fields; give \"row\"");
}

int RowOfField(DesignerViews& views, const ListView& list, const Text& field)
{
    const int position = PositionOfFields(views, list);
    for (int row = 1; row <= list.Count(); ++row) {
        if (list.At(row).TextAt(position) == field)
            return row;
    }
    throw Refusal(NameOf(list) + " has no field \"" + ToUtf8(field) + "\"");
}

int RowOf(Stage& stage, const ListView& list, const Request& request)
{
    if (!request.Has("row") && request.Has("field"))
        return RowOfField(stage.Control().Views(), list, request.TextMember("field"));
    const int row = request.Number("row");
    RequireWithin(row, 1, list.Count(), "row");
    return row;
}

int IndexOf(const ComboBox& combo, const Request& request)
{
    const std::vector<ComboBox::Entry>& entries = combo.Entries();
    if (!request.Has("index") && request.Has("data")) {
        const int data = request.Number("data");
        const auto found = std::find_if(entries.begin(), entries.end(),
                                        [data](const ComboBox::Entry& entry) { return entry.Data == data; });
        if (found == entries.end())
            throw Refusal(NameOf(combo) + " has no entry with the data " + std::to_string(data));
        return static_cast<int>(found - entries.begin());
    }
    const int index = request.Number("index");
    RequireWithin(index, 0, static_cast<int>(entries.size()) - 1, "index");
    return index;
}

void RequireFocusable(const View& view)
{
    if (!view.TakesFocus())
        throw Refusal(NameOf(view) + " takes no focus");
}

} // namespace

Json Click(Stage& stage, const Request& request)
{
    View& view = ViewOf(stage.Control(), request);
    if (view.Kind() == ViewKind::Picture)
        stage.Hands().Click(Reachable<PictureButton>(stage, request));
    else
        stage.Hands().Click(Reachable<Button>(stage, request));
    return nullptr;
}

Json ClickTab(Stage& stage, const Request& request)
{
    TabControl& tabs = stage.Control().Views().MainTab;
    const int tab = request.Number("index");
    RequireWithin(tab, 0, TabControl::TabCount - 1, "index");
    if (tab == tabs.Tab())
        return nullptr;
    Reachable(tabs);
    if (!tabs.TabEnabled(tab))
        throw Refusal("the tab is disabled");
    stage.Hands().ClickTab(tabs, tab);
    return nullptr;
}

Json MoveFocus(Stage& stage, const Request& request)
{
    View& view = ViewOf(stage.Control(), request);
    RequireFocusable(view);
    stage.Hands().MoveFocus(stage.Control().Views().Tree, Reachable(view));
    return nullptr;
}

Json Leave(Stage& stage, const Request& /*request*/)
{
    stage.Hands().Leave(stage.Control().Views().Tree);
    return nullptr;
}

Json Type(Stage& stage, const Request& request)
{
    auto& box = Reachable<TextBox>(stage, request);
    stage.Hands().Type(box, request.TextMember("text"));
    return nullptr;
}

Json PressKey(Stage& stage, const Request& request)
{
    ViewTree& tree = stage.Control().Views().Tree;
    View* view = request.Has("view") ? &ViewOf(stage.Control(), request) : tree.Focused();
    if (view == nullptr)
        throw Refusal("no view has the focus");
    RequireFocusable(*view);
    const std::int16_t KeyCode = request.SmallNumber("code");
    const std::int16_t Shift = request.Has("shift") ? request.SmallNumber("shift") : std::int16_t{0};
    return {{"cancelled", stage.Hands().PressKey(tree, Reachable(*view), KeyCode, Shift)}};
}

Json PressCharacter(Stage& stage, const Request& request)
{
    auto& grid = Reachable<Grid>(stage, request);
    stage.Hands().PressCharacter(grid, request.SmallNumber("ascii"));
    return nullptr;
}

Json Choose(Stage& stage, const Request& request)
{
    auto& combo = Reachable<ComboBox>(stage, request);
    stage.Hands().Choose(combo, IndexOf(combo, request));
    return nullptr;
}

Json ClickRow(Stage& stage, const Request& request)
{
    auto& list = Reachable<ListView>(stage, request);
    stage.Hands().ClickRow(list, RowOf(stage, list, request));
    return nullptr;
}

Json Tick(Stage& stage, const Request& request)
{
    auto& list = Reachable<ListView>(stage, request);
    if (!list.HasCheckBoxes())
        throw Refusal(NameOf(list) + " has no check boxes");
    const int row = RowOf(stage, list, request);
    stage.Hands().Tick(list, row, request.Flag("on"));
    return nullptr;
}

Json ClickHeader(Stage& stage, const Request& request)
{
    auto& list = Reachable<ListView>(stage, request);
    const int column = request.Number("column");
    RequireWithin(column, 1, static_cast<int>(list.Columns().size()), "column");
    if (list.Columns()[static_cast<std::size_t>(column) - 1].Width == 0)
        throw Refusal("the column has no width");
    stage.Hands().ClickHeader(list, column);
    return nullptr;
}

Json ClickCell(Stage& stage, const Request& request)
{
    auto& grid = Reachable<Grid>(stage, request);
    const int row = request.Number("row");
    const int col = request.Number("col");
    RequireWithin(col, 0, Grid::ColumnCount - 1, "col");
    if (!grid.RowIsVisible(row))
        throw Refusal("the cell is not in sight");
    const bool twice = request.Has("double") && request.Flag("double");
    stage.Hands().ClickCell(grid, row, col, twice ? Grid::Clicks::Double : Grid::Clicks::Single);
    return nullptr;
}

Json Scroll(Stage& stage, const Request& request)
{
    auto& grid = Reachable<Grid>(stage, request);
    const int top = request.Number("top");
    if (top < 0)
        throw Refusal("\"top\" is out of range");
    stage.Hands().Scroll(grid, top);
    return nullptr;
}

} // namespace rulemesh
