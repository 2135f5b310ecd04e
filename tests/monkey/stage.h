#pragma once

#include <memory>

#include <QByteArray>
#include <QLineEdit>
#include <QString>
#include <QTemporaryDir>
#include <QWidget>

#include "desktop/rulemesh_widget.h"

namespace rulemesh::monkey {

/// A host's window with a designer on an object, a line of the host's own below it, and a second window to switch to.
class MonkeyStage {
public:
    MonkeyStage(QByteArray object, QString targetTable);

    /// Throws the designer away and makes a new one on the object as it was.
    void Reopen();

    [[nodiscard]] RulemeshWidget& Designer() { return *designer_; }
    [[nodiscard]] QWidget& Window() { return window_; }
    [[nodiscard]] QWidget& OtherWindow() { return other_; }

private:
    void AnswerEvents();

    QByteArray object_;
    QString targetTable_;
    QTemporaryDir folder_; // of the temporary files, and of the editor
    QWidget window_;
    QWidget other_;
    QLineEdit line_{&window_};
    std::unique_ptr<RulemeshWidget> designer_;
};

/// An object of several thousand target and source fields.
[[nodiscard]] QByteArray WideObject();

/// The name of an object's root element, which is its target table.
[[nodiscard]] QString RootOf(const QByteArray& object);

} // namespace rulemesh::monkey
