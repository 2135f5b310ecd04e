#pragma once

#include <memory>

#include <QObject>
#include <QTimer>

#include "host/drafts/draft_store.h"

namespace rulemesh {

class OpenObject;

/// When a draft is written, in milliseconds: a pause after the last thing that the user did, and in turns while he goes
/// on.
struct DraftTimes {
    int Pause = 1000;
    int Turn = 15000;
};

/// Keeps the draft of one open object: written while there are changes, gone when there are none any more. The last
/// draft stands when the program ends in any other way.
class DraftKeeper : public QObject {
    Q_OBJECT

public:
    /// `recovered` is the draft that the object came from, if any. Everything given must outlive the keeper.
    DraftKeeper(OpenObject& object, DraftStore& store, QString file, DraftTimes times,
                std::unique_ptr<Draft> recovered);

    /// The object has been saved to this file, or its changes are not wanted.
    void Drop(const QString& file);

    /// Gives the draft, if there is one, to the keeper of the object that takes this one's place.
    [[nodiscard]] std::unique_ptr<Draft> Release() { return std::move(draft_); }

    /// Writes the draft now if there are changes.
    void Turn();

signals:
    /// The draft can't be written, which is told once, until one can be written again; or one can't be removed.
    void Warned(const QString& text);

private:
    void Write();

    OpenObject& object_;
    DraftStore& store_;
    QString file_;
    std::unique_ptr<Draft> draft_;
    QByteArray written_;
    bool failed_ = false;
    QTimer pause_;
    QTimer clock_;
};

} // namespace rulemesh
