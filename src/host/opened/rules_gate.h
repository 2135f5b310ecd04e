#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include "base/text.h"

namespace rulemesh {

class RulemeshWidget;

/// Keeps the rules tab from staying shut without a word. A table that the precondition newly migrates is entered in the
/// source tables by one reading of the script, and the next one opens the rules: where the catalogue has all that it
/// takes, the gate brings that reading about; where it lacks a table, the gate says so.
class RulesGate : public QObject {
    Q_OBJECT

public:
    /// The widget must outlive this.
    explicit RulesGate(RulemeshWidget& widget);

    /// Looks now: right after an object came on the screen, when nothing in it can get lost.
    void OpenAtStart();

    /// Why the rules are shut and what to do; "" while they are open.
    [[nodiscard]] const QString& Hint() const noexcept { return hint_; }

signals:
    /// Hint answers otherwise than before.
    void HintChanged();

private:
    enum class Reading { ByShowControl, ByPreCondition };
    void Look();
    void OpenBy(Reading reading);
    [[nodiscard]] QString TryToOpen(Reading reading);
    [[nodiscard]] bool IsShut();

    RulemeshWidget& widget_;
    QTimer pause_;
    QString hint_;
    Text tried_; // the precondition that was read anew last, to no avail
};

} // namespace rulemesh
