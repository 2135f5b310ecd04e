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
#include "host/builders/builders.h"
#include "host/builders/function_button.h"
#include "host/drafts/draft_keeper.h"
#include "host/reading/failure_advice.h"
#include "host/reading/field_numbers.h"
#include "host/settings/settings.h"
#include "host/window/host_boxes.h"
#include "host/window/start_page.h"

namespace rulemesh {

namespace {

// Map, Edit Rule and Comment stay in sight down to this width, in pixels.
constexpr int SmallestWidth = 750;

// The file that is being dragged over the window; "" for anything else.
QString DraggedFile(const QDropEvent& event)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 && urls.first().isLocalFile() ? urls.first().toLocalFile() : QString();
}

} // namespace

MainWindow::MainWindow(Settings& settings, DraftStore& drafts, DraftTimes draftTimes)
    : settings_(settings), drafts_(drafts), draftTimes_(draftTimes), hintLabel_(new QLabel), targetLabel_(new QLabel)
{
    setAcceptDrops(true);
    hintLabel_->setTextFormat(Qt::PlainText);
    hintLabel_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long hint widens no window
    statusBar()->addWidget(hintLabel_, 1);
    statusBar()->addPermanentWidget(targetLabel_);
    setMinimumWidth(SmallestWidth);
    MakeActions();
    ShowStartPage();
    connect(qApp, &QGuiApplication::commitDataRequest, this, &MainWindow::KeepDraft, Qt::DirectConnection);
    if (!restoreGeometry(settings_.Geometry()))
        resize(960, 620);
}

MainWindow::~MainWindow() { CloseObject(); }

void MainWindow::CloseObject()
{
    keeper_.reset();
    functionButton_.reset();
    builders_.reset();
    object_.reset(); // not taken out of the window before, which would go on naming it as its focus
}

void MainWindow::ShowStartPage()
{
    CloseObject();
    path_.clear();
    const RecentFiles recent = settings_.Recent();
    auto* page = new StartPage(recent.Paths(), recent.Captions(), this);
    connect(page, &StartPage::NewWanted, this, &MainWindow::AskForNew, Qt::QueuedConnection);
    connect(page, &StartPage::OpenWanted, this, &MainWindow::AskForFile, Qt::QueuedConnection);
    connect(
        page, &StartPage::FileWanted, this, [this](const QString& path) { OpenFile(path); }, Qt::QueuedConnection);
    setCentralWidget(page);
    UpdateActions();
}

void MainWindow::Show(Opening opening)
{
    CloseObject();
    path_ = opening.Path;
    stamp_ = StampOf(path_);
    object_ = std::make_unique<OpenObject>(opening.Text, opening.Mode, opening.From, settings_, *this);
    RulemeshWidget& designer = object_->Widget();
    builders_ = std::make_unique<Builders>(designer);
    functionButton_ = std::make_unique<FunctionButton>(designer);
    keeper_ = std::make_unique<DraftKeeper>(*object_, drafts_, path_, draftTimes_, std::move(opening.Handle));
    connect(object_.get(), &OpenObject::StateChanged, this, &MainWindow::UpdateActions);
    connect(object_.get(), &OpenObject::FailureRaised, this, &MainWindow::TellFailure);
    connect(&designer, &RulemeshWidget::HistoryChanged, this, &MainWindow::UpdateHistory);
    connect(keeper_.get(), &DraftKeeper::Failed, this, [this](const QString& text) {
        statusBar()->showMessage(QStringLiteral("No draft is being kept. ") + text);
    });
    TakeDropsFrom(designer);
    designer.setMinimumHeight(designer.sizeHint().height()); // below it the buttons of a panel go out of sight
    setCentralWidget(&designer);
    designer.Setfocus();
    UpdateActions();
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
                ImportCatalogue(path);
            else
                OpenFile(path);
        },
        Qt::QueuedConnection);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (QApplication::activeModalWidget() != nullptr || !MayLetGo()) {
        event->ignore();
        return;
    }
    settings_.Geometry(saveGeometry());
    event->accept();
}

bool MainWindow::MayEdit() const { return object_ && object_->AccessMode() == Access::Edit; }

// An object with faulty numbers would lose rules by being shown and saved.
bool MainWindow::AskForReadOnly(const QString& name, const ObjectText& text, Access& access)
{
    QStringList faults = FaultyFieldNumbers(text.Object.toStdString());
    if (faults.isEmpty())
        return true;
    faults.prepend(
        QStringLiteral("By these numbers rules would be shown at other fields, and be lost at a save. In the "
                       "file, give each field as No the number of its place: 1, 2, 3 and so on. Until then "
                       "the object can be looked at, but not saved."));
    access = Access::ReadOnly;
    return AskToGoOn(this, QStringLiteral("%1 has target tables with wrong numbers of fields.").arg(name),
                     faults.join(u'\n'), QStringLiteral("Open &Read-only"));
}

// The designer blocks a save while a panel is open, as the panel's text is in no document yet.
void MainWindow::TellOpenPanel(const QString& what)
{
    const bool functions = object_->Widget().Control().Views().txtFunctions.Visible();
    TellProblem(this, what,
                QStringLiteral("The panel of the %1 is open. Press its OK, which keeps its text, or its Cancel, which "
                               "drops it, and then try again.")
                    .arg(functions ? QStringLiteral("functions") : QStringLiteral("variables and includes")));
}

// One box for a failure, however many follow from it while the box is open.
void MainWindow::TellFailure(int number, const QString& text)
{
    if (tellingFailure_)
        return;
    const QScopedValueRollback<bool> guard(tellingFailure_, true);
    QStringList told = object_ ? FailureAdvice(object_->Widget().Control(), number) : QStringList();
    told += QStringLiteral("What was done before it stays done, and nothing that you saved is lost.");
    TellProblem(this, QStringLiteral("This could not be done: %1 (failure %2).").arg(text).arg(number),
                told.join(u'\n'));
}

} // namespace rulemesh
