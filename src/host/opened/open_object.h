#pragma once

#include <memory>
#include <optional>

#include <QFont>
#include <QObject>
#include <QTimer>

#include "host/files/object_file.h"
#include "host/opened/rules_gate.h"
#include "host/reading/unsaved_texts.h"

class QWidget;

namespace rulemesh {

class Builders;
class FunctionButton;
class RulemeshWidget;
class Settings;

/// Whether the user may change an object.
enum class Access { Edit, ReadOnly };

/// What an object is when it comes on the screen: as its file holds it, or something that no file holds yet.
enum class Origin { File, Unsaved };

/// One designer with the object that it was made for and the answers to its builder events, from New, Open or recovery
/// on until the next one.
class OpenObject : public QObject {
    Q_OBJECT

public:
    OpenObject(const ObjectText& text, Access access, Origin origin, const Settings& settings, QWidget& parent);
    ~OpenObject() override;

    [[nodiscard]] RulemeshWidget& Widget() noexcept { return *widget_; }
    [[nodiscard]] Access AccessMode() const noexcept { return access_; }

    /// Whether closing now would lose something. Looks at document and boxes; saves nothing and asks nothing.
    [[nodiscard]] bool HasChanges();

    /// The last answer of HasChanges, which is asked again a moment after the user did something.
    [[nodiscard]] bool SeemsChanged() const noexcept { return seemsChanged_; }

    /// The object with everything that the user has typed. Saves nothing and asks nothing.
    [[nodiscard]] ObjectText AsItStands();

    /// Takes the focus out of the designer, as a click elsewhere does, so that an open cell is committed. False when
    /// that raised a failure, which has been told by then.
    bool CommitOpenEdits();

    /// The object for a save: every edit is saved into it, which may ask the user. Nothing when that failed.
    [[nodiscard]] std::optional<ObjectText> TextToSave();

    /// What stands here now stands in a file.
    void NoteSaved();

    /// Whether the designer allows a save now; not while a panel holds text of its own.
    [[nodiscard]] bool MaySave() const noexcept { return maySave_; }

    /// Why the rules are shut and what to do; "" while they are open.
    [[nodiscard]] const QString& RulesHint() const noexcept { return gate_->Hint(); }

    void UseEditor(const QString& command);
    void UseHighlighting(bool on);
    void UseScriptFont(const std::optional<QFont>& font);

signals:
    /// SeemsChanged, MaySave or RulesHint answer otherwise than before.
    void StateChanged();

    /// A failure ended what the user did.
    void FailureRaised(int number, const QString& text);

private:
    void Show(const ObjectText& text, const Settings& settings);
    void LookForChanges();
    void AllowSave(bool allow);

    QByteArray lead_;
    Access access_;
    RulemeshWidget* widget_; // a child of the window
    std::unique_ptr<Builders> builders_;
    std::unique_ptr<FunctionButton> functionButton_;
    std::unique_ptr<RulesGate> gate_;
    QTimer pause_;
    QFont systemScriptFont_;
    bool seemsChanged_ = false;
    bool maySave_ = true;
    bool failed_ = false;

    // What stands in the file. Without it everything here is unsaved.
    struct Baseline {
        std::string Document;
        UnsavedTexts Texts;
        std::string Object;
    };
    std::optional<Baseline> saved_;
};

} // namespace rulemesh
