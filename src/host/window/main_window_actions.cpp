// The window's menus, and the settings that they change.

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QFontDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

#include "desktop/qt_text.h"
#include "desktop/rulemesh_widget.h"
#include "host/settings/settings.h"
#include "host/window/host_boxes.h"
#include "host/window/main_window.h"
#include "platform/process_launcher.h"

namespace rulemesh {

void MainWindow::MakeActions()
{
    MakeFileMenu();
    MakeEditMenu();
    MakeDesignerMenu();
    MakeHelpMenu();
    FillRecentMenu();
}

QAction* MainWindow::AddAction(QMenu& menu, const QString& caption, const QKeySequence& keys,
                               void (MainWindow::*does)())
{
    auto* action = menu.addAction(caption);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, does);
    return action;
}

void MainWindow::MakeFileMenu()
{
    QMenu& file = *menuBar()->addMenu(QStringLiteral("&File"));
    AddAction(file, QStringLiteral("&New..."), QKeySequence::New, &MainWindow::AskForNew);
    AddAction(file, QStringLiteral("&Open..."), QKeySequence::Open, &MainWindow::AskForFile);
    recentMenu_ = file.addMenu(QStringLiteral("Open &Recent"));
    recentMenu_->setToolTipsVisible(true);
    file.addSeparator();
    save_ = AddAction(file, QStringLiteral("&Save"), QKeySequence::Save, &MainWindow::SaveNow);
    saveAs_ = AddAction(file, QStringLiteral("Save &As..."), QKeySequence(QStringLiteral("Ctrl+Shift+S")),
                        &MainWindow::AskWhereToSave);
    file.addSeparator();
    QAction* recover = file.addAction(QStringLiteral("Reco&ver Drafts..."));
    connect(recover, &QAction::triggered, this, [this] { OfferDrafts(); });
    connect(&file, &QMenu::aboutToShow, this, [this, recover] { recover->setEnabled(!drafts_.Orphans().empty()); });
    connect(&file, &QMenu::aboutToHide, this, [recover] { recover->setEnabled(true); });
    file.addSeparator();
    close_ = AddAction(file, QStringLiteral("&Close"), QKeySequence::Close, &MainWindow::CloseFile);
    QAction* quit = file.addAction(QStringLiteral("&Quit"));
    quit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    connect(quit, &QAction::triggered, this, &QWidget::close);
}

void MainWindow::MakeEditMenu()
{
    QMenu& edit = *menuBar()->addMenu(QStringLiteral("&Edit"));
    undo_ = AddAction(edit, QStringLiteral("&Undo"), QKeySequence(QStringLiteral("Ctrl+Z")), &MainWindow::Undo);
    redo_ = AddAction(edit, QStringLiteral("&Redo"), {}, &MainWindow::Redo);
    redo_->setShortcuts({QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
}

void MainWindow::Undo()
{
    if (object_)
        object_->Widget().Undo();
}

void MainWindow::Redo()
{
    if (object_)
        object_->Widget().Redo();
}

// The entries say what they would do.
void MainWindow::UpdateHistory()
{
    const auto show = [](QAction& action, const QString& verb, QString step) {
        action.setEnabled(!step.isEmpty());
        action.setText(step.isEmpty() ? verb : verb + u' ' + step.replace(u'&', QStringLiteral("&&")));
    };
    show(*undo_, QStringLiteral("&Undo"), object_ ? object_->Widget().UndoText() : QString());
    show(*redo_, QStringLiteral("&Redo"), object_ ? object_->Widget().RedoText() : QString());
}

void MainWindow::MakeDesignerMenu()
{
    QMenu& designer = *menuBar()->addMenu(QStringLiteral("&Designer"));
    import_ = AddAction(designer, QStringLiteral("&Import Catalogue..."), QKeySequence(QStringLiteral("Ctrl+I")),
                        &MainWindow::AskForCatalogue);
    readOnly_ = designer.addAction(QStringLiteral("&Read-only"));
    readOnly_->setCheckable(true);
    connect(readOnly_, &QAction::triggered, this, &MainWindow::ReadOnly);
    designer.addSeparator();
    highlight_ = designer.addAction(QStringLiteral("&Highlight Scripts"));
    highlight_->setCheckable(true);
    highlight_->setChecked(settings_.Highlighting());
    connect(highlight_, &QAction::triggered, this, &MainWindow::Highlight);
    AddAction(designer, QStringLiteral("Script &Font..."), {}, &MainWindow::AskForFont);
    AddAction(designer, QStringLiteral("External &Editor..."), {}, &MainWindow::AskForEditor);
}

void MainWindow::MakeHelpMenu()
{
    QMenu& help = *menuBar()->addMenu(QStringLiteral("&Help"));
    AddAction(help, QStringLiteral("&About Rulemesh"), {}, &MainWindow::ShowAbout);
    connect(help.addAction(QStringLiteral("About &Qt")), &QAction::triggered, qApp, &QApplication::aboutQt);
}

void MainWindow::FillRecentMenu()
{
    const RecentFiles recent = settings_.Recent();
    const QStringList captions = recent.Captions();
    recentMenu_->clear();
    for (qsizetype at = 0; at < captions.size(); ++at) {
        const QString path = recent.Paths()[at];
        QString caption = captions[at];
        QAction* action = recentMenu_->addAction(
            QStringLiteral("&%1 %2").arg((at + 1) % 10).arg(caption.replace(u'&', QStringLiteral("&&"))));
        action->setToolTip(QDir::toNativeSeparators(path));
        connect(action, &QAction::triggered, this, [this, path] { OpenFile(path); });
    }
    recentMenu_->addSeparator();
    connect(recentMenu_->addAction(QStringLiteral("&Clear List")), &QAction::triggered, this, [this] {
        settings_.Recent({});
        FillRecentMenu();
    });
    recentMenu_->setEnabled(!captions.isEmpty());
}

void MainWindow::UpdateActions()
{
    const bool open = object_ != nullptr;
    const bool editable = MayEdit(); // an open panel is told when one of these is used
    save_->setEnabled(editable);
    saveAs_->setEnabled(editable);
    import_->setEnabled(editable);
    close_->setEnabled(open);
    readOnly_->setEnabled(open && !path_.isEmpty());
    readOnly_->setChecked(open && !editable);
    hintLabel_->setText(open ? object_->RulesHint() : QString());
    hintLabel_->setToolTip(hintLabel_->text());
    UpdateHistory();
    UpdateTitle();
}

void MainWindow::UpdateTitle()
{
    if (!object_) {
        setWindowTitle(QStringLiteral("Rulemesh"));
        setWindowModified(false);
        targetLabel_->setText(QStringLiteral(" "));
        return;
    }
    const QString name = path_.isEmpty() ? QStringLiteral("New object") : ShownName();
    const bool readOnly = object_->AccessMode() == Access::ReadOnly;
    setWindowTitle(
        QStringLiteral("%1[*]%2 - Rulemesh").arg(name, readOnly ? QStringLiteral(" (read-only)") : QString()));
    setWindowModified(object_->SeemsChanged());
    targetLabel_->setText(QStringLiteral("Target table %1").arg(object_->Widget().TargetTable()));
}

// A designer that was read-only stays locked, so a new one takes its place either way.
void MainWindow::ReadOnly(bool on)
{
    OpenFile(path_, on ? Access::ReadOnly : Access::Edit);
    UpdateActions();
}

void MainWindow::Highlight(bool on)
{
    settings_.Highlighting(on);
    if (object_)
        object_->UseHighlighting(on);
}

void MainWindow::AskForFont()
{
    const QFont start = settings_.Font().value_or(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    bool chosen = false;
    const QFont font = QFontDialog::getFont(&chosen, start, this, QStringLiteral("Font of Scripts"));
    if (!chosen)
        return;
    settings_.Font(font);
    if (object_)
        object_->UseScriptFont(font);
}

void MainWindow::AskForEditor()
{
    const QString fallback = ToQt(FallbackEditor()).trimmed();
    const QString found = fallback.isEmpty() ? QStringLiteral("none is installed") : fallback;
    bool chosen = false;
    const QString command = QInputDialog::getText(
        this, QStringLiteral("External Editor"),
        QStringLiteral(
            "Command that edits a file and ends when the file is closed.\nLeave it empty for the first editor "
            "found on this system (%1):")
            .arg(found),
        QLineEdit::Normal, settings_.Editor(), &chosen);
    if (!chosen)
        return;
    settings_.Editor(command);
    if (object_)
        object_->UseEditor(settings_.Editor());
}

void MainWindow::ShowAbout()
{
    QMessageBox::about(this, QStringLiteral("About Rulemesh"),
                       QStringLiteral("<h3>Rulemesh %1</h3><p>A visual designer for data-migration mappings: scripts, "
                                      "source tables, and the rule of every target field.</p>")
                           .arg(QStringLiteral(RULEMESH_VERSION)));
}

} // namespace rulemesh
