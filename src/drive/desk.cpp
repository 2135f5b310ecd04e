#include "drive/desk.h"

#include "drive/members.h"

namespace rulemesh {

Desk::Desk(std::unique_ptr<Stage> stage)
    : stage_(std::move(stage)), platform_(stage_->Hands(), [this](const Json& reply) { ActInEvent(Request(reply)); })
{
    CreateAnew();
}

void Desk::CreateAnew()
{
    stage_->Create(platform_, platform_);
    file_ = {};
}

Json Desk::Let(const Request& request)
{
    Json value = LetProperty(Control(), request);
    if (request.Word("name") == "MappingObjectXML")
        file_ = {};
    return value;
}

// What the host does from inside of an event.
void Desk::ActInEvent(const Request& reply)
{
    if (reply.Has("let"))
        static_cast<void>(Let(Request(reply.Member("let"))));
    if (reply.Has("call"))
        static_cast<void>(CallMember(Control(), Request(reply.Member("call"))));
}

} // namespace rulemesh
