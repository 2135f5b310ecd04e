#include "host/window/current_object.h"

#include <QFileDialog>
#include <QFileInfo>

#include "desktop/rulemesh_widget.h"
#include "host/catalogue/new_object_dialog.h"
#include "host/files/host_error.h"
#include "host/files/safe_file.h"
#include "host/settings/settings.h"
#include "host/window/host_boxes.h"
#include "host/window/opening_questions.h"

namespace rulemesh {

namespace {

QString ObjectFileFilter() { return QStringLiteral("Mapping objects (*.xml *.rulemesh);;All files (*)"); }

} // namespace

CurrentObject::CurrentObject(Settings& settings, DraftStore& drafts, DraftTimes draftTimes, QWidget& window)
    : settings_(settings), drafts_(drafts), draftTimes_(draftTimes), window_(window)
{
}

CurrentObject::~CurrentObject() { Drop(); }

void CurrentObject::Drop()
{
    keeper_.reset();
    object_.reset(); // not taken out of the window before, which would go on naming it as its focus
}

void CurrentObject::Show(Opening opening)
{
    Drop();
    path_ = opening.Path;
    stamp_ = StampOf(path_);
    object_ = std::make_unique<OpenObject>(opening.Text, opening.Mode, opening.From, settings_, window_);
    keeper_ = std::make_unique<DraftKeeper>(*object_, drafts_, path_, draftTimes_, std::move(opening.Handle));
    connect(object_.get(), &OpenObject::StateChanged, this, &CurrentObject::StateChanged);
    connect(object_.get(), &OpenObject::FailureRaised, this, &CurrentObject::FailureRaised);
    connect(keeper_.get(), &DraftKeeper::Warned, this, &CurrentObject::Warned);
    emit Replaced();
}

QString CurrentObject::ShownName() const
{
    return path_.isEmpty() ? QStringLiteral("the new object") : QFileInfo(path_).fileName();
}

bool CurrentObject::MayLetGo()
{
    if (!MayEdit())
        return true;
    object_->CommitOpenEdits(); // a failure has been told; what the boxes hold is asked about all the same
    if (object_->HasChanges()) {
        switch (AskAboutChanges(&window_, ShownName(), object_->MaySave())) {
        case SaveAnswer::Save:
            return Save();
        case SaveAnswer::Cancel:
            return false;
        case SaveAnswer::Discard:
            break;
        }
    }
    keeper_->Drop(path_);
    return true;
}

void CurrentObject::KeepDraft()
{
    if (MayEdit())
        keeper_->Turn();
}

void CurrentObject::Close()
{
    if (!MayLetGo())
        return;
    Drop();
    path_.clear();
    emit Replaced();
}

void CurrentObject::AskForNew()
{
    if (!MayLetGo())
        return;
    NewObjectDialog dialog(settings_.Folder(), &window_);
    if (dialog.exec() == QDialog::Accepted)
        OpenUnsaved({{}, dialog.Object()});
}

void CurrentObject::OpenUnsaved(const ObjectText& text)
{
    Show({.Text = text, .Path = {}, .Mode = Access::Edit, .From = Origin::Unsaved});
}

void CurrentObject::AskForFile()
{
    const QString path = QFileDialog::getOpenFileName(&window_, QStringLiteral("Open Mapping Object"),
                                                      settings_.Folder(), ObjectFileFilter());
    if (!path.isEmpty())
        Open(path);
}

void CurrentObject::Open(const QString& path, Access access)
{
    if (!MayLetGo())
        return;
    const QString absolute = QFileInfo(path).absoluteFilePath();
    try {
        SweepLeftovers(absolute);
        MendCutShortSave(window_, absolute);
        ObjectText text = ReadObjectFile(absolute);
        CheckObject(text);
        if (!AskForReadOnly(window_, QFileInfo(path).fileName(), text, access))
            return;
        Show({.Text = std::move(text), .Path = absolute, .Mode = access});
    } catch (const HostError& error) {
        TellProblem(&window_, QStringLiteral("%1 can't be opened.").arg(QFileInfo(path).fileName()), error.Text());
        if (!QFileInfo::exists(absolute))
            Forget(absolute);
        return;
    }
    Remember(absolute);
    if (access == Access::Edit)
        emit Opened(absolute);
}

bool CurrentObject::Recover(DraftStore::Recovered draft)
{
    CheckObject(draft.Text);
    Access access = Access::Edit;
    if (!AskForReadOnly(window_, QStringLiteral("The draft"), draft.Text, access))
        return false;
    Show({.Text = std::move(draft.Text),
          .Path = draft.Origin.File,
          .Mode = access,
          .From = Origin::Unsaved,
          .Handle = std::move(draft.Handle)});
    return true;
}

void CurrentObject::Change(const ObjectText& text)
{
    const FileStamp stamp = stamp_; // of the file as this object was read from it
    Show({.Text = text, .Path = path_, .Mode = Access::Edit, .From = Origin::Unsaved, .Handle = keeper_->Release()});
    stamp_ = stamp;
}

void CurrentObject::Remember(const QString& path)
{
    RecentFiles recent = settings_.Recent();
    recent.Add(path);
    settings_.Recent(recent);
    settings_.Folder(QFileInfo(path).absolutePath());
    emit RecentChanged();
}

void CurrentObject::Forget(const QString& path)
{
    RecentFiles recent = settings_.Recent();
    recent.Remove(path);
    settings_.Recent(recent);
    emit RecentChanged();
}

// The designer blocks a save while a panel is open, as the panel's text is in no document yet.
bool CurrentObject::MaySaveNow(const QString& headline)
{
    if (object_->MaySave())
        return true;
    const bool functions = object_->Widget().Control().State().OpenPanel == TextPanel::Functions;
    TellProblem(&window_, headline,
                QStringLiteral("The panel of the %1 is open. Press its OK, which keeps its text, or its Cancel, which "
                               "drops it, and then try again.")
                    .arg(functions ? QStringLiteral("functions") : QStringLiteral("variables and includes")));
    return false;
}

bool CurrentObject::Save()
{
    if (!MayEdit() || !MaySaveNow(QStringLiteral("The object can't be saved now.")))
        return false;
    if (!path_.isEmpty())
        return SaveTo(path_);
    AskWhereToSave();
    return !path_.isEmpty();
}

void CurrentObject::AskWhereToSave()
{
    if (!MayEdit() || !MaySaveNow(QStringLiteral("The object can't be saved now.")))
        return;
    const QString proposed =
        path_.isEmpty() ? settings_.Folder() + u'/' + RootName(object_->AsItStands().Object) + QStringLiteral(".xml")
                        : path_;
    const QString path =
        QFileDialog::getSaveFileName(&window_, QStringLiteral("Save Mapping Object"), proposed, ObjectFileFilter());
    if (!path.isEmpty())
        SaveTo(path);
}

bool CurrentObject::MayOverwrite(const QString& path)
{
    const FileStamp now = StampOf(path);
    if (path != path_ || now == stamp_ || now == FileStamp{})
        return true;
    return AskToGoOn(&window_, QStringLiteral("Another program has changed %1 since it was opened.").arg(ShownName()),
                     QStringLiteral("Saving now takes the place of what that program wrote."),
                     QStringLiteral("&Overwrite"));
}

bool CurrentObject::SaveTo(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    if (!MayEdit() || !MayOverwrite(absolute))
        return false;
    const std::optional<ObjectText> text = object_->TextToSave();
    if (!text)
        return false; // the failure has been told
    try {
        WriteObjectFile(absolute, *text);
    } catch (const HostError& error) {
        if (absolute == path_)
            stamp_ = StampOf(path_); // what changed it was this program
        TellProblem(&window_, QStringLiteral("%1 was not saved.").arg(QFileInfo(absolute).fileName()), error.Text());
        return false;
    }
    path_ = absolute;
    stamp_ = StampOf(path_);
    object_->NoteSaved();
    Remember(path_);
    emit StateChanged();
    emit Noticed(QStringLiteral("Saved %1").arg(QFileInfo(path_).fileName()));
    keeper_->Drop(path_);
    return true;
}

} // namespace rulemesh
