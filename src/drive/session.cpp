#include "drive/session.h"

#include <algorithm>
#include <new>

#include "base/failure.h"
#include "base/utf8.h"
#include "drive/request_id.h"
#include "drive/verbs.h"

namespace rulemesh {

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

Session::Session() : Session([] { return std::make_unique<WindowlessStage>(); }) {}

Session::Session(StageMaker maker) : desks_(std::make_unique<Desks>(std::move(maker))) {}

Session::~Session() = default;

std::string Session::Answer(const std::string& line)
{
    Json request;
    Json answer = Json::object();
    Json trouble = Json::object();
    try {
        request = ParseLine(line);
        if (!request.is_object())
            throw Refusal("the line is not a JSON object");
        if (request.contains("id"))
            answer["id"] = IdForAnswer(request.at("id"));
        answer["ok"] = false;
        Json value = Do(*desks_, Request(request));
        if (ShowsTheObject(request))
            WarnOfForeignRoot(desks_->Of(Request(request)).Control());
        if (!value.is_null() || AlwaysHasValue(request))
            answer["value"] = std::move(value);
    } catch (const Refusal& refusal) {
        trouble["refused"] = OneLine(refusal.what());
    } catch (const Failure& failure) {
        trouble["failure"] = Described(failure);
    } catch (const std::bad_alloc&) {
        trouble["failure"] = OutOfMemory();
    }
    done_ = trouble.empty();
    answer["ok"] = done_;
    Desk* const desk = desks_->Find(Request(request));
    if (desk != nullptr)
        desk->Where().Settle();
    answer["happened"] = desk != nullptr ? desk->Platform().TakeHappened() : Json::array();
    answer.update(trouble);
    try {
        return LineOf(answer);
    } catch (const std::bad_alloc&) {
        done_ = false;
        answer.erase("value"); // which was too large to be written down
        answer["ok"] = false;
        answer["failure"] = OutOfMemory();
        return LineOf(answer);
    }
}

void Session::WarnOfForeignRoot(const ctlRulemesh& control) const
{
    if (const Text root = control.ForeignRoot(); !root.empty())
        OnWarning("nothing is shown, since the object's root is \"" + ToUtf8(root) + "\" and TargetTable is \"" +
                  ToUtf8(control.State().StrTargetTable) + "\"");
}

} // namespace rulemesh
