#include "host/window/draft_offers.h"

#include "host/drafts/recover_dialog.h"
#include "host/files/host_error.h"
#include "host/window/current_object.h"
#include "host/window/host_boxes.h"

namespace rulemesh {

DraftOffers::DraftOffers(CurrentObject& current, DraftStore& drafts, QWidget& window)
    : current_(current), drafts_(drafts), window_(window)
{
}

void DraftOffers::Offer() { Offer(drafts_.Orphans()); }

void DraftOffers::OfferFor(const QString& file) { Offer(drafts_.OrphansOf(file)); }

void DraftOffers::Mention()
{
    if (HasAny())
        emit Warned(QStringLiteral("There are unsaved changes of other objects: File > Recover Drafts"));
}

void DraftOffers::Offer(std::vector<DraftStore::Orphan> orphans)
{
    while (!orphans.empty()) {
        RecoverDialog dialog(orphans, &window_);
        dialog.exec();
        if (dialog.Answer() == RecoverDialog::Choice::Later)
            return;
        const DraftStore::Orphan chosen = dialog.Chosen();
        if (dialog.Answer() == RecoverDialog::Choice::Recover)
            return Recover(chosen);
        Discard(chosen);
        std::erase_if(orphans, [&](const DraftStore::Orphan& orphan) { return orphan.Path == chosen.Path; });
    }
}

void DraftOffers::Discard(const DraftStore::Orphan& orphan)
{
    try {
        if (const DraftStore::Recovered draft = drafts_.TakeOver(orphan); draft.Handle)
            draft.Handle->Discard();
    } catch (const HostError& error) {
        TellProblem(&window_, QStringLiteral("The draft can't be discarded."), error.Text());
    }
}

void DraftOffers::Recover(const DraftStore::Orphan& orphan)
{
    if (!current_.MayLetGo())
        return;
    try {
        DraftStore::Recovered draft = drafts_.TakeOver(orphan);
        if (!draft.Handle)
            throw HostError(QStringLiteral("Another window has recovered this draft already."));
        if (current_.Recover(std::move(draft)))
            emit Noticed(QStringLiteral("Recovered. Save to keep it."));
    } catch (const HostError& error) {
        TellProblem(&window_, QStringLiteral("The draft can't be recovered."), error.Text());
    }
}

} // namespace rulemesh
