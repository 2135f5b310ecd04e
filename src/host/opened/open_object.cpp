#include "host/opened/open_object.h"

#include <array>

#include "desktop/rulemesh_widget.h"
#include "desktop/view_surface.h"
#include "host/builders/builders.h"
#include "host/builders/function_button.h"
#include "host/files/application_files.h"
#include "host/settings/settings.h"

namespace rulemesh {

namespace {

constexpr int PauseBeforeLooking = 300; // milliseconds

std::array<const View*, 4> ScriptBoxes(DesignerViews& views)
{
    return {&views.txtPreCondition, &views.txtMainQuery, &views.txtFunctions, &views.txtVariables};
}

} // namespace

OpenObject::OpenObject(const ObjectText& text, Access access, Origin origin, const Settings& settings, QWidget& parent)
    : lead_(text.Lead), access_(access), widget_(new RulemeshWidget(std::make_unique<ApplicationFiles>(), &parent))
{
    widget_->SetBoxTitle(QStringLiteral("Rulemesh"));
    connect(widget_, &RulemeshWidget::FailureRaised, this, [this](int number, const QString& description) {
        failed_ = true;
        emit FailureRaised(number, description);
    });
    connect(widget_, &RulemeshWidget::SaveDoneDisabled, this, [this] { AllowSave(false); });
    connect(widget_, &RulemeshWidget::SaveDoneEnabled, this, [this] { AllowSave(true); });
    pause_.setSingleShot(true);
    pause_.setInterval(PauseBeforeLooking);
    connect(&pause_, &QTimer::timeout, this, &OpenObject::LookForChanges);
    systemScriptFont_ = widget_->Surface().WidgetOf(widget_->Control().Views().txtPreCondition).font();

    Show(text, settings);
    builders_ = std::make_unique<Builders>(*widget_);
    functionButton_ = std::make_unique<FunctionButton>(*widget_);
    if (origin == Origin::File)
        NoteSaved();
    seemsChanged_ = origin == Origin::Unsaved;
    connect(widget_, &RulemeshWidget::Acted, this, [this] {
        if (!seemsChanged_)
            pause_.start();
    });
}

OpenObject::~OpenObject()
{
    functionButton_.reset();
    builders_.reset();
    gate_.reset();
    delete widget_;
}

void OpenObject::Show(const ObjectText& text, const Settings& settings)
{
    UseEditor(settings.Editor());
    UseHighlighting(settings.Highlighting());
    UseScriptFont(settings.Font());
    widget_->TargetTable(RootName(text.Object));
    widget_->Edit(access_ == Access::Edit);
    widget_->MappingObjectXmlUtf8(text.Object);
    widget_->ShowControl();
    gate_ = std::make_unique<RulesGate>(*widget_);
    gate_->OpenAtStart();
    connect(gate_.get(), &RulesGate::HintChanged, this, &OpenObject::StateChanged);
}

bool OpenObject::HasChanges()
{
    if (access_ == Access::ReadOnly)
        return false;
    if (!saved_)
        return true;
    const std::string document = widget_->Control().DocumentAsItStands();
    if (document != saved_->Document)
        return true;
    const UnsavedTexts texts = TakeUnsavedTexts(widget_->Control());
    return texts != saved_->Texts && WithUnsavedTexts(document, texts) != saved_->Object;
}

void OpenObject::LookForChanges()
{
    const bool changed = HasChanges();
    if (changed == seemsChanged_)
        return;
    seemsChanged_ = changed;
    emit StateChanged();
}

ObjectText OpenObject::AsItStands() { return {lead_, QByteArray::fromStdString(ObjectAsItStands(widget_->Control()))}; }

bool OpenObject::CommitOpenEdits()
{
    failed_ = false;
    widget_->TakeFocusOut();
    return !failed_;
}

std::optional<ObjectText> OpenObject::TextToSave()
{
    if (!CommitOpenEdits())
        return std::nullopt;
    const QByteArray object = widget_->MappingObjectXmlUtf8();
    if (failed_ || object.isEmpty())
        return std::nullopt;
    return ObjectText{lead_, object};
}

void OpenObject::NoteSaved()
{
    const std::string document = widget_->Control().DocumentAsItStands();
    const UnsavedTexts texts = TakeUnsavedTexts(widget_->Control());
    saved_ = Baseline{document, texts, WithUnsavedTexts(document, texts)};
    LookForChanges();
}

void OpenObject::AllowSave(bool allow)
{
    maySave_ = allow;
    emit StateChanged();
}

void OpenObject::UseEditor(const QString& command) { widget_->Editor(command); }

void OpenObject::UseHighlighting(bool on) { widget_->Syntax_Highlight(on); }

void OpenObject::UseScriptFont(const std::optional<QFont>& font)
{
    for (const View* box : ScriptBoxes(widget_->Control().Views()))
        widget_->Surface().WidgetOf(*box).setFont(font.value_or(systemScriptFont_));
}

} // namespace rulemesh
