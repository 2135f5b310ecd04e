#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "platform/memory_files.h"
#include "platform/platform.h"

namespace rulemesh {

/// A desktop without a user. What it is asked to show is kept, in order; a question takes the next answer laid ready
/// for its kind, and the default without one: a box's first button, Cancel, an editor that changes nothing.
class RecordingPlatform : public Platform {
public:
    RecordingPlatform() = default;

    /// With temporary files of the test's own, which must outlive the platform.
    explicit RecordingPlatform(TextFiles& files) : files_(files) {}

    std::vector<Message> Messages;
    std::vector<Text> Prompts;  // the prompt, a bar and the title
    std::vector<Text> Forms;    // the caption of each form as it came up
    std::vector<Text> Commands; // of the editor, with the path

    std::deque<MessageButton> Buttons;                       // to boxes of several buttons
    std::deque<std::optional<Text>> Inputs;                  // to prompts
    std::deque<std::function<void(ModalForm&)>> FormActions; // what the user does to a form before it is gone
    std::function<int(const Text& StrPath)> Editor;          // gives the exit status
    std::function<void()> PendingEvents;                     // what waits for its turn, run once

    MemoryFiles InMemory;

    MessageButton ShowMessage(const Message& message) override
    {
        Messages.push_back(message);
        return message.Buttons.size() > 1 ? Next(Buttons).value_or(message.Buttons.front()) : message.Buttons.front();
    }
    std::optional<Text> AskForText(const Text& StrPrompt, const Text& StrTitle) override
    {
        Prompts.push_back(StrPrompt + u"|" + StrTitle);
        return Next(Inputs).value_or(std::nullopt);
    }
    void ShowModal(ModalForm& form) override
    {
        Forms.push_back(form.Caption());
        if (const auto action = Next(FormActions))
            (*action)(form);
        form.Unload();
    }
    int RunEditor(const Text& StrEditor, const Text& StrPath) override
    {
        Commands.push_back(StrEditor + StrPath);
        return Editor ? Editor(StrPath) : 0;
    }
    [[nodiscard]] Text FallbackEditor() const override { return u"notepad "; }
    [[nodiscard]] TextFiles& Files() override { return files_; }
    void RunPendingEvents() override { Run(std::exchange(PendingEvents, nullptr)); }

private:
    template <typename Answer> static std::optional<Answer> Next(std::deque<Answer>& answers)
    {
        if (answers.empty())
            return std::nullopt;
        Answer answer = std::move(answers.front());
        answers.pop_front();
        return answer;
    }

    TextFiles& files_ = InMemory;
};

/// The texts of messages, to be compared as a list.
inline std::vector<Text> TextsOf(const std::vector<Message>& messages)
{
    std::vector<Text> texts;
    for (const Message& message : messages)
        texts.push_back(message.Text);
    return texts;
}

} // namespace rulemesh
