#include "window/random_user.h"

#include "drive/session.h"
#include "support/samples.h"
#include "views/designer_views.h"
#include "window/window_stage.h"

namespace rulemesh {

namespace {

const std::vector<std::string>& AllViews()
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> found;
        const DesignerViews views;
        for (const View* view : views.Tree.Views())
            found.emplace_back(view->Name().begin(), view->Name().end());
        return found;
    }();
    return names;
}

std::vector<std::string> ViewsOf(std::initializer_list<ViewKind> kinds)
{
    std::vector<std::string> found;
    const DesignerViews views;
    for (const View* view : views.Tree.Views()) {
        for (const ViewKind kind : kinds) {
            if (view->Kind() == kind)
                found.emplace_back(view->Name().begin(), view->Name().end());
        }
    }
    return found;
}

Json Let(const char* name, Json value) { return {{"do", "let"}, {"name", name}, {"value", std::move(value)}}; }

} // namespace

std::string RandomUser::AnyText()
{
    return AnyOf(std::vector<std::string>{"", "migrate ordrs001\r\n| dump 10", "migrate track001\ndump 3 | x\ndump 77",
                                          "a\nb\r\nc\rd\r\r\ne", "dump 40000", "\xE2\x80\xA8x\xE2\x80\xA9", "x",
                                          "custm001,emply001", "nosuch99", "\xF0\x9F\x98\x80 y\t<&\"'",
                                          "| migrate\nmigrate", "srtab001.price(1)", " ", "10", "3", "-1"});
}

int RandomUser::Row()
{
    return AnyOf(std::vector{0, 1, 2, 3, 8, 9, 10, 11, 12, 20, 29, 30, -1, 2147483647, Below(40)});
}

std::string RandomUser::View()
{
    return Below(3) == 0 ? AnyOf(std::vector<std::string>{"RulesGrid", "txtgrdline", "lstTargetFields", "CmbDump",
                                                          "txtMainQuery", "txtPreCondition", "MainTab"})
                         : AnyOf(AllViews());
}

std::vector<Json> RandomUser::Begin()
{
    const int kind = Below(8);
    if (kind == 0)
        return {Let("Edit", Below(2) == 0)};
    const bool first = kind < 5;
    std::vector<Json> requests = {Let("TargetTable", first ? "salor101" : "PARTN101"),
                                  Let("MappingObjectXML", Sample(first ? "northwind.xml" : "chinook.xml")),
                                  Let("Edit", kind != 4 && kind != 7)};
    requests.push_back({{"do", "call"}, {"name", "ShowControl"}});
    if (Below(4) != 0)
        requests.push_back({{"do", "resize"}, {"width", 11700}, {"height", 7755}});
    if (Below(2) == 0)
        requests.push_back({{"do", "tab"}, {"index", 1}});
    return requests;
}

Json RandomUser::Next()
{
    const int kind = Below(20);
    if (kind == 0)
        return HostsRequest();
    if (kind == 1)
        return Reply();
    return UsersRequest();
}

Json RandomUser::UsersRequest()
{
    static const std::vector<std::string> boxes = ViewsOf({ViewKind::Text, ViewKind::Syntax});
    static const std::vector<std::string> lists = ViewsOf({ViewKind::List});
    static const std::vector<std::string> buttons = ViewsOf({ViewKind::Button, ViewKind::Picture});
    static const std::vector<std::string> combos = ViewsOf({ViewKind::Combo});
    switch (Below(16)) {
    case 0:
        return {{"do", "tab"}, {"index", AnyOf(std::vector{0, 1, 1, 1, 0, 2, -1})}};
    case 1:
        return {{"do", "focus"}, {"view", View()}};
    case 2:
        return {{"do", "type"}, {"view", AnyOf(boxes)}, {"text", AnyText()}};
    case 3: {
        Json key = {{"do", "key"},
                    {"code", AnyOf(std::vector{8,  9,  13, 27, 32, 46, 37, 38,  39,  40, 33, 34,        35,
                                               36, 45, 65, 77, 80, 81, 85, 113, 186, 0,  -1, Below(256)})},
                    {"shift", AnyOf(std::vector{0, 0, 1, 2, 3, 4, 5, 6, 7, 8, -1})}};
        if (Below(2) == 0)
            key["view"] = View();
        return key;
    }
    case 4:
    case 5:
        return {{"do", "press"},
                {"view", "RulesGrid"},
                {"ascii", AnyOf(std::vector{9, 9, 13, 8, 27, 32, 65, 97, 97, 127, 0, 1, 31, 233, -5, -10179, -32768,
                                            32767, Below(300)})}};
    case 6:
        return {{"do", "choose"}, {"view", AnyOf(combos)}, {"index", AnyOf(std::vector{0, 1, 2, 3, 4, 5, 6, -1})}};
    case 7:
    case 8:
        return {{"do", "row"}, {"view", AnyOf(lists)}, {"row", Row()}};
    case 9:
        return {{"do", "tick"}, {"view", AnyOf(lists)}, {"row", Row()}, {"on", Below(3) != 0}};
    case 10:
        return {{"do", "header"}, {"view", AnyOf(lists)}, {"column", Below(15)}};
    case 11:
    case 12:
        return {{"do", "cell"}, {"view", "RulesGrid"}, {"row", Row()}, {"col", Below(3)}, {"double", Below(2) == 1}};
    case 13:
        return {{"do", "scroll"}, {"view", "RulesGrid"}, {"top", Row()}};
    case 14:
        return Below(3) == 0 ? Json{{"do", "leave"}} : Json{{"do", "click"}, {"view", View()}};
    default:
        return {{"do", "click"}, {"view", AnyOf(buttons)}};
    }
}

Json RandomUser::Property()
{
    switch (Below(8)) {
    case 0:
        return {{"name", "Edit"}, {"value", Below(3) != 0}};
    case 1:
        return {{"name", "Syntax_Highlight"}, {"value", Below(2) == 0}};
    case 2:
        return {{"name", "MappingObjectXML"}, {"value", Sample(Below(2) == 0 ? "northwind.xml" : "chinook.xml")}};
    case 3:
        return {{"name", "TargetTable"},
                {"value", AnyOf(std::vector<std::string>{"salor101", "PARTN101", "", "nosuch101"})}};
    default:
        return {{"name", AnyOf(std::vector<std::string>{"SourceTables", "PreCondition", "MainQuery", "FieldMapping",
                                                        "Editor"})},
                {"value", AnyText()}};
    }
}

Json RandomUser::Call()
{
    switch (Below(5)) {
    case 0:
        return {{"do", "call"}, {"name", "ShowControl"}};
    case 1:
        return {{"do", "call"}, {"name", "Setfocus"}};
    case 2:
        return {
            {"do", "call"},
            {"name", "SetTextNumber"},
            {"args", {AnyOf(std::vector<std::string>{"PREC", "QUERY", "DUMP", ""}), Below(9), AnyText(), AnyText()}}};
    case 3:
        return {{"do", "call"}, {"name", "GetRowNumber"}, {"args", {AnyText()}}};
    default:
        return {{"do", "call"}, {"name", "GridEdit"}, {"args", {AnyOf(std::vector{0, 32, 97, -5, 127})}}};
    }
}

Json RandomUser::HostsRequest()
{
    switch (Below(8)) {
    case 0:
        return {
            {"do", "get"},
            {"name", AnyOf(std::vector<std::string>{"MappingObjectXML", "SourceTables", "MainQuery", "FieldMapping"})}};
    case 1:
    case 2:
        return {{"do", "set"}, {"view", View()}, {"visible", Below(4) != 0}};
    case 3:
        return {{"do", "resize"},
                {"width", AnyOf(std::vector{11700, 9000, 15000, 3000, 100, 0})},
                {"height", AnyOf(std::vector{7755, 9000, 100})}};
    case 4:
    case 5: {
        Json let = Property();
        let["do"] = "let";
        return let;
    }
    case 6:
        return Below(6) == 0 ? Json{{"do", "create"}} : Call();
    default:
        return Call();
    }
}

Json RandomUser::FormSteps()
{
    Json steps = Json::array();
    for (int step = Below(4); step > 0; --step) {
        switch (Below(5)) {
        case 0:
        case 1:
            steps.push_back({{"do", "type"}, {"view", "TxtDoc"}, {"text", AnyText()}});
            break;
        case 2:
            steps.push_back({{"do", "choose"}, {"view", "CmbTargetTable"}, {"index", Below(6) - 1}});
            break;
        case 3:
            steps.push_back({{"do", "close"}});
            break;
        default:
            steps.push_back({{"do", "click"}, {"view", Below(2) == 0 ? "CmdOk" : "CmdCancel"}});
        }
    }
    return steps;
}

Json RandomUser::Reply()
{
    switch (Below(6)) {
    case 0:
        return {{"do", "reply"},
                {"to", "message"},
                {"button", AnyOf(std::vector<std::string>{"OK", "Cancel", "Yes", "No"})}};
    case 1:
        return {{"do", "reply"}, {"to", "input"}, {"text", AnyText()}};
    case 2:
        return {{"do", "reply"}, {"to", "editor"}, {"status", Below(4) == 0 ? 1 : 0}, {"text", AnyText()}};
    case 3:
        return {
            {"do", "reply"},
            {"to", "event"},
            {"name", AnyOf(std::vector<std::string>{"ShowSourceTablesPopUp", "ShowConditionBuilderPopUp",
                                                    "ShowQueryBuilderPopUp", "SaveDoneDisabled", "SaveDoneEnabled"})},
            {"let", Property()}};
    case 4:
        return {{"do", "reply"}, {"to", "file"}, {"fail", true}};
    default:
        return {{"do", "reply"}, {"to", "form"}, {"steps", FormSteps()}};
    }
}

std::vector<Json> RandomSession(unsigned seed, int steps)
{
    RandomUser user(seed);
    std::vector<Json> requests = user.Begin();
    for (int step = 0; step < steps; ++step) {
        requests.push_back(user.Next());
        requests.push_back({{"do", "focused"}});
    }
    for (const std::string& view : AllViews())
        requests.push_back({{"do", "read"}, {"view", view}});
    requests.push_back({{"do", "state"}});
    requests.push_back({{"do", "xml"}});
    return requests;
}

std::string DifferenceWithAWindow(const std::vector<Json>& requests)
{
    Session windowless;
    Session inWindow([] { return std::make_unique<WindowStage>(); });
    for (const Json& request : requests) {
        const std::string line = request.dump();
        const std::string expected = windowless.Answer(line);
        const std::string answer = inWindow.Answer(line);
        if (answer != expected)
            return line + "\n  without: " + expected + "\n  with:    " + answer;
    }
    return {};
}

} // namespace rulemesh
