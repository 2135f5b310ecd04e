#pragma once

#include <QObject>

class QWidget;

namespace rulemesh {

class CurrentObject;
class Settings;

/// Changes how designers are set up: asks the user, remembers the answer, and gives it to the open object.
class DesignerSettings : public QObject {
    Q_OBJECT

public:
    /// All must outlive this.
    DesignerSettings(Settings& settings, CurrentObject& current, QWidget& window);

    void Highlight(bool on);
    void AskForFont();
    void AskForEditor();

private:
    Settings& settings_;
    CurrentObject& current_;
    QWidget& window_;
};

} // namespace rulemesh
