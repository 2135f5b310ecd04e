#include "drive/scripted_platform.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/failure.h"
#include "views/button.h"
#include "views/combo_box.h"
#include "views/text_box.h"

namespace rulemesh {

namespace {

constexpr std::array<std::pair<MessageButton, const char*>, 4> Buttons = {{{MessageButton::Ok, "OK"},
                                                                           {MessageButton::Cancel, "Cancel"},
                                                                           {MessageButton::Yes, "Yes"},
                                                                           {MessageButton::No, "No"}}};

const char* NameOf(MessageButton button)
{
    return std::find_if(Buttons.begin(), Buttons.end(), [&](const auto& pair) { return pair.first == button; })->second;
}

const char* NameOf(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Critical:
        return "critical";
    case MessageIcon::Exclamation:
        return "exclamation";
    case MessageIcon::Question:
        return "question";
    case MessageIcon::Notice:
        return "notice";
    case MessageIcon::None:
        break;
    }
    return "none";
}

// What a program that knows only the code page saves of a text.
std::string Saved(const TextFiles& files, Text text)
{
    for (char16_t& unit : text) {
        if (!CanEncode(files.Page(), TextView(&unit, 1)))
            unit = u'?';
    }
    return Encode(files.Page(), text);
}

// The view of a form that a step names, if the step can be taken there.
template <typename Kind> Kind* Reachable(ModalForm& form, const Json& step)
{
    auto* view = dynamic_cast<Kind*>(form.Tree.Find(TextOf(step.value("view", Json("")))));
    return view != nullptr && view->CanBeReached() ? view : nullptr;
}

void TakeStep(UserHands& hands, ModalForm& form, const Json& step)
{
    const Json verb = step.value("do", Json());
    if (verb == "type") {
        if (auto* box = Reachable<TextBox>(form, step))
            hands.Type(*box, TextOf(step.at("text")));
    } else if (verb == "choose") {
        auto* combo = Reachable<ComboBox>(form, step);
        const auto index = step.at("index").get<std::int64_t>();
        if (combo != nullptr && index >= 0 && index < static_cast<std::int64_t>(combo->Entries().size()))
            hands.Choose(*combo, static_cast<int>(index));
    } else if (verb == "click") {
        if (auto* button = Reachable<Button>(form, step))
            hands.Click(*button);
    } else if (verb == "close") {
        hands.CloseForm(form);
    }
}

// A form that the hands have before them; they let it go however it ends.
class OpenForm {
public:
    OpenForm(UserHands& hands, ModalForm& form) : hands_(hands), form_(form) { hands_.FormOpens(form_); }
    OpenForm(const OpenForm&) = delete;
    OpenForm& operator=(const OpenForm&) = delete;
    ~OpenForm() { hands_.FormClosed(form_); }

private:
    UserHands& hands_;
    ModalForm& form_;
};

Json Described(const ModalForm& form)
{
    const ModalForm::Asked& asked = form.Asks();
    Json entry = {{"mode", JsonOf(form.Mode())}, {"caption", JsonOf(form.Caption())}};
    if (asked.Box != nullptr) {
        entry["text"] = JsonOf(asked.Box->Text());
        entry["locked"] = asked.Box->Locked();
        entry["ok_enabled"] = asked.Accept != nullptr && asked.Accept->Enabled();
    }
    if (asked.Choice != nullptr) {
        Json entries = Json::array();
        for (const ComboBox::Entry& choice : asked.Choice->Entries())
            entries.push_back(JsonOf(choice.Text));
        entry["entries"] = std::move(entries);
        entry["index"] = asked.Choice->ListIndex();
    }
    return entry;
}

// A button that can't be pressed leaves the frame.
void GiveUp(UserHands& hands, ModalForm& form)
{
    Button* const cancel = form.Asks().Cancel;
    if (cancel != nullptr && cancel->CanBeReached())
        hands.Click(*cancel);
    if (form.IsOpen())
        hands.CloseForm(form);
}

} // namespace

void ReportedFiles::Write(TextView StrPath, std::string_view bytes)
{
    MemoryFiles::Write(StrPath, bytes);
    report_(Text(StrPath.substr(Folder().size())), Decode(Page(), bytes));
}

void ScriptedPlatform::LayReady(const std::string& kind, const Json& reply)
{
    if (kind == "file")
        files_.FailNext();
    else if (kind == "event")
        replies_["event " + reply.at("name").get<std::string>()].push_back(reply);
    else
        replies_[kind].push_back(reply);
}

Json ScriptedPlatform::NextReply(const std::string& kind)
{
    std::deque<Json>& queue = replies_[kind];
    if (queue.empty())
        return nullptr;
    Json reply = std::move(queue.front());
    queue.pop_front();
    return reply;
}

MessageButton ScriptedPlatform::ShowMessage(const Message& message)
{
    MessageButton answer = message.Buttons.front();
    if (message.Buttons.size() > 1) {
        const Json reply = NextReply("message");
        for (const MessageButton button : message.Buttons) {
            if (reply.is_object() && reply.at("button") == NameOf(button))
                answer = button;
        }
    }
    Json buttons = Json::array();
    for (const MessageButton button : message.Buttons)
        buttons.push_back(NameOf(button));
    Report("message", {{"text", JsonOf(message.Text)},
                       {"title", JsonOf(message.Title)},
                       {"buttons", std::move(buttons)},
                       {"icon", NameOf(message.Icon)},
                       {"answer", NameOf(answer)}});
    return answer;
}

std::optional<Text> ScriptedPlatform::AskForText(const Text& StrPrompt, const Text& StrTitle)
{
    const Json reply = NextReply("input");
    std::optional<Text> answer;
    if (reply.is_object() && reply.at("text").is_string())
        answer = TextOf(reply.at("text"));
    Report("input",
           {{"prompt", JsonOf(StrPrompt)}, {"title", JsonOf(StrTitle)}, {"answer", JsonOf(answer.value_or(Text()))}});
    return answer;
}

void ScriptedPlatform::ShowModal(ModalForm& form)
{
    Report("form", Described(form));
    const Json reply = NextReply("form");
    const Json steps = reply.is_object() ? reply.at("steps") : Json::array();
    const OpenForm open(hands_, form);
    for (auto step = steps.begin(); step != steps.end() && form.IsOpen(); ++step)
        TakeStep(hands_, form, *step);
    if (form.IsOpen())
        GiveUp(hands_, form);
}

int ScriptedPlatform::RunEditor(const Text& StrEditor, const Text& StrPath)
{
    Report("editor", {{"command", JsonOf(StrEditor + StrPath)}});
    const Json reply = NextReply("editor");
    if (!reply.is_object())
        return 0;
    if (reply.value("fail", false))
        throw Failure(FailureCode::FileNotFound, u"Unable to start " + Quoted(StrEditor));
    if (reply.contains("text"))
        files_.Put(StrPath, Saved(files_, TextOf(reply.at("text"))));
    return reply.value("status", 0);
}

void ScriptedPlatform::RaiseEvent(const std::string& name, Json args)
{
    Report("event", {{"name", name}, {"args", std::move(args)}});
    const Json reply = NextReply("event " + name);
    if (reply.is_object())
        act_(reply);
}

void ScriptedPlatform::ShowSourceTablesPopUp(const Text& i_SourceTables)
{
    RaiseEvent("ShowSourceTablesPopUp", {{"i_SourceTables", JsonOf(i_SourceTables)}});
}

void ScriptedPlatform::ShowConditionBuilderPopUp(const Text& i_ConditionString, const Text& i_SourceTables)
{
    RaiseEvent("ShowConditionBuilderPopUp",
               {{"i_ConditionString", JsonOf(i_ConditionString)}, {"i_SourceTables", JsonOf(i_SourceTables)}});
}

void ScriptedPlatform::ShowQueryBuilderPopUp(const Text& i_QueryString, const Text& i_SourceTables)
{
    RaiseEvent("ShowQueryBuilderPopUp",
               {{"i_QueryString", JsonOf(i_QueryString)}, {"i_SourceTables", JsonOf(i_SourceTables)}});
}

void ScriptedPlatform::ShowFunctionBuilderPopUp(const Text& StrCondition, const Text& StrSourceTables)
{
    RaiseEvent("ShowFunctionBuilderPopUp",
               {{"StrCondition", JsonOf(StrCondition)}, {"StrSourceTables", JsonOf(StrSourceTables)}});
}

void ScriptedPlatform::ShowFunctionalTextPopUp(const Text& DocType, std::int32_t LngTextNumber, const Text& StrKey1,
                                               const Text& StrKey2)
{
    RaiseEvent("ShowFunctionalTextPopUp", {{"DocType", JsonOf(DocType)},
                                           {"LngTextNumber", LngTextNumber},
                                           {"StrKey1", JsonOf(StrKey1)},
                                           {"StrKey2", JsonOf(StrKey2)}});
}

} // namespace rulemesh
