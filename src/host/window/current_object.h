#pragma once

#include <memory>

#include <QObject>

#include "host/drafts/draft_keeper.h"
#include "host/drafts/draft_store.h"
#include "host/opened/open_object.h"

namespace rulemesh {

/// The object that is open in a window, and its way from files and to them. What can't be done is told to the user in
/// a box over the window; changes are asked about before they go.
class CurrentObject : public QObject {
    Q_OBJECT

public:
    /// All must outlive this.
    CurrentObject(Settings& settings, DraftStore& drafts, DraftTimes draftTimes, QWidget& window);
    ~CurrentObject() override;

    /// The open object, or none.
    [[nodiscard]] OpenObject* Object() noexcept { return object_.get(); }

    /// The file of the open object; "" for one that has none yet.
    [[nodiscard]] const QString& Path() const noexcept { return path_; }

    /// What the object is called in questions.
    [[nodiscard]] QString ShownName() const;

    /// Whether there is an object that the user may change.
    [[nodiscard]] bool MayEdit() const { return object_ && object_->AccessMode() == Access::Edit; }

    /// Opens a file in the place of what is open, after asking about changes.
    void Open(const QString& path, Access access = Access::Edit);

    /// Shows a text that no file holds yet.
    void OpenUnsaved(const ObjectText& text);

    /// Shows what a draft holds, which is the object's draft from then on. False when the user wants none of it.
    bool Recover(DraftStore::Recovered draft);

    /// Shows the open object with a text that a command has made of it: the same object, not saved yet.
    void Change(const ObjectText& text);

    /// False when nothing was written; the reason has been told.
    bool Save();
    bool SaveTo(const QString& path);

    /// Whether the designer allows a save now. Where an open panel blocks it, that is told under this headline.
    [[nodiscard]] bool MaySaveNow(const QString& headline);

    /// Asks about changes, and saves them where that is the answer. True when the object may go.
    bool MayLetGo();

    /// Writes the draft of unsaved changes now: the program may end at any moment.
    void KeepDraft();

    void AskForNew();
    void AskForFile();
    void AskWhereToSave();
    void Close();

signals:
    /// Another object is open, or none any more. The one before has gone with its designer.
    void Replaced();

    /// Something that a window shows of the object has changed.
    void StateChanged();

    /// A file was opened that drafts may have been left behind for.
    void Opened(const QString& path);

    /// The list of files that were open has changed.
    void RecentChanged();

    /// Something to be said without a box: for a moment, or until something else is said.
    void Noticed(const QString& text);
    void Warned(const QString& text);

    /// A failure ended what the user did in the designer.
    void FailureRaised(int number, const QString& text);

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
    void Drop();
    [[nodiscard]] bool MayOverwrite(const QString& path);
    void Remember(const QString& path);
    void Forget(const QString& path);

    Settings& settings_;
    DraftStore& drafts_;
    DraftTimes draftTimes_;
    QWidget& window_;

    QString path_;
    FileStamp stamp_;
    std::unique_ptr<OpenObject> object_;
    std::unique_ptr<DraftKeeper> keeper_;
};

} // namespace rulemesh
