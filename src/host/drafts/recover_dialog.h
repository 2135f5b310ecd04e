#pragma once

#include <optional>
#include <vector>

#include <QDialog>

#include "host/drafts/draft_store.h"

class QListWidget;

namespace rulemesh {

/// Offers the drafts that programs left behind.
class RecoverDialog : public QDialog {
    Q_OBJECT

public:
    RecoverDialog(std::vector<DraftStore::Orphan> orphans, QWidget* parent);

    enum class Choice { Recover, Discard, Later };

    /// What the user wants of the draft that is Chosen. Closing the form means later.
    [[nodiscard]] Choice Answer() const noexcept { return answer_; }
    [[nodiscard]] const DraftStore::Orphan& Chosen() const;

private:
    void Choose(Choice choice);

    std::vector<DraftStore::Orphan> orphans_;
    QListWidget* list_;
    Choice answer_ = Choice::Later;
};

} // namespace rulemesh
