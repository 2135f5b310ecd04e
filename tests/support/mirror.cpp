#include "support/mirror.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>

#include "desktop/form_dialog.h"
#include "desktop/rulemesh_widget.h"
#include "desktop/view_surface.h"
#include "support/mirror_widgets.h"
#include "views/view_tree.h"

namespace rulemesh {

namespace {

void Append(std::vector<std::string>& sentences, std::vector<std::string> more)
{
    sentences.insert(sentences.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

QString NameOf(const QObject* object)
{
    if (object == nullptr)
        return QStringLiteral("nothing");
    return object->objectName().isEmpty() ? QLatin1String(object->metaObject()->className()) : object->objectName();
}

// Where the toolkit has the focus of the window must be where the model has it, once keys come to the window; a menu
// may borrow it.
void CompareFocus(const ViewTree& tree, const QWidget& root, std::vector<std::string>& sentences)
{
    const QWidget* holder = root.window()->focusWidget();
    if (!root.window()->isActiveWindow() || qobject_cast<const QMenuBar*>(holder) != nullptr ||
        qobject_cast<const QMenu*>(holder) != nullptr)
        return;
    // A button that its own click has disabled keeps the focus until the click has ended; no widget can show that.
    const View* focused = tree.Focused() != nullptr && tree.Focused()->CanBeReached() ? tree.Focused() : nullptr;
    const bool onView = holder != nullptr && holder != &root && root.isAncestorOf(holder);
    const QString held = focused == nullptr ? QString() : ToQt(focused->Name());
    const QString shown = onView ? NameOf(holder) : QString();
    if (shown != held)
        sentences.push_back(QStringLiteral("focus: the window has it on %1, the model on %2")
                                .arg(NameOf(holder), held.isEmpty() ? QStringLiteral("no view") : held)
                                .toStdString());
}

} // namespace

std::vector<std::string> Differences(const ViewTree& tree, const QWidget& root)
{
    std::vector<std::string> sentences;
    CompareFocus(tree, root, sentences);
    for (const View* view : tree.Views()) {
        Findings byWidget(*view, "widget");
        auto* widget = root.findChild<QWidget*>(ToQt(view->Name()));
        if (widget == nullptr) {
            byWidget.Say(QStringLiteral("has no widget"));
            Append(sentences, std::move(byWidget.Sentences()));
            continue;
        }
        CompareWidget(*view, root, *widget, byWidget);
        Append(sentences, std::move(byWidget.Sentences()));
        Findings byReader(*view, "screen reader");
        CompareAccessible(*view, root, *widget, byReader);
        Append(sentences, std::move(byReader.Sentences()));
    }
    return sentences;
}

std::vector<std::string> Differences(RulemeshWidget& designer)
{
    QCoreApplication::sendPostedEvents(&designer.Surface(), QEvent::MetaCall); // what is queued to be shown
    return Differences(designer.Control().Views().Tree, designer);
}

std::vector<std::string> DifferencesEverywhere()
{
    std::vector<std::string> sentences;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* dialog = qobject_cast<FormDialog*>(window); dialog != nullptr && dialog->isVisible())
            Append(sentences, Differences(dialog->Surface().Tree(), dialog->Surface().Root()));
        if (auto* designer = qobject_cast<RulemeshWidget*>(window))
            Append(sentences, Differences(*designer));
        for (RulemeshWidget* designer : window->findChildren<RulemeshWidget*>())
            Append(sentences, Differences(*designer));
    }
    return sentences;
}

} // namespace rulemesh
