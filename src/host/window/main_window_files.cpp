// What the window does with files: open, save, drafts, catalogues.

#include <QFileDialog>
#include <QFileInfo>
#include <QStatusBar>

#include "desktop/qt_text.h"
#include "host/catalogue/catalogue_file.h"
#include "host/catalogue/new_object_dialog.h"
#include "host/drafts/draft_keeper.h"
#include "host/drafts/recover_dialog.h"
#include "host/files/host_error.h"
#include "host/files/plain_file.h"
#include "host/files/safe_file.h"
#include "host/settings/settings.h"
#include "host/window/host_boxes.h"
#include "host/window/main_window.h"

namespace rulemesh {

namespace {

constexpr int MessageMilliseconds = 6000;

QString ObjectFileFilter() { return QStringLiteral("Mapping objects (*.xml *.rulemesh);;All files (*)"); }

QString TablesOf(const std::vector<CatalogueTable>& tables)
{
    constexpr qsizetype Most = 12;
    QStringList codes;
    for (const CatalogueTable& table : tables)
        codes += ToQt(table.Code);
    const qsizetype more = codes.size() - Most;
    return more <= 0 ? codes.join(QStringLiteral(", "))
                     : QStringLiteral("%1 and %2 more").arg(codes.first(Most).join(QStringLiteral(", "))).arg(more);
}

QString WhatAnImportDoes(const Catalogue& own, const Catalogue& imported)
{
    std::vector<CatalogueTable> replaced;
    std::vector<CatalogueTable> added;
    const auto sort = [&](const auto& tables, const auto& known) {
        for (const CatalogueTable& table : tables)
            (FindTable(known, table.Code) == nullptr ? added : replaced).push_back(table);
    };
    sort(imported.Sources, own.Sources);
    sort(imported.Targets, own.Targets);
    QStringList told;
    if (!added.empty())
        told += QStringLiteral("Added: %1.").arg(TablesOf(added));
    if (!replaced.empty())
        told += QStringLiteral("Replaced: %1. Rules of fields that they no longer have stay in the object unseen.")
                    .arg(TablesOf(replaced));
    return told.join(u'\n');
}

} // namespace

QString MainWindow::ShownName() const
{
    if (!path_.isEmpty())
        return QFileInfo(path_).fileName();
    return QStringLiteral("the new object");
}

bool MainWindow::MayLetGo()
{
    if (!object_ || object_->AccessMode() == Access::ReadOnly)
        return true;
    object_->CommitOpenEdits(); // a failure has been told; what the boxes hold is asked about all the same
    if (object_->HasChanges()) {
        switch (AskAboutChanges(this, ShownName(), object_->MaySave())) {
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

void MainWindow::AskForNew()
{
    if (!MayLetGo())
        return;
    NewObjectDialog dialog(settings_.Folder(), this);
    if (dialog.exec() == QDialog::Accepted)
        OpenUnsaved({{}, dialog.Object()});
}

void MainWindow::OpenUnsaved(const ObjectText& text)
{
    Show({.Text = text, .Path = {}, .Mode = Access::Edit, .From = Origin::Unsaved});
}

void MainWindow::AskForFile()
{
    const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Open Mapping Object"), settings_.Folder(),
                                                      ObjectFileFilter());
    if (!path.isEmpty())
        OpenFile(path);
}

void MainWindow::OpenFile(const QString& path, Access access)
{
    if (!MayLetGo())
        return;
    const QString absolute = QFileInfo(path).absoluteFilePath();
    try {
        SweepLeftovers(absolute);
        MendCutShortSave(absolute);
        ObjectText text = ReadObjectFile(absolute);
        CheckObject(text);
        if (!AskForReadOnly(QFileInfo(path).fileName(), text, access))
            return;
        Show({.Text = std::move(text), .Path = absolute, .Mode = access});
    } catch (const HostError& error) {
        TellProblem(this, QStringLiteral("%1 can't be opened.").arg(QFileInfo(path).fileName()), error.Text());
        if (!QFileInfo::exists(absolute))
            Forget(absolute);
        return;
    }
    Remember(absolute);
    if (access == Access::Edit)
        OfferDrafts(drafts_.OrphansOf(absolute));
}

// A file that was being written in place when its program was killed may hold a mixture of two texts.
void MainWindow::MendCutShortSave(const QString& path)
{
    const QString copy = CopyOfCutShortSave(path);
    if (!copy.isEmpty() &&
        AskToGoOn(this, QStringLiteral("The last save of %1 may have been cut short.").arg(QFileInfo(path).fileName()),
                  QStringLiteral("A program was ended while it wrote the file. The whole text from before that save "
                                 "stands in %1.")
                      .arg(copy),
                  QStringLiteral("&Put It Back")))
        WriteFileAtOnce(path, ReadPlainFile(copy));
}

void MainWindow::Remember(const QString& path)
{
    RecentFiles recent = settings_.Recent();
    recent.Add(path);
    settings_.Recent(recent);
    settings_.Folder(QFileInfo(path).absolutePath());
    FillRecentMenu();
}

void MainWindow::Forget(const QString& path)
{
    RecentFiles recent = settings_.Recent();
    recent.Remove(path);
    settings_.Recent(recent);
    FillRecentMenu();
}

bool MainWindow::Save()
{
    if (!MayEdit())
        return false;
    if (!object_->MaySave()) {
        TellOpenPanel(QStringLiteral("The object can't be saved now."));
        return false;
    }
    if (!path_.isEmpty())
        return SaveTo(path_);
    AskWhereToSave();
    return !path_.isEmpty();
}

void MainWindow::AskWhereToSave()
{
    if (!MayEdit())
        return;
    if (!object_->MaySave())
        return TellOpenPanel(QStringLiteral("The object can't be saved now."));
    const QString proposed =
        path_.isEmpty() ? settings_.Folder() + u'/' + RootName(object_->AsItStands().Object) + QStringLiteral(".xml")
                        : path_;
    const QString path =
        QFileDialog::getSaveFileName(this, QStringLiteral("Save Mapping Object"), proposed, ObjectFileFilter());
    if (!path.isEmpty())
        SaveTo(path);
}

bool MainWindow::MayOverwrite(const QString& path)
{
    const FileStamp now = StampOf(path);
    if (path != path_ || now == stamp_ || now == FileStamp{})
        return true;
    return AskToGoOn(this, QStringLiteral("Another program has changed %1 since it was opened.").arg(ShownName()),
                     QStringLiteral("Saving now takes the place of what that program wrote."),
                     QStringLiteral("&Overwrite"));
}

bool MainWindow::SaveTo(const QString& path)
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
        TellProblem(this, QStringLiteral("%1 was not saved.").arg(QFileInfo(absolute).fileName()), error.Text());
        return false;
    }
    path_ = absolute;
    stamp_ = StampOf(path_);
    object_->NoteSaved();
    keeper_->Drop(path_);
    Remember(path_);
    UpdateActions();
    statusBar()->showMessage(QStringLiteral("Saved %1").arg(QFileInfo(path_).fileName()), MessageMilliseconds);
    return true;
}

void MainWindow::AskForCatalogue()
{
    if (object_ && !object_->MaySave())
        return TellOpenPanel(QStringLiteral("A catalogue can't be imported now."));
    const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Import Catalogue"), settings_.Folder(),
                                                      CatalogueFileFilter());
    if (!path.isEmpty())
        ImportCatalogue(path);
}

void MainWindow::ImportCatalogue(const QString& path)
{
    if (!object_ || object_->AccessMode() == Access::ReadOnly || !object_->MaySave()) {
        TellProblem(this, QStringLiteral("A catalogue can't be imported now."),
                    QStringLiteral("Open an object that you may change first, and close an open panel with its OK or "
                                   "Cancel. New makes an object from a catalogue."));
        return;
    }
    try {
        const Catalogue catalogue = ReadCatalogueFile(path);
        const Catalogue own = CatalogueOf(object_->AsItStands().Object.toStdString());
        if (!AskToGoOn(this, QStringLiteral("Import the tables of %1?").arg(QFileInfo(path).fileName()),
                       WhatAnImportDoes(own, catalogue), QStringLiteral("&Import")))
            return;
        std::optional<ObjectText> text = object_->TextToSave();
        if (!text)
            return;
        text->Object = QByteArray::fromStdString(WithCatalogue(text->Object.toStdString(), catalogue));
        const FileStamp stamp = stamp_; // of the file as this object was read from it
        Show({.Text = *text,
              .Path = path_,
              .Mode = Access::Edit,
              .From = Origin::Unsaved,
              .Handle = keeper_->Release()});
        stamp_ = stamp;
    } catch (const HostError& error) {
        TellProblem(this, QStringLiteral("%1 was not imported.").arg(QFileInfo(path).fileName()), error.Text());
    }
}

void MainWindow::KeepDraft()
{
    if (keeper_ && object_->AccessMode() == Access::Edit)
        keeper_->Turn();
}

void MainWindow::OfferDrafts() { OfferDrafts(drafts_.Orphans()); }

void MainWindow::MentionDrafts()
{
    if (!drafts_.Orphans().empty())
        statusBar()->showMessage(QStringLiteral("There are unsaved changes of other objects: File > Recover Drafts"));
}

void MainWindow::OfferDrafts(std::vector<DraftStore::Orphan> orphans)
{
    while (!orphans.empty()) {
        RecoverDialog dialog(orphans, this);
        dialog.exec();
        if (dialog.Answer() == RecoverDialog::Choice::Later)
            return;
        const DraftStore::Orphan chosen = dialog.Chosen();
        if (dialog.Answer() == RecoverDialog::Choice::Recover) {
            Recover(chosen);
            return;
        }
        if (const DraftStore::Recovered draft = drafts_.TakeOver(chosen); draft.Handle)
            draft.Handle->Discard();
        std::erase_if(orphans, [&](const DraftStore::Orphan& orphan) { return orphan.Path == chosen.Path; });
    }
}

bool MainWindow::Recover(const DraftStore::Orphan& orphan)
{
    if (!MayLetGo())
        return false;
    try {
        DraftStore::Recovered draft = drafts_.TakeOver(orphan);
        if (!draft.Handle)
            throw HostError(QStringLiteral("Another window has recovered this draft already."));
        CheckObject(draft.Text);
        Access access = Access::Edit;
        if (!AskForReadOnly(QStringLiteral("The draft"), draft.Text, access))
            return false;
        Show({.Text = std::move(draft.Text),
              .Path = draft.Origin.File,
              .Mode = access,
              .From = Origin::Unsaved,
              .Handle = std::move(draft.Handle)});
        statusBar()->showMessage(QStringLiteral("Recovered. Save to keep it."), MessageMilliseconds);
        return true;
    } catch (const HostError& error) {
        TellProblem(this, QStringLiteral("The draft can't be recovered."), error.Text());
        return false;
    }
}

void MainWindow::CloseFile()
{
    if (MayLetGo())
        ShowStartPage();
}

} // namespace rulemesh
