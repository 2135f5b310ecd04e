#include "host/draft_keeper.h"

#include "host/host_error.h"
#include "host/open_object.h"

namespace rulemesh {

DraftKeeper::DraftKeeper(OpenObject& object, DraftStore& store, QString file, int milliseconds,
                         std::unique_ptr<Draft> recovered)
    : object_(object), store_(store), file_(std::move(file)), draft_(std::move(recovered))
{
    connect(&clock_, &QTimer::timeout, this, &DraftKeeper::Turn);
    if (object_.AccessMode() == Access::Edit)
        clock_.start(milliseconds);
}

void DraftKeeper::Drop(const QString& file)
{
    file_ = file;
    written_.clear();
    if (draft_)
        draft_->Discard();
    draft_.reset(); // the next one bears the name of the file that the object has by then
}

void DraftKeeper::Turn()
{
    if (!object_.HasChanges()) {
        if (draft_)
            Drop(file_);
        return;
    }
    try {
        Write();
    } catch (const HostError& error) {
        if (!std::exchange(failed_, true))
            emit Failed(error.Text());
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
