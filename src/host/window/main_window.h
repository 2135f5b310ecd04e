#pragma once

#include <memory>

#include <QMainWindow>

#include "host/drafts/draft_keeper.h"
#include "host/drafts/draft_store.h"
#include "host/opened/open_object.h"

class QAction;
class QLabel;
class QMenu;

namespace rulemesh {

class Builders;
class FunctionButton;
class Settings;

/// The application's window around one designer.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// Settings and store must outlive the window.
    MainWindow(Settings& settings, DraftStore& drafts, DraftTimes draftTimes = {});
    ~MainWindow() override;

    /// The open object, or none.
    [[nodiscard]] OpenObject* Object() noexcept { return object_.get(); }

    /// The file of the open object; "" for one that has none yet.
    [[nodiscard]] const QString& Path() const noexcept { return path_; }

    /// Opens a file in the place of what is open, after asking about changes. What can't be opened is told.
    void OpenFile(const QString& path, Access access = Access::Edit);

    /// Shows a text that no file holds yet.
    void OpenUnsaved(const ObjectText& text);

    /// False when nothing was written; the reason has been told.
    bool Save();
    bool SaveTo(const QString& path);

    /// Adds the tables of a catalogue to the open object, or replaces them there.
    void ImportCatalogue(const QString& path);

    /// Offers the drafts that programs left behind, if there are any.
    void OfferDrafts();

    /// Tells in the status bar, without a question, that there are drafts to recover.
    void MentionDrafts();

    /// Writes the draft of unsaved changes now: the program may end at any moment.
    void KeepDraft();

    /// Asks about changes, and saves them where that is the answer. True when the object may go.
    bool MayLetGo();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What is to be shown next.
    struct Opening {
        ObjectText Text;
        QString Path;
        Access Mode = Access::Edit;
        Origin From = Origin::File;
        std::unique_ptr<Draft> Handle = nullptr;
    };
    void Show(Opening opening);
    void ShowStartPage();
    void CloseObject();
    void TakeDropsFrom(QWidget& designer);
    void DropFile(const QString& path);
    void TellFailure(int number, const QString& text);
    void TellOpenPanel(const QString& what);
    [[nodiscard]] bool MayEdit() const;
    [[nodiscard]] bool AskForReadOnly(const QString& name, const ObjectText& text, Access& access);

    void MakeActions();
    QAction* AddAction(QMenu& menu, const QString& caption, const QKeySequence& keys, void (MainWindow::*does)());
    void MakeFileMenu();
    void MakeEditMenu();
    void MakeDesignerMenu();
    void MakeHelpMenu();
    void FillRecentMenu();
    void UpdateActions();
    void UpdateHistory();
    void UpdateTitle();

    void Undo();
    void Redo();

    void AskForNew();
    void AskForFile();
    void AskWhereToSave();
    void AskForCatalogue();
    void AskForEditor();
    void AskForFont();
    void Highlight(bool on);
    void ReadOnly(bool on);
    void ShowAbout();
    void SaveNow() { Save(); }
    void CloseFile();

    void OfferDrafts(std::vector<DraftStore::Orphan> orphans);
    bool Recover(const DraftStore::Orphan& orphan);
    void MendCutShortSave(const QString& path);
    [[nodiscard]] bool MayOverwrite(const QString& path);
    void Remember(const QString& path);
    void Forget(const QString& path);
    [[nodiscard]] QString ShownName() const;

    Settings& settings_;
    DraftStore& drafts_;
    DraftTimes draftTimes_;

    QString path_;
    FileStamp stamp_;
    std::unique_ptr<OpenObject> object_;
    std::unique_ptr<Builders> builders_;
    std::unique_ptr<FunctionButton> functionButton_;
    std::unique_ptr<DraftKeeper> keeper_;
    bool tellingFailure_ = false;

    QLabel* hintLabel_;
    QLabel* targetLabel_;
    QMenu* recentMenu_ = nullptr;
    QAction* undo_ = nullptr;
    QAction* redo_ = nullptr;
    QAction* save_ = nullptr;
    QAction* saveAs_ = nullptr;
    QAction* close_ = nullptr;
    QAction* import_ = nullptr;
    QAction* readOnly_ = nullptr;
    QAction* highlight_ = nullptr;
};

} // namespace rulemesh
