#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace rulemesh {

class CurrentObject;
class Settings;

/// Adds the tables of a catalogue to the open object, or replaces them there, after telling which.
class CatalogueImport : public QObject {
    Q_OBJECT

public:
    /// All must outlive this.
    CatalogueImport(CurrentObject& current, const Settings& settings, QWidget& window);

    /// Asks for the file.
    void Ask();

    void Import(const QString& path);

private:
    CurrentObject& current_;
    const Settings& settings_;
    QWidget& window_;
};

} // namespace rulemesh
