#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QTimer>

#include "desktop/rulemesh_widget.h"
#include "host/settings/settings.h"
#include "host/window/main_window.h"
#include "platform/temporary_folder.h"
#include "support/mirror_watch.h"

namespace rulemesh {

/// The one application of a test program, without a screen.
inline QApplication& TestApplication()
{
    static int argc = 1;
    static char name[] = "host_test";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Lives until the process ends: it must not outlive what it stands on, which statics can't promise.
    static auto* application = new QApplication(argc, argv);
    return *application;
}

/// Lets events run until something holds; false when it doesn't within some seconds.
inline bool WaitFor(const std::function<bool()>& holds)
{
    QElapsedTimer clock;
    for (clock.start(); clock.elapsed() < 10000;) {
        if (holds())
            return true;
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return false;
}

/// Answers the next modal box or form, and remembers that there was one.
class ModalAnswer {
public:
    explicit ModalAnswer(std::function<void(QWidget&)> answer) : answer_(std::move(answer))
    {
        QObject::connect(&clock_, &QTimer::timeout, &clock_, [this] {
            if (QWidget* modal = QApplication::activeModalWidget(); modal != nullptr && !asked_) {
                asked_ = true;
                answer_(*modal);
            }
        });
        clock_.start(5);
    }

    [[nodiscard]] bool WasAsked() const noexcept { return asked_; }

private:
    std::function<void(QWidget&)> answer_;
    QTimer clock_;
    bool asked_ = false;
};

inline std::function<void(QWidget&)> Press(QMessageBox::StandardButton button)
{
    return [button](QWidget& modal) { dynamic_cast<QMessageBox&>(modal).button(button)->click(); };
}

inline const std::string SmallObject =
    "<partn101><SRCTBL>custs001</SRCTBL><PREC TEXT=\"\">migrate custs001 | customers\n</PREC>"
    "<QUERY ST=\"custs001\">dump 1 | all\n</QUERY>"
    "<SRCTAB><CUSTS001><CODE FNo=\"1\"/><NAME FNo=\"2\"/></CUSTS001><ORDRS001><ID FNo=\"1\"/></ORDRS001></SRCTAB>"
    "<TARTAB><PARTN101><CODE No=\"1\" FNo=\"1\"/><NAME No=\"2\" FNo=\"2\"/></PARTN101></TARTAB>"
    "<DUMP No=\"1\" TXT=\"| all\" TT=\"partn101\"><CODE TEXT=\"\" TYPE=\"0\">custs001.code</CODE></DUMP></partn101>";

/// A window on a small object, with settings, drafts and files of the test's own.
class HostDesk : public ::testing::Test {
protected:
    HostDesk()
    {
        TestApplication();
        watch.emplace();
        Put(folder / "object.xml", Lead + SmallObject);
        MakeWindow();
    }

    void MakeWindow()
    {
        window = std::make_unique<MainWindow>(settings, drafts, DraftTimes{20, 20});
        window->resize(1000, 650);
        window->show();
    }

    [[nodiscard]] QString File(const char* name) const { return QString::fromStdString((folder / name).native()); }
    [[nodiscard]] std::string OnDisk(const char* name = "object.xml") const { return Contents(folder / name); }
    [[nodiscard]] RulemeshWidget& Designer() { return window->Current().Object()->Widget(); }
    [[nodiscard]] DesignerViews& Views() { return Designer().Control().Views(); }
    [[nodiscard]] QAction* Action(const QString& caption)
    {
        for (QAction* action : window->findChildren<QAction*>()) {
            if (action->text() == caption)
                return action;
        }
        return nullptr;
    }

    const std::string Lead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- ours -->\n";
    TemporaryFolder folder;
    Environment temporary{"TMPDIR", folder.Path().native()};
    Environment cache{"XDG_CACHE_HOME", (folder / "cache").native()};
    Environment data{"XDG_DATA_HOME", (folder / "data").native()};
    Environment configuration{"XDG_CONFIG_HOME", (folder / "config").native()};
    Settings settings{File("settings.ini")};
    DraftStore drafts{File("drafts")};
    std::unique_ptr<MainWindow> window;
    std::optional<MirrorWatch> watch; // the first to go, while all the others are there
};

} // namespace rulemesh
