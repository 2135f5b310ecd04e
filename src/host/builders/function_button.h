#pragma once

#include <QObject>

namespace rulemesh {

class RulemeshWidget;

/// Offers the function builder in the designer: shows its button, which the designer's own layout keeps hidden, behind
/// the other rule buttons or, where it is too narrow for that, above the source fields. The button can be pressed while
/// the column of the rules is current, so that what the builder answers can't land on a field's key.
class FunctionButton : public QObject {
    Q_OBJECT

public:
    /// The widget must outlive this.
    explicit FunctionButton(RulemeshWidget& widget);

    /// Whether a rule is current that the user may change.
    [[nodiscard]] static bool MayBuild(RulemeshWidget& widget);

private:
    void Place();

    RulemeshWidget& widget_;
};

} // namespace rulemesh
