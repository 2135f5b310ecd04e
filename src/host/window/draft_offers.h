#pragma once

#include <vector>

#include <QObject>

#include "host/drafts/draft_store.h"

class QWidget;

namespace rulemesh {

class CurrentObject;

/// Offers the drafts that programs left behind when they ended without saving.
class DraftOffers : public QObject {
    Q_OBJECT

public:
    /// All must outlive this.
    DraftOffers(CurrentObject& current, DraftStore& drafts, QWidget& window);

    [[nodiscard]] bool HasAny() const { return !drafts_.Orphans().empty(); }

    /// Offers all, or those of one file, if there are any.
    void Offer();
    void OfferFor(const QString& file);

    /// Tells without a question that there are drafts to recover.
    void Mention();

signals:
    /// Something to be said without a box: for a moment, or until something else is said.
    void Noticed(const QString& text);
    void Warned(const QString& text);

private:
    void Offer(std::vector<DraftStore::Orphan> orphans);
    void Discard(const DraftStore::Orphan& orphan);
    void Recover(const DraftStore::Orphan& orphan);

    CurrentObject& current_;
    DraftStore& drafts_;
    QWidget& window_;
};

} // namespace rulemesh
