#include "host/window/main_window.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QStatusBar>

#include "desktop/rulemesh_widget.h"
#include "desktop/tool_tips.h"
#include "host/reading/failure_advice.h"
#include "host/settings/settings.h"
#include "host/window/host_boxes.h"
#include "host/window/start_page.h"

namespace rulemesh {

namespace {

// Map, Edit Rule and Comment stay in sight down to this width, in pixels.
constexpr int SmallestWidth = 750;
constexpr int NoticeMilliseconds = 6000;

// The file that is being dragged over the window; "" for anything else.
QString DraggedFile(const QDropEvent& event)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 && urls.first().isLocalFile() ? urls.first().toLocalFile() : QString();
}

} // namespace

MainWindow::MainWindow(Settings& settings, DraftStore& drafts, DraftTimes draftTimes)
    : settings_(settings), current_(settings, drafts, draftTimes, *this), drafts_(current_, drafts, *this),
      import_(current_, settings, *this), designerSettings_(settings, current_, *this), steps_(new StepsDock(this)),
      menus_(*this, {current_, drafts_, import_, designerSettings_}, {steps_}, settings), hintLabel_(new QLabel),
      targetLabel_(new QLabel)
{
    setAcceptDrops(true);
    hintLabel_->setTextFormat(Qt::PlainText);
    hintLabel_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long hint widens no window
    statusBar()->addWidget(hintLabel_, 1);
    statusBar()->addPermanentWidget(targetLabel_);
    setMinimumWidth(SmallestWidth);
    addDockWidget(Qt::RightDockWidgetArea, steps_);
    connect(&current_, &CurrentObject::Replaced, this, &MainWindow::ShowWhatIsOpen);
    connect(&current_, &CurrentObject::StateChanged, this, &MainWindow::ShowState);
    connect(&current_, &CurrentObject::Opened, &drafts_, &DraftOffers::OfferFor);
    connect(&current_, &CurrentObject::FailureRaised, this, &MainWindow::TellFailure);
    connect(&current_, &CurrentObject::Noticed, this, &MainWindow::Notice);
    connect(&current_, &CurrentObject::Warned, this, &MainWindow::Warn);
    connect(&drafts_, &DraftOffers::Noticed, this, &MainWindow::Notice);
    connect(&drafts_, &DraftOffers::Warned, this, &MainWindow::Warn);
    connect(qApp, &QGuiApplication::commitDataRequest, &current_, &CurrentObject::KeepDraft, Qt::DirectConnection);
    ShowWhatIsOpen();
    if (!restoreGeometry(settings_.Geometry()))
        resize(960, 620);
    restoreState(settings_.Docks());
}

MainWindow::~MainWindow() = default;

void MainWindow::ShowWhatIsOpen()
{
    OpenObject* object = current_.Object();
    if (object != nullptr)
        ShowDesigner(*object);
    else
        ShowStartPage();
    steps_->Follow(object != nullptr ? &object->Widget() : nullptr);
    ShowState();
}

void MainWindow::ShowStartPage()
{
    const RecentFiles recent = settings_.Recent();
    auto* page = new StartPage(recent.Paths(), recent.Captions(), this);
    connect(page, &StartPage::NewWanted, &current_, &CurrentObject::AskForNew, Qt::QueuedConnection);
    connect(page, &StartPage::OpenWanted, &current_, &CurrentObject::AskForFile, Qt::QueuedConnection);
    connect(
        page, &StartPage::FileWanted, &current_, [this](const QString& path) { current_.Open(path); },
        Qt::QueuedConnection);
    setCentralWidget(page);
}

void MainWindow::ShowDesigner(OpenObject& object)
{
    RulemeshWidget& designer = object.Widget();
    TakeDropsFrom(designer);
    designer.setMinimumHeight(designer.sizeHint().height()); // below it the buttons of a panel go out of sight
    setCentralWidget(&designer);
    designer.Setfocus();
}

// A designer's text box would take a file for its name.
void MainWindow::TakeDropsFrom(QWidget& designer)
{
    for (QAbstractScrollArea* area : designer.findChildren<QAbstractScrollArea*>())
        area->viewport()->installEventFilter(this);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    const bool drags = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
    if (drags || event->type() == QEvent::Drop) {
        auto& drop = static_cast<QDropEvent&>(*event);
        const QString file = DraggedFile(drop);
        if (!file.isEmpty()) {
            drop.acceptProposedAction();
            if (!drags)
                DropFile(file);
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!DraggedFile(*event).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) { DropFile(DraggedFile(*event)); }

// Done when the drop has ended, as it may ask.
void MainWindow::DropFile(const QString& path)
{
    if (path.isEmpty())
        return;
    const bool isCsv = QFileInfo(path).suffix().compare(QLatin1String("csv"), Qt::CaseInsensitive) == 0;
    QMetaObject::invokeMethod(
        this,
        [this, path, isCsv] {
            if (isCsv)
                import_.Import(path);
            else
                current_.Open(path);
        },
        Qt::QueuedConnection);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (QApplication::activeModalWidget() != nullptr || !current_.MayLetGo()) {
        event->ignore();
        return;
    }
    settings_.Geometry(saveGeometry());
    settings_.Docks(saveState());
    event->accept();
}

void MainWindow::ShowState()
{
    OpenObject* object = current_.Object();
    hintLabel_->setText(object != nullptr ? object->RulesHint() : QString());
    hintLabel_->setToolTip(PlainToolTip(hintLabel_->text()));
    targetLabel_->setText(object != nullptr ? QStringLiteral("Target table %1").arg(object->Widget().TargetTable())
                                            : QStringLiteral(" "));
    ShowTitle();
}

void MainWindow::ShowTitle()
{
    OpenObject* object = current_.Object();
    setWindowModified(false); // before a title without a place for the mark
    if (object == nullptr)
        return setWindowTitle(QStringLiteral("Rulemesh"));
    const QString name = current_.Path().isEmpty() ? QStringLiteral("New object") : current_.ShownName();
    const bool readOnly = object->AccessMode() == Access::ReadOnly;
    setWindowTitle(
        QStringLiteral("%1[*]%2 - Rulemesh").arg(name, readOnly ? QStringLiteral(" (read-only)") : QString()));
    setWindowModified(object->SeemsChanged());
}

void MainWindow::Notice(const QString& text) { statusBar()->showMessage(text, NoticeMilliseconds); }

void MainWindow::Warn(const QString& text) { statusBar()->showMessage(text); }

// One box for a failure, however many follow from it while the box is open.
void MainWindow::TellFailure(int number, const QString& text)
{
    if (tellingFailure_)
        return;
    const QScopedValueRollback<bool> guard(tellingFailure_, true);
    QStringList told =
        current_.Object() != nullptr ? FailureAdvice(current_.Object()->Widget().Control(), number) : QStringList();
    told += QStringLiteral("What was done before it stays done, and nothing that you saved is lost.");
    TellProblem(this, QStringLiteral("This could not be done: %1 (failure %2).").arg(text).arg(number),
                told.join(u'\n'));
}

} // namespace rulemesh
