#include "drive/reply_requests.h"

#include <algorithm>
#include <array>

#include "drive/members.h"

namespace rulemesh {

namespace {

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
    CheckCall(Request(call));
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
    CheckLet(Request(let));
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

Json LayReplyReady(ScriptedPlatform& platform, const Request& request)
{
    const std::string kind = request.Word("to");
    CheckReply(kind, request);
    platform.LayReady(kind, request.All());
    return nullptr;
}

} // namespace rulemesh
