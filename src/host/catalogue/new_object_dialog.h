#pragma once

#include <QByteArray>
#include <QDialog>

#include "host/catalogue/new_object.h"

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QListWidget;

namespace rulemesh {

/// Asks what a new object is made of: a catalogue (another object's or a CSV file) and the target table.
class NewObjectDialog : public QDialog {
    Q_OBJECT

public:
    /// `folder` is where the search for a catalogue begins.
    NewObjectDialog(QString folder, QWidget* parent);

    /// Reads a catalogue; what is wrong with it is shown in the form.
    void UseCatalogue(const QString& path);

    /// The text of the new object, after the form was accepted.
    [[nodiscard]] const QByteArray& Object() const noexcept { return object_; }

    [[nodiscard]] QComboBox& Target() noexcept { return *target_; }
    [[nodiscard]] QCheckBox& Several() noexcept { return *several_; }
    [[nodiscard]] QListWidget& Choice() noexcept { return *choice_; }
    [[nodiscard]] QLabel& Complaint() noexcept { return *complaint_; }

    void accept() override;

private:
    void LayOut();
    void Browse();
    void ShowTables();
    void KeepTargetTicked();
    void Complain(const QString& text);
    [[nodiscard]] NewObjectPlan Plan() const;

    QString folder_;
    QLineEdit* path_;
    QComboBox* target_;
    QCheckBox* several_;
    QListWidget* choice_;
    QLabel* tables_;
    QLabel* complaint_;
    QDialogButtonBox* buttons_;
    Catalogue catalogue_;
    QByteArray object_;
};

} // namespace rulemesh
