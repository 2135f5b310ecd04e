#include "drive/desks.h"

namespace rulemesh {

namespace {

constexpr char Nameless[] = "";

std::string NameOf(const Request& request)
{
    if (!request.Has("control"))
        return Nameless;
    std::string name = request.Word("control");
    if (name.empty())
        throw Refusal("\"control\" must be a name; leave it out to speak to the control without one");
    return name;
}

} // namespace

Desks::Desks(StageMaker maker) : maker_(std::move(maker))
{
    desks_.emplace(Nameless, std::make_unique<Desk>(maker_()));
}

Desk& Desks::Of(const Request& request) const
{
    const std::string name = NameOf(request);
    const auto found = desks_.find(name);
    if (found == desks_.end())
        throw Refusal("there is no control \"" + name + "\"; a create with that name makes it");
    return *found->second;
}

Desk* Desks::Find(const Request& request) const
{
    try {
        return &Of(request);
    } catch (const Refusal&) {
        return nullptr;
    }
}

void Desks::Create(const Request& request)
{
    const std::string name = NameOf(request);
    if (const auto found = desks_.find(name); found != desks_.end())
        found->second->CreateAnew();
    else
        desks_.emplace(name, std::make_unique<Desk>(maker_()));
}

} // namespace rulemesh
