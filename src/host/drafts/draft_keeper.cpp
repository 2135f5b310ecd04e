#include "host/drafts/draft_keeper.h"

#include <exception>

#include "desktop/rulemesh_widget.h"
#include "host/files/host_error.h"
#include "host/opened/open_object.h"

namespace rulemesh {

DraftKeeper::DraftKeeper(OpenObject& object, DraftStore& store, QString file, DraftTimes times,
                         std::unique_ptr<Draft> recovered)
    : object_(object), store_(store), file_(std::move(file)), draft_(std::move(recovered))
{
    if (object_.AccessMode() == Access::ReadOnly)
        return;
    pause_.setSingleShot(true);
    pause_.setInterval(times.Pause);
    connect(&object_.Widget(), &RulemeshWidget::Acted, &pause_, qOverload<>(&QTimer::start));
    connect(&pause_, &QTimer::timeout, this, &DraftKeeper::Turn);
    connect(&clock_, &QTimer::timeout, this, &DraftKeeper::Turn);
    pause_.start(); // what was opened may be unsaved already
    clock_.start(times.Turn);
}

void DraftKeeper::Drop(const QString& file)
{
    file_ = file;
    written_.clear();
    try {
        if (draft_)
            draft_->Discard();
    } catch (const HostError& error) {
        emit Warned(error.Text());
    }
    draft_.reset(); // the next one bears the name of the file that the object has by then
}

void DraftKeeper::Turn()
{
    try {
        if (object_.HasChanges())
            Write();
        else if (draft_)
            Drop(file_);
    } catch (const std::exception& error) { // an object that can't be told, or a draft that can't be written
        if (!std::exchange(failed_, true))
            emit Warned(QStringLiteral("No draft is being kept. ") + QString::fromUtf8(error.what()));
    }
}

void DraftKeeper::Write()
{
    const ObjectText text = object_.AsItStands();
    if (text.Object == written_)
        return;
    if (!draft_)
        draft_ = store_.Begin(file_);
    draft_->Write(file_, text);
    written_ = text.Object;
    failed_ = false;
}

} // namespace rulemesh
