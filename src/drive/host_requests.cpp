#include "drive/host_requests.h"

#include <array>
#include <functional>
#include <map>

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

void CheckFormStep(const Json& step)
{
    if (!step.is_object())
        throw Refusal("each of \"steps\" must be an object");
    const Request request(step);
    const std::string verb = request.Word("do");
    if (verb == "close")
        return;
    static_cast<void>(request.Word("view"));
    if (verb == "type")
        static_cast<void>(request.TextMember("text"));
    else if (verb == "choose")
        static_cast<void>(request.Number("index"));
    else if (verb != "click")
        throw Refusal("a form has no step \"" + verb + "\"");
}

void CheckEventCall(const Json& call)
{
    if (!call.is_object())
        throw Refusal("\"call\" must be an object");
    static_cast<void>(Named(Callers(), Request(call)));
}

void CheckEventReply(const Request& request)
{
    constexpr std::array events = {"ShowSourceTablesPopUp",   "ShowConditionBuilderPopUp", "ShowQueryBuilderPopUp",
                                   "ShowFunctionalTextPopUp", "ShowFunctionBuilderPopUp",  "SaveDoneDisabled",
                                   "SaveDoneEnabled"};
    const std::string name = request.Word("name");
    if (std::find(events.begin(), events.end(), name) == events.end())
        throw Refusal("there is no event \"" + name + "\"");
    if (request.Has("call"))
        CheckEventCall(request.Member("call"));
    if (!request.Has("let") && request.Has("call"))
        return;
    const Json& let = request.Member("let");
    if (!let.is_object())
        throw Refusal("\"let\" must be an object");
    static_cast<void>(Named(Setters(), Request(let)));
    const std::string property = Request(let).Word("name");
    if (property == "Edit" || property == "Syntax_Highlight")
        static_cast<void>(Request(let).Flag("value"));
    else
        static_cast<void>(Request(let).TextMember("value"));
}

void CheckReply(const std::string& kind, const Request& request)
{
    if (kind == "message") {
        static_cast<void>(request.Word("button"));
    } else if (kind == "input") {
        if (!request.Member("text").is_null())
            static_cast<void>(request.TextMember("text"));
    } else if (kind == "form") {
        const Json& steps = request.Member("steps");
        if (!steps.is_array())
            throw Refusal("\"steps\" must be a list");
        for (const Json& step : steps)
            CheckFormStep(step);
    } else if (kind == "editor") {
        if (request.Has("status"))
            static_cast<void>(request.Number("status"));
        if (request.Has("text"))
            static_cast<void>(request.TextMember("text"));
        if (request.Has("fail"))
            static_cast<void>(request.Flag("fail"));
    } else if (kind == "event") {
        CheckEventReply(request);
    } else if (kind == "file") {
        if (!request.Flag("fail"))
            throw Refusal("\"fail\" must be true");
    } else {
        throw Refusal("there is no question of the kind \"" + kind + "\"");
    }
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

void ActInEvent(ctlRulemesh& control, const Request& reply)
{
    if (reply.Has("let"))
        static_cast<void>(LetProperty(control, Request(reply.Member("let"))));
    if (reply.Has("call"))
        static_cast<void>(CallMember(control, Request(reply.Member("call"))));
}

Json ResizeControl(ctlRulemesh& control, const Request& request)
{
    const int width = request.Number("width");
    control.Resize(width, request.Number("height"));
    return nullptr;
}

Json SetVisible(ctlRulemesh& control, const Request& request)
{
    View& view = ViewOf(control, request);
    view.Visible(request.Flag("visible"));
    return nullptr;
}

Json LayReplyReady(ScriptedPlatform& platform, const Request& request)
{
    const std::string kind = request.Word("to");
    CheckReply(kind, request);
    platform.LayReady(kind, request.All());
    return nullptr;
}

View& ViewOf(ctlRulemesh& control, const Request& request)
{
    View* view = control.Views().Tree.Find(request.TextMember("view"));
    if (view == nullptr)
        throw Refusal("there is no view \"" + request.Word("view") + "\"");
    return *view;
}

} // namespace rulemesh
