#pragma once

#include <QDockWidget>
#include <QPointer>

#include "host/window/steps_model.h"

class QListView;

namespace rulemesh {

class RulemeshWidget;

/// The steps of the open object in a list, to go to any of them at once by a click or by Enter. Closed until the user
/// asks for it.
///
/// A click leaves the focus where it is: taking it out of the designer would be one more thing that the user did. Going
/// to a step brings the focus back to where it was at that step.
class StepsDock : public QDockWidget {
    Q_OBJECT

public:
    explicit StepsDock(QWidget* parent);

    /// Shows the steps of this designer from now on, or none.
    void Follow(RulemeshWidget* designer);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Refresh();
    void GoTo(const QModelIndex& index);
    void Leave();

    QPointer<RulemeshWidget> designer_;
    StepsModel model_;
    QListView* list_;
};

} // namespace rulemesh
