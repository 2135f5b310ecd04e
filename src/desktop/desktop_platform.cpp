#include "desktop/desktop_platform.h"

#include <exception>
#include <thread>

#include <QApplication>
#include <QEventLoop>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QStringConverter>

#include "desktop/box_titles.h"
#include "desktop/form_dialog.h"
#include "desktop/qt_text.h"
#include "platform/private_folder_files.h"
#include "platform/process_launcher.h"

namespace rulemesh {

namespace {

QMessageBox::StandardButton ButtonOf(MessageButton button)
{
    switch (button) {
    case MessageButton::Ok:
        return QMessageBox::Ok;
    case MessageButton::Cancel:
        return QMessageBox::Cancel;
    case MessageButton::Yes:
        return QMessageBox::Yes;
    case MessageButton::No:
        break;
    }
    return QMessageBox::No;
}

QMessageBox::Icon IconOf(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Notice:
        return QMessageBox::Information;
    case MessageIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

// Eats what the user does to the windows while somebody waits, so that it does not come in afterwards.
class InputBlocker : public QObject {
public:
    InputBlocker()
    {
        qApp->installEventFilter(this);
        QApplication::setOverrideCursor(Qt::BusyCursor);
    }
    InputBlocker(const InputBlocker&) = delete;
    InputBlocker& operator=(const InputBlocker&) = delete;
    ~InputBlocker() override { QApplication::restoreOverrideCursor(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::DragEnter:
        case QEvent::Drop:
            return true;
        case QEvent::Close:
            event->ignore();
            return true;
        default:
            return QObject::eventFilter(watched, event);
        }
    }
};

// The layout of a box leaves room for its text alone.
void WidenForTitle(QDialog& box)
{
    static_cast<void>(box.sizeHint());                                       // makes the layout
    auto* width = new QSpacerItem(WidthForTitle(box, box.windowTitle()), 0); // the layout's own
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()); grid != nullptr)
        grid->addItem(width, grid->rowCount(), 0, 1, grid->columnCount());
    else
        box.layout()->addItem(width);
}

} // namespace

CodePage SystemCodePage()
{
    const bool utf8 = QStringConverter::nameForEncoding(QStringConverter::System) == QByteArrayView("UTF-8") ||
                      qgetenv("LANG").toUpper().contains("UTF-8");
    return utf8 ? CodePage::Utf8 : CodePage::Windows1252;
}

DesktopPlatform::DesktopPlatform(QWidget& owner)
    : DesktopPlatform(owner, std::make_unique<PrivateFolderFiles>(SystemCodePage()))
{
}

DesktopPlatform::DesktopPlatform(QWidget& owner, std::unique_ptr<TextFiles> files)
    : owner_(owner), files_(std::move(files))
{
}

void DesktopPlatform::PrepareToWait()
{
    if (BeforeWaiting)
        BeforeWaiting();
}

QString DesktopPlatform::TitleOf(const Text& StrTitle) const
{
    if (!StrTitle.empty())
        return ToQt(StrTitle);
    return DefaultTitle.isEmpty() ? QApplication::applicationDisplayName() : DefaultTitle;
}

MessageButton DesktopPlatform::ShowMessage(const Message& message)
{
    PrepareToWait();
    QMessageBox box(owner_.window());
    box.setIcon(IconOf(message.Icon));
    box.setWindowTitle(TitleOf(message.Title));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(message.Text));
    for (const MessageButton button : message.Buttons)
        box.addButton(ButtonOf(button));
    box.setDefaultButton(ButtonOf(message.Buttons.front()));
    box.setEscapeButton(ButtonOf(message.Buttons.back()));
    WidenForTitle(box);
    box.exec();
    const QMessageBox::StandardButton pressed = box.standardButton(box.clickedButton());
    for (const MessageButton button : message.Buttons) {
        if (ButtonOf(button) == pressed)
            return button;
    }
    return message.Buttons.back();
}

std::optional<Text> DesktopPlatform::AskForText(const Text& StrPrompt, const Text& StrTitle)
{
    PrepareToWait();
    QInputDialog box(owner_.window());
    box.setWindowTitle(TitleOf(StrTitle));
    box.setLabelText(ToQt(StrPrompt).replace(QLatin1Char('&'), QLatin1String("&&"))); // no access key
    box.findChild<QLabel*>()->setTextFormat(Qt::PlainText);
    WidenForTitle(box);
    const bool accepted = box.exec() == QDialog::Accepted;
    return accepted ? std::optional(FromQt(box.textValue())) : std::nullopt;
}

void DesktopPlatform::ShowModal(ModalForm& form)
{
    PrepareToWait();
    FormDialog dialog(form, owner_.window());
    dialog.exec();
}

int DesktopPlatform::RunEditor(const Text& StrEditor, const Text& StrPath)
{
    PrepareToWait();
    const InputBlocker blocker;
    QEventLoop loop;
    int status = 0;
    std::exception_ptr raised;
    std::thread editor([&] {
        try {
            status = RunAndWait(StrEditor, StrPath);
        } catch (const Failure&) {
            raised = std::current_exception();
        }
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
    editor.join();
    if (raised)
        std::rethrow_exception(raised);
    return status;
}

Text DesktopPlatform::FallbackEditor() const { return rulemesh::FallbackEditor(); }

void DesktopPlatform::RunPendingEvents()
{
    PrepareToWait();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace rulemesh
