#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <QStringList>

#include "host/builders/builder_dialog.h"
#include "object/catalogue.h"

class QLineEdit;
class QPushButton;
class QSpinBox;

namespace rulemesh {

class TableTree;

/// Builds the precondition or a main query: tables and fields to pick, and `migrate` and `dump` statements in the form
/// in which the designer finds them.
class ScriptBuilder : public BuilderDialog {
    Q_OBJECT

public:
    enum class Script { PreCondition, MainQuery };

    /// `object` is the whole object as it stands (UTF-8), `tables` those that stand in front.
    ScriptBuilder(Script script, const QString& text, const QStringList& tables, const std::string& object,
                  QWidget* parent);

    void InsertMigrate();
    void InsertDump();
    void InsertPicked();

    [[nodiscard]] TableTree& Tables() noexcept { return *tables_; }
    [[nodiscard]] QSpinBox& DumpNumber() noexcept { return *number_; }
    [[nodiscard]] QLineEdit& Comment() noexcept { return *comment_; }

private:
    [[nodiscard]] QWidget* MakePickers(Script script);
    void OfferNextDump();
    void CheckMigrate();

    std::string object_;
    TableTree* tables_;
    QLineEdit* comment_;
    QSpinBox* number_;
    QPushButton* dump_;
    QPushButton* migrate_ = nullptr;
};

} // namespace rulemesh
