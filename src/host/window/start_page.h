#pragma once

#include <QWidget>

namespace rulemesh {

/// What the window shows while no object is open.
class StartPage : public QWidget {
    Q_OBJECT

public:
    explicit StartPage(const QStringList& recent, const QStringList& captions, QWidget* parent);

signals:
    void NewWanted();
    void OpenWanted();
    void FileWanted(const QString& path);
};

} // namespace rulemesh
