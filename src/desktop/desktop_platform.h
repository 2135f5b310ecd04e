#pragma once

#include <functional>
#include <memory>

#include <QString>
#include <QWidget>

#include "platform/platform.h"
#include "platform/text_files.h"

namespace rulemesh {

/// The code page of the texts of other programs here: UTF-8 where the system's locale is.
[[nodiscard]] CodePage SystemCodePage();

/// What a control asks of the desktop, answered by real boxes, forms, files and programs.
class DesktopPlatform : public Platform {
public:
    /// Boxes and forms stand over the window of `owner`, which must outlive the platform.
    explicit DesktopPlatform(QWidget& owner);

    /// With temporary text files of the host's own.
    DesktopPlatform(QWidget& owner, std::unique_ptr<TextFiles> files);

    /// Run before the user is asked or made to wait, so that the windows show how things stand.
    std::function<void()> BeforeWaiting;

    /// The title of a box that has none of its own: the name of the application, unless one is given.
    QString DefaultTitle;

    MessageButton ShowMessage(const Message& message) override;
    std::optional<Text> AskForText(const Text& StrPrompt, const Text& StrTitle) override;
    void ShowModal(ModalForm& form) override;
    int RunEditor(const Text& StrEditor, const Text& StrPath) override;
    [[nodiscard]] Text FallbackEditor() const override;
    [[nodiscard]] TextFiles& Files() override { return *files_; }
    void RunPendingEvents() override;

private:
    void PrepareToWait();
    [[nodiscard]] QString TitleOf(const Text& StrTitle) const;

    QWidget& owner_;
    std::unique_ptr<TextFiles> files_;
};

} // namespace rulemesh
