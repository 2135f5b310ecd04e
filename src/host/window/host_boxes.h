#pragma once

#include <QString>

class QWidget;

namespace rulemesh {

/// The application's own questions and complaints. Each waits for its answer.

/// What could not be done, and why; many lines of reasons get room to scroll.
void TellProblem(QWidget* parent, const QString& what, const QString& why);

enum class SaveAnswer { Save, Discard, Cancel };

/// Asks what is to become of changes. `maySave` is false while a panel of the designer holds text of its own.
[[nodiscard]] SaveAnswer AskAboutChanges(QWidget* parent, const QString& name, bool maySave);

/// Asks whether to go on; the button that goes on bears the text.
[[nodiscard]] bool AskToGoOn(QWidget* parent, const QString& what, const QString& why, const QString& button);

} // namespace rulemesh
