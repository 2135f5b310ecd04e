#pragma once

#include <QDialog>
#include <QString>

class QPlainTextEdit;
class QSplitter;
class QVBoxLayout;

namespace rulemesh {

/// A builder's form: names to pick from beside the text that is being built.
class BuilderDialog : public QDialog {
    Q_OBJECT

public:
    /// Whether the text differs from the one that the builder began with.
    [[nodiscard]] bool IsChanged() const;

    /// The text, each line end a carriage return and line feed as the designer's boxes have it.
    [[nodiscard]] QString Text() const;

    [[nodiscard]] QPlainTextEdit& Box() noexcept { return *box_; }

protected:
    BuilderDialog(const QString& title, const QString& text, const QString& boxName, QWidget* parent);

    /// The left side, for the names to pick from.
    void Pickers(QWidget& pickers);

    /// Puts a name in at the caret, in the place of what is selected there.
    void InsertName(const QString& name);

    /// Puts a statement in on a line of its own, below the line of the caret.
    void InsertStatement(const QString& statement);

private:
    [[nodiscard]] QString Raw() const;

    QSplitter* sides_;
    QPlainTextEdit* box_;
    QString before_;
};

} // namespace rulemesh
