#include "host/window/menus.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

#include "desktop/rulemesh_widget.h"
#include "desktop/tool_tips.h"
#include "host/settings/settings.h"
#include "host/window/catalogue_import.h"
#include "host/window/current_object.h"
#include "host/window/designer_settings.h"
#include "host/window/draft_offers.h"

namespace rulemesh {

Menus::Menus(QMainWindow& window, Doers doers, const QList<QDockWidget*>& docks, Settings& settings)
    : window_(window), doers_(doers), settings_(settings)
{
    MakeFileMenu();
    MakeEditMenu();
    MakeViewMenu(docks);
    MakeDesignerMenu();
    MakeHelpMenu();
    FillRecent();
    CurrentObject& current = doers_.Current;
    connect(&current, &CurrentObject::RecentChanged, this, &Menus::FillRecent);
    connect(&current, &CurrentObject::StateChanged, this, &Menus::Update);
    connect(&current, &CurrentObject::Replaced, this, [this] {
        if (OpenObject* object = doers_.Current.Object())
            connect(&object->Widget(), &RulemeshWidget::HistoryChanged, this, &Menus::UpdateHistory);
        Update();
    });
    Update();
}

QAction* Menus::Add(QMenu& menu, const QString& caption, const QKeySequence& keys, std::function<void()> does)
{
    auto* action = menu.addAction(caption);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, std::move(does));
    return action;
}

void Menus::MakeFileMenu()
{
    CurrentObject& current = doers_.Current;
    QMenu& file = *window_.menuBar()->addMenu(QStringLiteral("&File"));
    Add(file, QStringLiteral("&New..."), QKeySequence::New, [&] { current.AskForNew(); });
    Add(file, QStringLiteral("&Open..."), QKeySequence::Open, [&] { current.AskForFile(); });
    recent_ = file.addMenu(QStringLiteral("Open &Recent"));
    recent_->setToolTipsVisible(true);
    file.addSeparator();
    save_ = Add(file, QStringLiteral("&Save"), QKeySequence::Save, [&] { current.Save(); });
    saveAs_ = Add(file, QStringLiteral("Save &As..."), QKeySequence(QStringLiteral("Ctrl+Shift+S")),
                  [&] { current.AskWhereToSave(); });
    file.addSeparator();
    QAction* recover = Add(file, QStringLiteral("Reco&ver Drafts..."), {}, [this] { doers_.Drafts.Offer(); });
    connect(&file, &QMenu::aboutToShow, this, [this, recover] { recover->setEnabled(doers_.Drafts.HasAny()); });
    connect(&file, &QMenu::aboutToHide, this, [recover] { recover->setEnabled(true); });
    file.addSeparator();
    close_ = Add(file, QStringLiteral("&Close"), QKeySequence::Close, [&] { current.Close(); });
    Add(file, QStringLiteral("&Quit"), QKeySequence(QStringLiteral("Ctrl+Q")), [this] { window_.close(); });
}

void Menus::MakeEditMenu()
{
    QMenu& edit = *window_.menuBar()->addMenu(QStringLiteral("&Edit"));
    undo_ = Add(edit, QStringLiteral("&Undo"), QKeySequence(QStringLiteral("Ctrl+Z")),
                [this] { doers_.Current.Object()->Widget().Undo(); });
    redo_ = Add(edit, QStringLiteral("&Redo"), {}, [this] { doers_.Current.Object()->Widget().Redo(); });
    redo_->setShortcuts({QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
}

void Menus::MakeViewMenu(const QList<QDockWidget*>& docks)
{
    QMenu& view = *window_.menuBar()->addMenu(QStringLiteral("&View"));
    for (QDockWidget* dock : docks)
        view.addAction(dock->toggleViewAction());
}

void Menus::MakeDesignerMenu()
{
    DesignerSettings& settings = doers_.Designer;
    QMenu& designer = *window_.menuBar()->addMenu(QStringLiteral("&Designer"));
    import_ = Add(designer, QStringLiteral("&Import Catalogue..."), QKeySequence(QStringLiteral("Ctrl+I")),
                  [this] { doers_.Import.Ask(); });
    readOnly_ = designer.addAction(QStringLiteral("&Read-only"));
    readOnly_->setCheckable(true);
    connect(readOnly_, &QAction::triggered, this, &Menus::ReadOnly);
    designer.addSeparator();
    QAction* highlight = designer.addAction(QStringLiteral("&Highlight Scripts"));
    highlight->setCheckable(true);
    highlight->setChecked(settings_.Highlighting());
    connect(highlight, &QAction::triggered, &settings, &DesignerSettings::Highlight);
    Add(designer, QStringLiteral("Script &Font..."), {}, [&] { settings.AskForFont(); });
    Add(designer, QStringLiteral("External &Editor..."), {}, [&] { settings.AskForEditor(); });
}

void Menus::MakeHelpMenu()
{
    QMenu& help = *window_.menuBar()->addMenu(QStringLiteral("&Help"));
    Add(help, QStringLiteral("&About Rulemesh"), {}, [this] { ShowAbout(); });
    Add(help, QStringLiteral("About &Qt"), {}, [] { QApplication::aboutQt(); });
}

void Menus::FillRecent()
{
    const RecentFiles recent = settings_.Recent();
    const QStringList captions = recent.Captions();
    recent_->clear();
    for (qsizetype at = 0; at < captions.size(); ++at) {
        const QString path = recent.Paths()[at];
        QString caption = captions[at];
        QAction* action = recent_->addAction(
            QStringLiteral("&%1 %2").arg((at + 1) % 10).arg(caption.replace(u'&', QStringLiteral("&&"))));
        action->setToolTip(PlainToolTip(QDir::toNativeSeparators(path)));
        connect(action, &QAction::triggered, this, [this, path] { doers_.Current.Open(path); });
    }
    recent_->addSeparator();
    Add(*recent_, QStringLiteral("&Clear List"), {}, [this] {
        settings_.Recent({});
        FillRecent();
    });
    recent_->setEnabled(!captions.isEmpty());
}

void Menus::Update()
{
    CurrentObject& current = doers_.Current;
    const bool open = current.Object() != nullptr;
    const bool editable = current.MayEdit(); // an open panel is told when one of these is used
    save_->setEnabled(editable);
    saveAs_->setEnabled(editable);
    import_->setEnabled(editable);
    close_->setEnabled(open);
    readOnly_->setEnabled(open && !current.Path().isEmpty());
    readOnly_->setChecked(open && !editable);
    UpdateHistory();
}

// The entries say what they would do.
void Menus::UpdateHistory()
{
    const auto show = [](QAction& action, const QString& verb, QString step) {
        action.setEnabled(!step.isEmpty());
        action.setText(step.isEmpty() ? verb : verb + u' ' + step.replace(u'&', QStringLiteral("&&")));
    };
    OpenObject* object = doers_.Current.Object();
    show(*undo_, QStringLiteral("&Undo"), object != nullptr ? object->Widget().UndoText() : QString());
    show(*redo_, QStringLiteral("&Redo"), object != nullptr ? object->Widget().RedoText() : QString());
}

// A designer that was read-only stays locked, so a new one takes its place either way.
void Menus::ReadOnly(bool on)
{
    doers_.Current.Open(QString(doers_.Current.Path()), on ? Access::ReadOnly : Access::Edit);
    Update();
}

void Menus::ShowAbout()
{
    QMessageBox::about(&window_, QStringLiteral("About Rulemesh"),
                       QStringLiteral("<h3>Rulemesh %1</h3><p>A visual designer for data-migration mappings: scripts, "
                                      "source tables, and the rule of every target field.</p>")
                           .arg(QStringLiteral(RULEMESH_VERSION)));
}

} // namespace rulemesh
