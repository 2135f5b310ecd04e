#pragma once

#include <optional>
#include <vector>

#include "base/text.h"
#include "views/modal_form.h"

namespace rulemesh {

class TextFiles;

enum class MessageButton { Ok, Cancel, Yes, No };
enum class MessageIcon { None, Critical, Exclamation, Question, Notice };

/// A question or statement in front of the user. The first button is the default.
struct Message {
    rulemesh::Text Text;
    rulemesh::Text Title = {}; // "" for the platform's default title
    std::vector<MessageButton> Buttons = {MessageButton::Ok};
    MessageIcon Icon = MessageIcon::None;
};

/// What the control asks of the desktop that it runs on. Every member comes back when it is done; none lets the user
/// work on the control meanwhile.
class Platform {
public:
    virtual ~Platform() = default;

    /// Shows a message box and waits for the button.
    virtual MessageButton ShowMessage(const Message& message) = 0;

    /// Asks for one line of text, empty at first; nothing after Cancel.
    virtual std::optional<Text> AskForText(const Text& StrPrompt, const Text& StrTitle) = 0;

    /// Shows a form and waits until it is closed.
    virtual void ShowModal(ModalForm& form) = 0;

    /// Runs the editor's command with the file's path as its last argument and waits until it has ended; the result is
    /// its exit status. Raises a Failure when it can't be started.
    virtual int RunEditor(const Text& StrEditor, const Text& StrPath) = 0;

    /// The editor of a host that names none, with a blank behind it.
    [[nodiscard]] virtual Text FallbackEditor() const = 0;

    /// The temporary text files.
    [[nodiscard]] virtual TextFiles& Files() = 0;

    /// Lets painting and timers of the host run, without user input.
    virtual void RunPendingEvents() = 0;
};

} // namespace rulemesh
