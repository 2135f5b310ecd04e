#include "drive/look_requests.h"

#include <array>
#include <map>

#include "drive/named_view.h"

namespace rulemesh {

namespace {

Json ListOf(const std::vector<Text>& texts)
{
    Json list = Json::array();
    for (const Text& text : texts)
        list.push_back(JsonOf(text));
    return list;
}

Json ObjectOf(const std::unordered_map<std::int16_t, Text>& map)
{
    Json object = Json::object();
    for (const auto& [number, text] : std::map<std::int16_t, Text>(map.begin(), map.end()))
        object[std::to_string(number)] = JsonOf(text);
    return object;
}

const char* NameOf(ViewKind kind)
{
    constexpr std::array names = {"button", "label", "frame", "text", "syntax",
                                  "list",   "combo", "grid",  "tab",  "picture"};
    return names[static_cast<std::size_t>(kind)];
}

void Describe(Json& value, const CaptionedView& view) { value["caption"] = JsonOf(view.Caption()); }

void Describe(Json& value, const TextBox& box)
{
    value["text"] = JsonOf(box.Text());
    value["locked"] = box.Locked();
}

void Describe(Json& value, const ListView& list)
{
    Json rows = Json::array();
    Json selected = Json::array();
    Json ticked = Json::array();
    for (int number = 1; number <= list.Count(); ++number) {
        const ListView::Row& row = list.At(number);
        Json texts = Json::array();
        for (int position = 0; position < static_cast<int>(list.Columns().size()); ++position)
            texts.push_back(JsonOf(row.TextAt(position)));
        rows.push_back(std::move(texts));
        if (row.Selected)
            selected.push_back(number);
        if (row.Checked)
            ticked.push_back(number);
    }
    Json columns = Json::array();
    for (const ListView::Column& column : list.Columns())
        columns.push_back(column.Width);
    value["rows"] = std::move(rows);
    value["selected"] = std::move(selected);
    value["ticked"] = std::move(ticked);
    value["sort_key"] = list.SortKey();
    value["sort_order"] = list.SortOrder() == ListView::Order::Ascending ? 0 : 1;
    value["columns"] = std::move(columns);
}

void Describe(Json& value, const ComboBox& combo)
{
    Json entries = Json::array();
    for (const ComboBox::Entry& entry : combo.Entries())
        entries.push_back({{"text", JsonOf(entry.Text)}, {"data", entry.Data}});
    value["entries"] = std::move(entries);
    value["index"] = combo.ListIndex();
    value["text"] = JsonOf(combo.Text());
}

void Describe(Json& value, const Grid& grid)
{
    Json rows = Json::array();
    for (int row = 0; row < grid.Rows(); ++row)
        rows.push_back({JsonOf(grid.TextMatrix(row, 0)), JsonOf(grid.TextMatrix(row, 1))});
    value["rows"] = std::move(rows);
    value["row"] = grid.Row().Number();
    value["col"] = grid.Col();
    value["top_row"] = grid.TopRow().Number();
    value["columns"] = {grid.ColWidth(0), grid.ColWidth(1)};
}

void Describe(Json& value, const TabControl& tabs)
{
    value["tab"] = tabs.Tab();
    value["tabs_enabled"] = {tabs.TabEnabled(0), tabs.TabEnabled(1)};
}

void Describe(Json& value, const PictureButton& picture)
{
    value["image"] = picture.Image() == PictureButton::Picture::ImgMax ? "IMGMAX" : "IMGMIN";
}

template <typename Kind> bool DescribedAs(Json& value, const View& view)
{
    const auto* kind = dynamic_cast<const Kind*>(&view);
    if (kind != nullptr)
        Describe(value, *kind);
    return kind != nullptr;
}

} // namespace

Json ReadView(ctlRulemesh& control, const Request& request)
{
    const View& view = ViewOf(control, request);
    Json value = {{"kind", NameOf(view.Kind())}, {"visible", view.Visible()},
                  {"enabled", view.Enabled()},   {"left", view.Left()},
                  {"top", view.Top()},           {"width", view.Width()},
                  {"height", view.Height()},     {"tooltip", JsonOf(view.ToolTip())}};
    static_cast<void>(DescribedAs<CaptionedView>(value, view) || DescribedAs<TextBox>(value, view) ||
                      DescribedAs<ListView>(value, view) || DescribedAs<ComboBox>(value, view) ||
                      DescribedAs<Grid>(value, view) || DescribedAs<TabControl>(value, view) ||
                      DescribedAs<PictureButton>(value, view));
    if (view.Kind() == ViewKind::Text || view.Kind() == ViewKind::Syntax || view.Kind() == ViewKind::Combo)
        value["tag"] = JsonOf(control.TagOf(view));
    return value;
}

Json ReadFocused(ctlRulemesh& control, const Request& /*request*/)
{
    const View* view = control.Views().Tree.Focused();
    return view == nullptr ? Json() : JsonOf(view->Name());
}

Json ReadState(ctlRulemesh& control, const Request& /*request*/)
{
    const ControlState& state = control.State();
    return {{"BoolEditorOpen", state.BoolEditorOpen},
            {"BoolEdit", state.BoolEdit},
            {"BoolMultiTarget", state.BoolMultiTarget},
            {"BoolSyntaxHighlight", state.BoolSyntaxHighlight},
            {"IntDumpNumbers", state.IntDumpNumbers},
            {"StrDumpTexts", ListOf(state.StrDumpTexts)},
            {"StrTargetTable", JsonOf(state.StrTargetTable)},
            {"StrMigrateTables", ListOf(state.StrMigrateTables)},
            {"IntErrorCode", state.IntErrorCode},
            {"StrErrorText", JsonOf(state.StrErrorText)},
            {"StrEditor", JsonOf(state.StrEditor)},
            {"DumpSourceTables", ObjectOf(state.DumpSourceTables)},
            {"DumpComments", ObjectOf(state.DumpComments)}};
}

Json ReadXml(ctlRulemesh& control, const Request& /*request*/) { return control.DocumentAsItStands(); }

} // namespace rulemesh
