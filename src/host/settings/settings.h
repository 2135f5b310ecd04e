#pragma once

#include <memory>
#include <optional>

#include <QByteArray>
#include <QFont>
#include <QSettings>
#include <QString>

#include "host/settings/recent_files.h"

namespace rulemesh {

/// What the application remembers from one start to the next. The designer itself has no settings; it is handed these.
class Settings {
public:
    /// The user's own settings.
    Settings();

    /// Settings in a file of the caller's.
    explicit Settings(const QString& file);

    /// The command of the external editor; "" for the first one found on this system.
    [[nodiscard]] QString Editor() const;
    void Editor(const QString& command);

    /// The application's font; nothing for the system's.
    [[nodiscard]] std::optional<QFont> Font() const;
    void Font(const std::optional<QFont>& font);

    [[nodiscard]] bool Highlighting() const;
    void Highlighting(bool on);

    [[nodiscard]] RecentFiles Recent() const;
    void Recent(const RecentFiles& files);

    [[nodiscard]] QByteArray Geometry() const;
    void Geometry(const QByteArray& geometry);

    /// Which docks are shown, and where.
    [[nodiscard]] QByteArray Docks() const;
    void Docks(const QByteArray& docks);

    /// The folder that the last file dialog ended in.
    [[nodiscard]] QString Folder() const;
    void Folder(const QString& folder);

private:
    std::unique_ptr<QSettings> store_;
};

} // namespace rulemesh
