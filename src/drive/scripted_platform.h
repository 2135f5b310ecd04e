#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>

#include "drive/json_text.h"
#include "drive/user_hands.h"
#include "platform/memory_files.h"
#include "platform/platform.h"
#include "script/control_events.h"

namespace rulemesh {

/// The temporary files in memory; each text that the control writes is reported.
class ReportedFiles : public MemoryFiles {
public:
    explicit ReportedFiles(std::function<void(const Text& StrFile, const Text& StrText)> report)
        : report_(std::move(report))
    {
    }

    void Write(TextView StrPath, std::string_view bytes) override;

private:
    std::function<void(const Text& StrFile, const Text& StrText)> report_;
};

/// The desktop and the host of a control that has neither: questions are answered from replies laid ready, and all that
/// reaches the host or the user is kept in a list. Replies are objects as the requests bring them.
class ScriptedPlatform : public Platform, public ControlEvents {
public:
    /// `act` does what a reply to an event says, as a host does from inside of it.
    /// The hands work the forms that come up.
    ScriptedPlatform(UserHands& hands, std::function<void(const Json& reply)> act) : hands_(hands), act_(std::move(act))
    {
    }

    /// What happened since the last call, in order.
    [[nodiscard]] Json TakeHappened() { return std::exchange(happened_, Json::array()); }

    void LayReady(const std::string& kind, const Json& reply);

    MessageButton ShowMessage(const Message& message) override;
    std::optional<Text> AskForText(const Text& StrPrompt, const Text& StrTitle) override;
    void ShowModal(ModalForm& form) override;
    int RunEditor(const Text& StrEditor, const Text& StrPath) override;
    [[nodiscard]] Text FallbackEditor() const override { return u"notepad "; }
    [[nodiscard]] TextFiles& Files() override { return files_; }
    void RunPendingEvents() override {}

    void ShowSourceTablesPopUp(const Text& i_SourceTables) override;
    void ShowConditionBuilderPopUp(const Text& i_ConditionString, const Text& i_SourceTables) override;
    void ShowQueryBuilderPopUp(const Text& i_QueryString, const Text& i_SourceTables) override;
    void ShowFunctionBuilderPopUp(const Text& StrCondition, const Text& StrSourceTables) override;
    void ShowFunctionalTextPopUp(const Text& DocType, std::int32_t LngTextNumber, const Text& StrKey1,
                                 const Text& StrKey2) override;
    void SaveDoneDisabled() override { RaiseEvent("SaveDoneDisabled", Json::object()); }
    void SaveDoneEnabled() override { RaiseEvent("SaveDoneEnabled", Json::object()); }

private:
    void Report(const char* kind, Json entry) { happened_.push_back({{kind, std::move(entry)}}); }
    friend class QuietFiles;
    [[nodiscard]] Json NextReply(const std::string& kind);
    void RaiseEvent(const std::string& name, Json args);

    UserHands& hands_;
    std::function<void(const Json& reply)> act_;
    Json happened_ = Json::array();
    bool tellsFiles_ = true;
    std::map<std::string, std::deque<Json>> replies_; // by kind of question; those to events by "event " and the name
    ReportedFiles files_{[this](const Text& StrFile, const Text& StrText) {
        if (tellsFiles_)
            Report("wrote", {{"file", JsonOf(StrFile)}, {"text", JsonOf(StrText)}});
    }};
};

/// While it lives, files that the control writes are not told.
class QuietFiles {
public:
    explicit QuietFiles(ScriptedPlatform& platform) noexcept : platform_(platform) { platform_.tellsFiles_ = false; }
    QuietFiles(const QuietFiles&) = delete;
    QuietFiles& operator=(const QuietFiles&) = delete;
    ~QuietFiles() { platform_.tellsFiles_ = true; }

private:
    ScriptedPlatform& platform_;
};

} // namespace rulemesh
