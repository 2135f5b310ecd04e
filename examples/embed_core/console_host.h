#pragma once

#include <cstdint>
#include <iostream>
#include <optional>

#include "base/failure.h"
#include "base/utf8.h"
#include "platform/memory_files.h"
#include "platform/platform.h"
#include "script/control_events.h"

/// The desktop of a program without windows: boxes are printed and answered by their first button.
class ConsolePlatform : public rulemesh::Platform {
public:
    rulemesh::MessageButton ShowMessage(const rulemesh::Message& message) override
    {
        std::cout << "box: " << rulemesh::ToUtf8(message.Text) << '\n';
        return message.Buttons.front();
    }
    std::optional<rulemesh::Text> AskForText(const rulemesh::Text& /*StrPrompt*/,
                                             const rulemesh::Text& /*StrTitle*/) override
    {
        return std::nullopt; // Cancel
    }
    void ShowModal(rulemesh::ModalForm& form) override { form.UserCloses(); }
    int RunEditor(const rulemesh::Text& /*StrEditor*/, const rulemesh::Text& /*StrPath*/) override
    {
        throw rulemesh::Failure(rulemesh::FailureCode::FileNotFound); // there is none to start
    }
    rulemesh::Text FallbackEditor() const override { return {}; }
    rulemesh::TextFiles& Files() override { return files_; }
    void RunPendingEvents() override {}

private:
    rulemesh::MemoryFiles files_;
};

/// A host that has no builders, and knows when it may save.
class ConsoleEvents : public rulemesh::ControlEvents {
public:
    bool MaySave = true;

    void ShowSourceTablesPopUp(const rulemesh::Text& /*i_SourceTables*/) override {}
    void ShowConditionBuilderPopUp(const rulemesh::Text& /*i_ConditionString*/,
                                   const rulemesh::Text& /*i_SourceTables*/) override
    {
    }
    void ShowQueryBuilderPopUp(const rulemesh::Text& /*i_QueryString*/,
                               const rulemesh::Text& /*i_SourceTables*/) override
    {
    }
    void ShowFunctionBuilderPopUp(const rulemesh::Text& /*StrCondition*/,
                                  const rulemesh::Text& /*StrSourceTables*/) override
    {
    }
    void ShowFunctionalTextPopUp(const rulemesh::Text& /*DocType*/, std::int32_t /*LngTextNumber*/,
                                 const rulemesh::Text& /*StrKey1*/, const rulemesh::Text& /*StrKey2*/) override
    {
    }
    void SaveDoneDisabled() override { MaySave = false; }
    void SaveDoneEnabled() override { MaySave = true; }
};
