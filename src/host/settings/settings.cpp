#include "host/settings/settings.h"

#include <QStandardPaths>

namespace rulemesh {

namespace {

const QString EditorKey = QStringLiteral("editor");
const QString FontKey = QStringLiteral("font");
const QString HighlightingKey = QStringLiteral("highlighting");
const QString RecentKey = QStringLiteral("recent");
const QString GeometryKey = QStringLiteral("geometry");
const QString DocksKey = QStringLiteral("docks");
const QString FolderKey = QStringLiteral("folder");

} // namespace

Settings::Settings() : store_(std::make_unique<QSettings>(QStringLiteral("rulemesh"), QStringLiteral("rulemesh"))) {}

Settings::Settings(const QString& file) : store_(std::make_unique<QSettings>(file, QSettings::IniFormat)) {}

QString Settings::Editor() const { return store_->value(EditorKey).toString(); }

void Settings::Editor(const QString& command) { store_->setValue(EditorKey, command.trimmed()); }

std::optional<QFont> Settings::Font() const
{
    QFont font;
    const QString description = store_->value(FontKey).toString();
    return !description.isEmpty() && font.fromString(description) ? std::optional(font) : std::nullopt;
}

void Settings::Font(const std::optional<QFont>& font)
{
    if (font)
        store_->setValue(FontKey, font->toString());
    else
        store_->remove(FontKey);
}

bool Settings::Highlighting() const { return store_->value(HighlightingKey, true).toBool(); }

void Settings::Highlighting(bool on) { store_->setValue(HighlightingKey, on); }

RecentFiles Settings::Recent() const { return RecentFiles(store_->value(RecentKey).toStringList()); }

void Settings::Recent(const RecentFiles& files) { store_->setValue(RecentKey, files.Paths()); }

QByteArray Settings::Geometry() const { return store_->value(GeometryKey).toByteArray(); }

void Settings::Geometry(const QByteArray& geometry) { store_->setValue(GeometryKey, geometry); }

QByteArray Settings::Docks() const { return store_->value(DocksKey).toByteArray(); }

void Settings::Docks(const QByteArray& docks) { store_->setValue(DocksKey, docks); }

QString Settings::Folder() const
{
    return store_->value(FolderKey, QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)).toString();
}

void Settings::Folder(const QString& folder) { store_->setValue(FolderKey, folder); }

} // namespace rulemesh
