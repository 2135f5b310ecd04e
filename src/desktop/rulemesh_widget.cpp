#include "desktop/rulemesh_widget.h"

#include <QEvent>
#include <QKeyEvent>
#include <QResizeEvent>

#include "desktop/desktop_platform.h"
#include "desktop/qt_text.h"
#include "desktop/view_surface.h"
#include "platform/private_folder_files.h"

namespace rulemesh {

// The control's events as the widget's signals.
class RulemeshWidget::SignalEvents : public ControlEvents {
public:
    explicit SignalEvents(RulemeshWidget& widget) : widget_(widget) {}

    void ShowSourceTablesPopUp(const Text& i_SourceTables) override
    {
        emit widget_.ShowSourceTablesPopUp(ToQt(i_SourceTables));
    }
    void ShowConditionBuilderPopUp(const Text& i_ConditionString, const Text& i_SourceTables) override
    {
        emit widget_.ShowConditionBuilderPopUp(ToQt(i_ConditionString), ToQt(i_SourceTables));
    }
    void ShowQueryBuilderPopUp(const Text& i_QueryString, const Text& i_SourceTables) override
    {
        emit widget_.ShowQueryBuilderPopUp(ToQt(i_QueryString), ToQt(i_SourceTables));
    }
    void ShowFunctionBuilderPopUp(const Text& StrCondition, const Text& StrSourceTables) override
    {
        emit widget_.ShowFunctionBuilderPopUp(ToQt(StrCondition), ToQt(StrSourceTables));
    }
    void ShowFunctionalTextPopUp(const Text& DocType, std::int32_t LngTextNumber, const Text& StrKey1,
                                 const Text& StrKey2) override
    {
        emit widget_.ShowFunctionalTextPopUp(ToQt(DocType), LngTextNumber, ToQt(StrKey1), ToQt(StrKey2));
    }
    void SaveDoneDisabled() override { emit widget_.SaveDoneDisabled(); }
    void SaveDoneEnabled() override { emit widget_.SaveDoneEnabled(); }
    void WorkChanged() override { emit widget_.WorkChanged(); }
    void HistoryChanged() override { emit widget_.HistoryChanged(); }

private:
    RulemeshWidget& widget_;
};

// The control's history for the boxes.
class RulemeshWidget::History : public ViewSurface::StepHistory {
public:
    explicit History(RulemeshWidget& widget) : widget_(widget) {}

    void Undo() override { widget_.Undo(); }
    void Redo() override { widget_.Redo(); }
    [[nodiscard]] bool CanUndo() const override { return !widget_.UndoText().isEmpty(); }
    [[nodiscard]] bool CanRedo() const override { return !widget_.RedoText().isEmpty(); }

private:
    RulemeshWidget& widget_;
};

RulemeshWidget::RulemeshWidget(QWidget* parent)
    : RulemeshWidget(std::make_unique<PrivateFolderFiles>(SystemCodePage()), parent)
{
}

RulemeshWidget::RulemeshWidget(std::unique_ptr<TextFiles> files, QWidget* parent) : QWidget(parent)
{
    platform_ = std::make_unique<DesktopPlatform>(*this, std::move(files));
    events_ = std::make_unique<SignalEvents>(*this);
    Build(*platform_, *events_);
    platform_->BeforeWaiting = [this] { surface_->Sync(); };
}

RulemeshWidget::RulemeshWidget(Platform& platform, ControlEvents& events, QWidget* parent) : QWidget(parent)
{
    Build(platform, events);
}

RulemeshWidget::~RulemeshWidget() = default;

void RulemeshWidget::Build(Platform& platform, ControlEvents& events)
{
    setFocusPolicy(Qt::StrongFocus); // a click in here must not give the focus to a widget of the host around
    setAccessibleName(QStringLiteral("Mapping designer"));
    QFont font = this->font();
    font.setPointSizeF(Font().Size);
    setFont(font);
    control_ = std::make_unique<ctlRulemesh>(platform, events);
    surface_ = std::make_unique<ViewSurface>(control_->Views().Tree, *this);
    surface_->OnFailure = [this](const Failure& failure) {
        emit FailureRaised(failure.Number(), ToQt(failure.Description()));
    };
    surface_->OnActed = [this] { emit Acted(); };
    history_ = std::make_unique<History>(*this);
    surface_->History = history_.get();
}

void RulemeshWidget::SetBoxTitle(const QString& title)
{
    if (platform_ != nullptr)
        platform_->DefaultTitle = title;
}

QSize RulemeshWidget::sizeHint() const { return {surface_->Pixels(DesignWidth), surface_->Pixels(DesignHeight)}; }

// The control has no minimum size; what it can't show, a host that is too small doesn't.
QSize RulemeshWidget::minimumSizeHint() const { return {1, 1}; }

QString RulemeshWidget::TargetTable() const { return ToQt(TrimBlanks(control_->State().StrTargetTable)); }

bool RulemeshWidget::Edit() const { return control_->State().BoolEdit; }

QString RulemeshWidget::Editor() const { return ToQt(control_->State().StrEditor); }

bool RulemeshWidget::Syntax_Highlight() const { return control_->Syntax_Highlight(); }

QString RulemeshWidget::MappingObjectXML()
{
    const QByteArray utf8 = MappingObjectXmlUtf8();
    return utf8.isNull() ? QString() : QString::fromUtf8(utf8);
}

QByteArray RulemeshWidget::MappingObjectXmlUtf8()
{
    QByteArray utf8;
    surface_->Act([&] { utf8 = QByteArray::fromStdString(control_->MappingObjectXmlUtf8()); });
    return utf8;
}

QString RulemeshWidget::SourceTables() const { return ToQt(control_->SourceTables()); }

QString RulemeshWidget::MainQuery() const { return ToQt(control_->MainQuery()); }

QString RulemeshWidget::FieldMapping() const { return ToQt(control_->FieldMapping()); }

int RulemeshWidget::GetListItemNumber(const QString& strFieldName) const
{
    return control_->GetListItemNumber(FromQt(strFieldName));
}

int RulemeshWidget::GetRowNumber(const QString& i_StrFieldName) const
{
    return control_->GetRowNumber(FromQt(i_StrFieldName));
}

QString RulemeshWidget::UndoText() const { return ToQt(control_->UndoText()); }

QString RulemeshWidget::RedoText() const { return ToQt(control_->RedoText()); }

QStringList RulemeshWidget::StepNames() const
{
    QStringList names;
    for (const Text& name : control_->StepNames())
        names += ToQt(name);
    return names;
}

int RulemeshWidget::StepsDone() const { return static_cast<int>(control_->StepsDone()); }

bool RulemeshWidget::Undo()
{
    bool done = false;
    surface_->GoBack([&] { done = control_->Undo(); });
    return done;
}

bool RulemeshWidget::Redo()
{
    bool done = false;
    surface_->GoBack([&] { done = control_->Redo(); });
    return done;
}

bool RulemeshWidget::GoToStep(int done)
{
    bool gone = false;
    if (done >= 0)
        surface_->GoBack([&] { gone = control_->GoToStep(static_cast<std::size_t>(done)); });
    return gone;
}

void RulemeshWidget::TakeFocusOut()
{
    surface_->Act([this] { control_->Views().Tree.UserLeaves(); });
}

void RulemeshWidget::TargetTable(const QString& StrTable)
{
    surface_->Act([&] { control_->TargetTable(FromQt(StrTable)); });
}

void RulemeshWidget::Edit(bool BoolEdit)
{
    surface_->Act([&] { control_->Edit(BoolEdit); });
}

void RulemeshWidget::Editor(const QString& StrEditor)
{
    surface_->Act([&] { control_->Editor(FromQt(StrEditor)); });
}

void RulemeshWidget::Syntax_Highlight(bool BoolHighlight)
{
    surface_->Act([&] { control_->Syntax_Highlight(BoolHighlight); });
}

void RulemeshWidget::MappingObjectXML(const QString& StrXml)
{
    surface_->Act([&] { control_->MappingObjectXML(FromQt(StrXml)); });
}

void RulemeshWidget::MappingObjectXmlUtf8(const QByteArray& utf8)
{
    surface_->Act([&] { control_->MappingObjectXML(utf8.toStdString()); });
}

void RulemeshWidget::SourceTables(const QString& i_SourceTables)
{
    surface_->Act([&] { control_->SourceTables(FromQt(i_SourceTables)); });
}

void RulemeshWidget::PreCondition(const QString& StrText)
{
    surface_->Act([&] { control_->PreCondition(FromQt(StrText)); });
}

void RulemeshWidget::MainQuery(const QString& StrText)
{
    surface_->Act([&] { control_->MainQuery(FromQt(StrText)); });
}

void RulemeshWidget::FieldMapping(const QString& StrRule)
{
    surface_->Act([&] { control_->FieldMapping(FromQt(StrRule)); });
}

void RulemeshWidget::ShowControl()
{
    surface_->Act([this] { control_->ShowControl(); });
    if (const QString root = ToQt(control_->ForeignRoot()); !root.isEmpty()) {
        qWarning("RulemeshWidget: nothing is shown, since the object's root is \"%s\" and TargetTable is \"%s\"",
                 qUtf8Printable(root), qUtf8Printable(ToQt(control_->State().StrTargetTable)));
        emit RootIsForeign(root);
    }
}

void RulemeshWidget::SetTextNumber(const QString& StrType, int LngTextNumber, const QString& StrKey1,
                                   const QString& StrKey2)
{
    surface_->Act([&] { control_->SetTextNumber(FromQt(StrType), LngTextNumber, FromQt(StrKey1), FromQt(StrKey2)); });
}

void RulemeshWidget::Setfocus()
{
    surface_->Act([this] { control_->Setfocus(); });
}

void RulemeshWidget::GridEdit(int KeyAscii)
{
    surface_->Act([&] { control_->GridEdit(static_cast<std::int16_t>(KeyAscii)); });
}

void RulemeshWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (layoutPasses_ == LayoutPasses::WhenResized)
        surface_->Act([this] { control_->Resize(surface_->Twips(width()), surface_->Twips(height())); });
}

void RulemeshWidget::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    const bool looksChanged = event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange;
    if (looksChanged && surface_ != nullptr)
        surface_->SyncAll();
}

// The host brought the focus here: on the first view in the order of the tab key, or the last when it came from behind.
void RulemeshWidget::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    if (surface_->IsSyncing())
        return;
    const bool tabbed = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (tabbed && control_->Views().Tree.Focused() == nullptr)
        surface_->MoveFocusByTab(event->reason() == Qt::TabFocusReason);
    else
        surface_->FollowFocus();
}

void RulemeshWidget::keyPressEvent(QKeyEvent* event)
{
    if (!surface_->PressKey(*event))
        QWidget::keyPressEvent(event);
}

bool RulemeshWidget::focusNextPrevChild(bool next)
{
    return surface_->MoveFocusByTab(next) || QWidget::focusNextPrevChild(next);
}

} // namespace rulemesh
