#include "drive/session.h"

#include <functional>
#include <map>

#include "base/failure.h"
#include "drive/host_requests.h"
#include "drive/look_requests.h"
#include "drive/user_requests.h"

namespace rulemesh {

// The control, and the desktop and host that it talks to.
class Session::Desk {
public:
    Desk() { Create(); }

    void Create()
    {
        control_.reset();
        control_ = std::make_unique<ctlRulemesh>(platform_, platform_);
    }

    [[nodiscard]] Json Do(const Request& request);

    [[nodiscard]] Json TakeHappened() { return platform_.TakeHappened(); }

private:
    ScriptedPlatform platform_{
        [this](const Json& property) { static_cast<void>(LetProperty(*control_, Request(property))); }};
    std::unique_ptr<ctlRulemesh> control_;
};

Json Session::Desk::Do(const Request& request)
{
    using Verb = std::function<Json(ctlRulemesh&, const Request&)>;
    static const std::map<std::string, Verb> verbs = {
        {"let", LetProperty}, {"get", GetProperty}, {"call", CallMember}, {"resize", ResizeControl},
        {"set", SetVisible},  {"click", Click},     {"tab", ClickTab},    {"focus", MoveFocus},
        {"leave", Leave},     {"type", Type},       {"key", PressKey},    {"press", PressCharacter},
        {"choose", Choose},   {"row", ClickRow},    {"tick", Tick},       {"header", ClickHeader},
        {"cell", ClickCell},  {"scroll", Scroll},   {"read", ReadView},   {"focused", ReadFocused},
        {"state", ReadState}, {"xml", ReadXml},
    };
    const std::string word = request.Word("do");
    if (word == "create") {
        Create();
        return nullptr;
    }
    if (word == "reply")
        return LayReplyReady(platform_, request);
    const auto verb = verbs.find(word);
    if (verb == verbs.end())
        throw Refusal("there is no verb \"" + word + "\"");
    return verb->second(*control_, request);
}

namespace {

// Verbs whose answer has a value even when it is null.
bool AlwaysHasValue(const Json& request) { return request.value("do", Json()) == "focused"; }

} // namespace

Session::Session() : desk_(std::make_unique<Desk>()) {}

Session::~Session() = default;

std::string Session::Answer(const std::string& line)
{
    Json answer = {{"ok", false}};
    Json outcome = Json::object();
    try {
        const Json request = ParseLine(line);
        if (!request.is_object())
            throw Refusal("the line is not a JSON object");
        Json value = desk_->Do(Request(request));
        answer["ok"] = true;
        if (!value.is_null() || AlwaysHasValue(request))
            answer["value"] = std::move(value);
    } catch (const Refusal& refusal) {
        outcome["refused"] = refusal.what();
    } catch (const Failure& failure) {
        outcome["failure"] = {{"number", failure.Number()}, {"text", JsonOf(failure.Description())}};
    }
    answer["happened"] = desk_->TakeHappened();
    answer.update(outcome);
    return answer.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace rulemesh
