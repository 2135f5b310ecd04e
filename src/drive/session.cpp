#include "drive/session.h"

#include <algorithm>
#include <functional>
#include <map>
#include <new>

#include "base/failure.h"
#include "base/utf8.h"
#include "drive/host_requests.h"
#include "drive/look_requests.h"
#include "drive/user_requests.h"

namespace rulemesh {

// The control, and the desktop and host that it talks to.
class Session::Desk {
public:
    explicit Desk(std::unique_ptr<Stage> stage) : stage_(std::move(stage)) { stage_->Create(platform_, platform_); }

    [[nodiscard]] Json Do(const Request& request);

    [[nodiscard]] Json TakeHappened() { return platform_.TakeHappened(); }
    void Settle() { stage_->Settle(); }
    [[nodiscard]] ctlRulemesh& Control() { return stage_->Control(); }

private:
    std::unique_ptr<Stage> stage_;
    ScriptedPlatform platform_{stage_->Hands(),
                               [this](const Json& reply) { ActInEvent(stage_->Control(), Request(reply)); }};
};

Json Session::Desk::Do(const Request& request)
{
    using ControlVerb = std::function<Json(ctlRulemesh&, const Request&)>;
    using UserVerb = std::function<Json(Stage&, const Request&)>;
    static const std::map<std::string, ControlVerb> controlVerbs = {
        {"let", LetProperty},      {"get", GetProperty}, {"call", CallMember},
        {"resize", ResizeControl}, {"set", SetVisible},  {"read", ReadView},
        {"focused", ReadFocused},  {"state", ReadState}, {"xml", ReadXml},
    };
    static const std::map<std::string, UserVerb> userVerbs = {
        {"click", Click},        {"tab", ClickTab},         {"focus", MoveFocus}, {"leave", Leave},  {"type", Type},
        {"key", PressKey},       {"press", PressCharacter}, {"choose", Choose},   {"row", ClickRow}, {"tick", Tick},
        {"header", ClickHeader}, {"cell", ClickCell},       {"scroll", Scroll},
    };
    const std::string word = request.Word("do");
    if (word == "create") {
        stage_->Create(platform_, platform_);
        return nullptr;
    }
    if (word == "reply")
        return LayReplyReady(platform_, request);
    if (const auto verb = controlVerbs.find(word); verb != controlVerbs.end())
        return verb->second(stage_->Control(), request);
    if (const auto verb = userVerbs.find(word); verb != userVerbs.end())
        return verb->second(*stage_, request);
    throw Refusal("there is no verb \"" + word + "\"");
}

namespace {

// A name that the request brought may hold line ends.
std::string OneLine(std::string reason)
{
    std::replace_if(
        reason.begin(), reason.end(), [](unsigned char character) { return character < ' '; }, ' ');
    return reason;
}

bool ShowsTheObject(const Json& request)
{
    return request.value("do", Json()) == "call" && request.value("name", Json()) == "ShowControl";
}

Json Described(const Failure& failure)
{
    return {{"number", failure.Number()}, {"text", JsonOf(failure.Description())}};
}

Json OutOfMemory() { return Described(Failure(FailureCode::OutOfMemory)); }

std::string LineOf(const Json& answer) { return answer.dump(-1, ' ', false, Json::error_handler_t::replace); }

// Verbs whose answer has a value even when it is null.
bool AlwaysHasValue(const Json& request) { return request.value("do", Json()) == "focused"; }

} // namespace

Session::Session() : Session(std::make_unique<WindowlessStage>()) {}

Session::Session(std::unique_ptr<Stage> stage) : desk_(std::make_unique<Desk>(std::move(stage))) {}

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
        if (ShowsTheObject(request))
            WarnOfForeignRoot();
        if (!value.is_null() || AlwaysHasValue(request))
            answer["value"] = std::move(value);
        answer["ok"] = true;
    } catch (const Refusal& refusal) {
        outcome["refused"] = OneLine(refusal.what());
    } catch (const Failure& failure) {
        outcome["failure"] = Described(failure);
    } catch (const std::bad_alloc&) {
        outcome["failure"] = OutOfMemory();
    }
    desk_->Settle();
    answer["happened"] = desk_->TakeHappened();
    answer.update(outcome);
    try {
        return LineOf(answer);
    } catch (const std::bad_alloc&) {
        answer.erase("value"); // which was too large to be written down
        answer["ok"] = false;
        answer["failure"] = OutOfMemory();
        return LineOf(answer);
    }
}

void Session::WarnOfForeignRoot() const
{
    const ctlRulemesh& control = desk_->Control();
    if (const Text root = control.ForeignRoot(); !root.empty())
        OnWarning("nothing is shown, since the object's root is \"" + ToUtf8(root) + "\" and TargetTable is \"" +
                  ToUtf8(control.State().StrTargetTable) + "\"");
}

} // namespace rulemesh
