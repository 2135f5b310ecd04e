#include "drive/verbs.h"

#include <functional>
#include <map>

#include "drive/hello.h"
#include "drive/layout_requests.h"
#include "drive/look_requests.h"
#include "drive/members.h"
#include "drive/named_view.h"
#include "drive/object_requests.h"
#include "drive/reply_requests.h"
#include "drive/user_requests.h"

namespace rulemesh {

namespace {

using Verb = std::function<Json(Desks&, const Request&)>;

Json Create(Desks& desks, const Request& request)
{
    desks.Create(request);
    return nullptr;
}

Json Hello(Desks& desks, const Request& request)
{
    return Introduction({VerbNames(), MemberNames(), ViewNames(desks.Of(request).Control())});
}

Json Let(Desk& desk, const Request& request) { return desk.Let(request); }

template <Json (*Work)(Desk&, const Request&)> Json OnDesk(Desks& desks, const Request& request)
{
    return Work(desks.Of(request), request);
}

template <Json (*Work)(ctlRulemesh&, const Request&)> Json OnControl(Desks& desks, const Request& request)
{
    return Work(desks.Of(request).Control(), request);
}

template <Json (*Work)(Stage&, const Request&)> Json ByHand(Desks& desks, const Request& request)
{
    return Work(desks.Of(request).Where(), request);
}

template <Json (*Work)(ScriptedPlatform&, const Request&)> Json OnPlatform(Desks& desks, const Request& request)
{
    return Work(desks.Of(request).Platform(), request);
}

const std::map<std::string, Verb>& Verbs()
{
    static const std::map<std::string, Verb> verbs = {
        {"hello", Hello},
        {"create", Create},
        {"reply", OnPlatform<LayReplyReady>},

        {"load", OnDesk<LoadObject>},
        {"save", OnDesk<SaveObject>},
        {"let", OnDesk<Let>},
        {"get", OnControl<GetProperty>},
        {"call", OnControl<CallMember>},
        {"resize", OnControl<ResizeControl>},
        {"set", OnControl<SetVisible>},

        {"click", ByHand<Click>},
        {"tab", ByHand<ClickTab>},
        {"focus", ByHand<MoveFocus>},
        {"leave", ByHand<Leave>},
        {"type", ByHand<Type>},
        {"key", ByHand<PressKey>},
        {"press", ByHand<PressCharacter>},
        {"choose", ByHand<Choose>},
        {"row", ByHand<ClickRow>},
        {"tick", ByHand<Tick>},
        {"header", ByHand<ClickHeader>},
        {"cell", ByHand<ClickCell>},
        {"scroll", ByHand<Scroll>},

        {"read", OnControl<ReadView>},
        {"focused", OnControl<ReadFocused>},
        {"state", OnControl<ReadState>},
        {"xml", OnControl<ReadXml>},
    };
    return verbs;
}

} // namespace

Json Do(Desks& desks, const Request& request)
{
    const std::string word = request.Word("do");
    const auto verb = Verbs().find(word);
    if (verb == Verbs().end())
        throw Refusal("there is no verb \"" + word + "\"");
    return verb->second(desks, request);
}

std::vector<std::string> VerbNames()
{
    std::vector<std::string> names;
    for (const auto& [name, verb] : Verbs())
        names.push_back(name);
    return names;
}

} // namespace rulemesh
