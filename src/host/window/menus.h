#pragma once

#include <functional>

#include <QKeySequence>
#include <QList>
#include <QObject>

class QAction;
class QDockWidget;
class QMainWindow;
class QMenu;

namespace rulemesh {

class CatalogueImport;
class CurrentObject;
class DesignerSettings;
class DraftOffers;
class Settings;

/// The menus of the window: what stands in them, which entries can be chosen, and what they say.
class Menus : public QObject {
    Q_OBJECT

public:
    /// Those who do what the entries say.
    struct Doers {
        CurrentObject& Current;
        DraftOffers& Drafts;
        CatalogueImport& Import;
        DesignerSettings& Designer;
    };

    /// Fills the menu bar of the window; each dock can be shown and closed. All must outlive this.
    Menus(QMainWindow& window, Doers doers, const QList<QDockWidget*>& docks, Settings& settings);

    /// Brings the entries to what is open now.
    void Update();

private:
    QAction* Add(QMenu& menu, const QString& caption, const QKeySequence& keys, std::function<void()> does);
    void MakeFileMenu();
    void MakeEditMenu();
    void MakeViewMenu(const QList<QDockWidget*>& docks);
    void MakeDesignerMenu();
    void MakeHelpMenu();
    void FillRecent();
    void UpdateHistory();
    void ReadOnly(bool on);
    void ShowAbout();

    QMainWindow& window_;
    Doers doers_;
    Settings& settings_;

    QMenu* recent_ = nullptr;
    QAction* undo_ = nullptr;
    QAction* redo_ = nullptr;
    QAction* save_ = nullptr;
    QAction* saveAs_ = nullptr;
    QAction* close_ = nullptr;
    QAction* import_ = nullptr;
    QAction* readOnly_ = nullptr;
};

} // namespace rulemesh
