#pragma once

#include <QMainWindow>

#include "host/window/catalogue_import.h"
#include "host/window/current_object.h"
#include "host/window/designer_settings.h"
#include "host/window/draft_offers.h"
#include "host/window/menus.h"
#include "host/window/steps_dock.h"

class QLabel;

namespace rulemesh {

/// The application's window: shows the open object's designer, or a page to start from, and says in title and status
/// bar what is open. `CurrentObject` is the way from files and to them; `Menus` has the commands.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// Settings and store must outlive the window.
    MainWindow(Settings& settings, DraftStore& drafts, DraftTimes draftTimes = {});
    ~MainWindow() override;

    [[nodiscard]] CurrentObject& Current() noexcept { return current_; }
    [[nodiscard]] DraftOffers& Drafts() noexcept { return drafts_; }
    [[nodiscard]] CatalogueImport& Import() noexcept { return import_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowWhatIsOpen();
    void ShowStartPage();
    void ShowDesigner(OpenObject& object);
    void TakeDropsFrom(QWidget& designer);
    void DropFile(const QString& path);
    void ShowState();
    void ShowTitle();
    void Notice(const QString& text);
    void Warn(const QString& text);
    void TellFailure(int number, const QString& text);

    Settings& settings_;
    CurrentObject current_;
    DraftOffers drafts_;
    CatalogueImport import_;
    DesignerSettings designerSettings_;
    StepsDock* steps_;
    Menus menus_;
    QLabel* hintLabel_;
    QLabel* targetLabel_;
    bool tellingFailure_ = false;
};

} // namespace rulemesh
