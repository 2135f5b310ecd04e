#include "host/window/designer_settings.h"

#include <QFontDatabase>
#include <QFontDialog>
#include <QInputDialog>

#include "desktop/qt_text.h"
#include "host/settings/settings.h"
#include "host/window/current_object.h"
#include "platform/process_launcher.h"

namespace rulemesh {

DesignerSettings::DesignerSettings(Settings& settings, CurrentObject& current, QWidget& window)
    : settings_(settings), current_(current), window_(window)
{
}

void DesignerSettings::Highlight(bool on)
{
    settings_.Highlighting(on);
    if (OpenObject* object = current_.Object())
        object->UseHighlighting(on);
}

void DesignerSettings::AskForFont()
{
    const QFont start = settings_.Font().value_or(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    bool chosen = false;
    const QFont font = QFontDialog::getFont(&chosen, start, &window_, QStringLiteral("Font of Scripts"));
    if (!chosen)
        return;
    settings_.Font(font);
    if (OpenObject* object = current_.Object())
        object->UseScriptFont(font);
}

void DesignerSettings::AskForEditor()
{
    const QString fallback = ToQt(FallbackEditor()).trimmed();
    const QString found = fallback.isEmpty() ? QStringLiteral("none is installed") : fallback;
    bool chosen = false;
    const QString command = QInputDialog::getText(
        &window_, QStringLiteral("External Editor"),
        QStringLiteral(
            "Command that edits a file and ends when the file is closed.\nLeave it empty for the first editor "
            "found on this system (%1):")
            .arg(found),
        QLineEdit::Normal, settings_.Editor(), &chosen);
    if (!chosen)
        return;
    settings_.Editor(command);
    if (OpenObject* object = current_.Object())
        object->UseEditor(settings_.Editor());
}

} // namespace rulemesh
