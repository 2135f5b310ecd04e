#pragma once

#include <optional>

#include "platform/memory_files.h"
#include "platform/platform.h"
#include "script/control_events.h"

namespace rulemesh {

/// A desktop and a host that cost nothing: every box takes its default button, every form is cancelled, files live in
/// memory, and events are heard by nobody.
class SilentDesk : public Platform, public ControlEvents {
public:
    MessageButton ShowMessage(const Message& message) override { return message.Buttons.front(); }
    std::optional<Text> AskForText(const Text& /*StrPrompt*/, const Text& /*StrTitle*/) override { return {}; }
    void ShowModal(ModalForm& form) override { form.UserCloses(); }
    int RunEditor(const Text& /*StrEditor*/, const Text& /*StrPath*/) override { return 0; }
    [[nodiscard]] Text FallbackEditor() const override { return u"notepad "; }
    [[nodiscard]] TextFiles& Files() override { return files_; }
    void RunPendingEvents() override {}

    void ShowSourceTablesPopUp(const Text& /*i_SourceTables*/) override {}
    void ShowConditionBuilderPopUp(const Text& /*i_ConditionString*/, const Text& /*i_SourceTables*/) override {}
    void ShowQueryBuilderPopUp(const Text& /*i_QueryString*/, const Text& /*i_SourceTables*/) override {}
    void ShowFunctionBuilderPopUp(const Text& /*StrCondition*/, const Text& /*StrSourceTables*/) override {}
    void ShowFunctionalTextPopUp(const Text& /*DocType*/, std::int32_t /*LngTextNumber*/, const Text& /*StrKey1*/,
                                 const Text& /*StrKey2*/) override
    {
    }
    void SaveDoneDisabled() override {}
    void SaveDoneEnabled() override {}

private:
    MemoryFiles files_;
};

} // namespace rulemesh
