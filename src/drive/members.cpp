#include "drive/members.h"

#include <functional>
#include <map>
#include <set>

namespace rulemesh {

namespace {

using Setter = std::function<void(ctlRulemesh&, const Json& value)>;
using Getter = std::function<Json(ctlRulemesh&)>;
using Caller = std::function<Json(ctlRulemesh&, const Json& args)>;

const std::map<std::string, Setter>& Setters()
{
    static const std::map<std::string, Setter> setters = {
        {"MappingObjectXML", [](auto& control, auto& value) { control.MappingObjectXML(TextValue(value, "value")); }},
        {"Editor", [](auto& control, auto& value) { control.Editor(TextValue(value, "value")); }},
        {"TargetTable", [](auto& control, auto& value) { control.TargetTable(TextValue(value, "value")); }},
        {"Edit", [](auto& control, auto& value) { control.Edit(FlagValue(value, "value")); }},
        {"SourceTables", [](auto& control, auto& value) { control.SourceTables(TextValue(value, "value")); }},
        {"PreCondition", [](auto& control, auto& value) { control.PreCondition(TextValue(value, "value")); }},
        {"MainQuery", [](auto& control, auto& value) { control.MainQuery(TextValue(value, "value")); }},
        {"FieldMapping", [](auto& control, auto& value) { control.FieldMapping(TextValue(value, "value")); }},
        {"Syntax_Highlight", [](auto& control, auto& value) { control.Syntax_Highlight(FlagValue(value, "value")); }},
    };
    return setters;
}

const std::map<std::string, Getter>& Getters()
{
    static const std::map<std::string, Getter> getters = {
        {"MappingObjectXML", [](auto& control) { return Json(control.MappingObjectXmlUtf8()); }},
        {"SourceTables", [](auto& control) { return JsonOf(control.SourceTables()); }},
        {"MainQuery", [](auto& control) { return JsonOf(control.MainQuery()); }},
        {"FieldMapping", [](auto& control) { return JsonOf(control.FieldMapping()); }},
        {"Syntax_Highlight", [](auto& control) { return Json(control.Syntax_Highlight()); }},
        {"UndoText", [](auto& control) { return JsonOf(control.UndoText()); }},
        {"RedoText", [](auto& control) { return JsonOf(control.RedoText()); }},
    };
    return getters;
}

void RequireCount(const Json& args, std::size_t count)
{
    if (args.size() != count)
        throw Refusal("\"args\" must have " + std::to_string(count) + " elements");
}

Json SetTextNumber(ctlRulemesh& control, const Json& args)
{
    RequireCount(args, 4);
    const Text StrType = TextValue(args[0], "StrType");
    const int LngTextNumber = NumberValue(args[1], "LngTextNumber");
    const Text StrKey1 = TextValue(args[2], "StrKey1");
    control.SetTextNumber(StrType, LngTextNumber, StrKey1, TextValue(args[3], "StrKey2"));
    return nullptr;
}

const std::map<std::string, Caller>& Callers()
{
    static const std::map<std::string, Caller> callers = {
        {"ShowControl",
         [](auto& control, auto& args) {
             RequireCount(args, 0);
             control.ShowControl();
             return Json();
         }},
        {"SetTextNumber", SetTextNumber},
        {"Setfocus",
         [](auto& control, auto& args) {
             RequireCount(args, 0);
             control.Setfocus();
             return Json();
         }},
        {"GetListItemNumber",
         [](auto& control, auto& args) {
             RequireCount(args, 1);
             return Json(control.GetListItemNumber(TextValue(args[0], "strFieldName")));
         }},
        {"GetRowNumber",
         [](auto& control, auto& args) {
             RequireCount(args, 1);
             return Json(control.GetRowNumber(TextValue(args[0], "i_StrFieldName")));
         }},
        {"GridEdit",
         [](auto& control, auto& args) {
             RequireCount(args, 1);
             control.GridEdit(SmallNumberValue(args[0], "KeyAscii"));
             return Json();
         }},
        {"Undo",
         [](auto& control, auto& args) {
             RequireCount(args, 0);
             return Json(control.Undo());
         }},
        {"Redo",
         [](auto& control, auto& args) {
             RequireCount(args, 0);
             return Json(control.Redo());
         }},
    };
    return callers;
}

template <typename Table> const auto& Named(const Table& table, const Request& request)
{
    const std::string name = request.Word("name");
    const auto found = table.find(name);
    if (found == table.end())
        throw Refusal("there is no \"" + name + "\" for this verb");
    return found->second;
}

} // namespace

Json LetProperty(ctlRulemesh& control, const Request& request)
{
    Named(Setters(), request)(control, request.Member("value"));
    return nullptr;
}

Json GetProperty(ctlRulemesh& control, const Request& request) { return Named(Getters(), request)(control); }

Json CallMember(ctlRulemesh& control, const Request& request)
{
    const Caller& caller = Named(Callers(), request);
    const Json args = request.Has("args") ? request.Member("args") : Json::array();
    if (!args.is_array())
        throw Refusal("\"args\" must be a list");
    return caller(control, args);
}

void CheckLet(const Request& request)
{
    static_cast<void>(Named(Setters(), request));
    const std::string property = request.Word("name");
    if (property == "Edit" || property == "Syntax_Highlight")
        static_cast<void>(request.Flag("value"));
    else
        static_cast<void>(request.TextMember("value"));
}

void CheckCall(const Request& request) { static_cast<void>(Named(Callers(), request)); }

std::vector<std::string> MemberNames()
{
    std::set<std::string> names;
    const auto addNamesOf = [&names](const auto& table) {
        for (const auto& entry : table)
            names.insert(entry.first);
    };
    addNamesOf(Setters());
    addNamesOf(Getters());
    addNamesOf(Callers());
    return {names.begin(), names.end()};
}

} // namespace rulemesh
